// SPDX-License-Identifier: MIT
#include "window/panels/options_panel.h"

#include "window/panels/columns_panel.h"
#include "window/panels/content_panel.h"
#include "window/panels/looks_panel.h"

#include <QScrollArea>

namespace tallyframe::window {

options_panel::options_panel(QWidget* parent)
    : QTabWidget(parent), content_(new content_panel), columns_(new columns_panel), looks_(new looks_panel)
{
    setObjectName("optionsTabs");
    setAccessibleName(tr("Options of the report"));
    add_page(content_, tr("Content"));
    add_page(columns_, tr("Columns"));
    add_page(looks_, tr("Look && Media"));
    connect(content_, &content_panel::changed, this, &options_panel::changed);
    connect(content_, &content_panel::scope_changed, this, &options_panel::scope_changed);
    connect(columns_, &columns_panel::changed, this, &options_panel::changed);
    connect(looks_, &looks_panel::changed, this, &options_panel::changed);
}

void options_panel::set_choices(const choices& kept)
{
    content_->set_choices(kept);
    columns_->set_options(kept.options);
    looks_->set_choices(kept);
}

void options_panel::set_layouts(const report_options& options)
{
    columns_->set_layouts(options);
}

void options_panel::set_scope_enabled(bool enabled)
{
    content_->set_scope_enabled(enabled);
}

void options_panel::apply_to(choices& kept) const
{
    content_->apply_to(kept);
    columns_->apply_to(kept.options);
    looks_->apply_to(kept);
}

report_scope options_panel::chosen_scope() const
{
    return content_->chosen_scope();
}

figure_style options_panel::chosen_figures() const
{
    return content_->chosen_figures();
}

void options_panel::edit_layouts()
{
    columns_->edit_layouts();
}

void options_panel::add_page(QWidget* page, const QString& title)
{
    auto* area = new QScrollArea; // a small screen or large letters may need it
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(page->minimumSizeHint().width());
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    addTab(area, title);
}

} // namespace tallyframe::window
