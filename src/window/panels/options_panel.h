// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"
#include "window/models/choices.h"

#include <QTabWidget>

namespace tallyframe::window {

class columns_panel;
class content_panel;
class looks_panel;

/// Every option of the report, on three pages.
class options_panel final : public QTabWidget {
    Q_OBJECT

public:
    explicit options_panel(QWidget* parent = nullptr);

    void set_choices(const choices& kept);
    void set_layouts(const report_options& options);
    void set_scope_enabled(bool enabled);
    void apply_to(choices& kept) const;
    report_scope chosen_scope() const;
    figure_style chosen_figures() const;

    /// Opens the dialog in which layouts are made.
    void edit_layouts();

signals:
    void changed();

    /// The scope or the style of figures is another: the analysis has to be made anew.
    void scope_changed();

private:
    void add_page(QWidget* page, const QString& title);

    content_panel* content_;
    columns_panel* columns_;
    looks_panel* looks_;
};

} // namespace tallyframe::window
