// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report.h"
#include "window/models/preview_model.h"

#include <QColor>
#include <QWidget>
#include <cstdint>

class QLabel;
class QTableView;

namespace tallyframe::window {

struct track_counts {
    std::int64_t all = 0;
    std::int64_t left_out = 0; ///< not ticked
};

/// The sheet "All Reels" as it will be saved, with a line above it that tells what it is made of.
class preview_panel final : public QWidget {
    Q_OBJECT

public:
    explicit preview_panel(QWidget* parent = nullptr);

    preview_model& model() { return model_; }

    /// The colours are those of the workbook.
    void show_report(report shown, const report_options& options, const track_counts& tracks);

    /// `summary`: one line about the sequence.
    void set_summary(const QString& summary);
    void clear();

protected:
    /// The rows' colours follow the palette.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show_colors();
    void fit_columns();

    report report_; ///< the model shows a sheet of it
    preview_model model_;
    QColor video_color_ = Qt::black, audio_color_ = Qt::black; ///< those of the workbook
    QTableView* view_;
    QLabel* summary_;
    QLabel* counts_;
};

} // namespace tallyframe::window
