// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <QWidget>
#include <vector>

class QComboBox;

namespace tallyframe::window {

class layouts_editor;
class time_columns_editor;

/// Which columns the clips have: the layout, and the forms of the times.
class columns_panel final : public QWidget {
    Q_OBJECT

public:
    explicit columns_panel(QWidget* parent = nullptr);

    void set_options(const report_options& options);
    void set_layouts(const report_options& options);
    void apply_to(report_options& options) const;

    /// Opens the dialog in which layouts are made.
    void edit_layouts();

signals:
    void changed();

private:
    QWidget* make_layout_row();
    void show_layouts(std::vector<column_layout> layouts, const std::string& chosen);
    void take_layouts(const layouts_editor& editor);

    QComboBox* layouts_popup_;
    time_columns_editor* timeline_columns_;
    time_columns_editor* source_columns_;
    std::vector<column_layout> layouts_;
};

} // namespace tallyframe::window
