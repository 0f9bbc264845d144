// SPDX-License-Identifier: MIT
#pragma once

#include "window/preview_model.h"

#include <QWidget>

class QLabel;
class QTableView;

namespace tallyframe::window {

/// The sheet "All Reels" as it will be saved, with a line above it that tells what it is made of.
class preview_panel final : public QWidget {
    Q_OBJECT

public:
    explicit preview_panel(QWidget* parent = nullptr);

    preview_model& model() { return model_; }

    /// The colours are those of the workbook.
    void show_table(preview_table table, const report_options& options);
    void show_colors(const report_options& options);

    /// `summary`: one line about the sequence.
    void set_summary(const QString& summary);
    void clear();

private:
    void fit_columns();

    preview_model model_;
    QTableView* view_;
    QLabel* summary_;
    QLabel* counts_;
};

} // namespace tallyframe::window
