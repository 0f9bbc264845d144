// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"
#include "window/models/choices.h"

#include <QWidget>

class QButtonGroup;
class QCheckBox;

namespace tallyframe::window {

class option_checkbox_list;

/// What goes into the workbook: the scope, which rows, by which rules, which sheets.
class content_panel final : public QWidget {
    Q_OBJECT

public:
    explicit content_panel(QWidget* parent = nullptr);

    void set_choices(const choices& kept);
    void set_scope_enabled(bool enabled);
    void apply_to(choices& kept) const;

    /// The scope of the chosen button.
    report_scope chosen_scope() const { return scope_; }

    figure_style chosen_figures() const;

signals:
    void changed();

    /// The scope or the style of figures is another: the analysis has to be made anew.
    void scope_changed();

private:
    QWidget* make_scope_group();
    QWidget* make_figures_group();
    void take_scope(report_scope scope);

    QButtonGroup* scope_buttons_;
    option_checkbox_list* rows_;
    option_checkbox_list* sheets_;
    QCheckBox* exact_figures_;
    report_scope scope_ = report_scope::video_audio;
};

} // namespace tallyframe::window
