// SPDX-License-Identifier: MIT
#include "window/panels/columns_panel.h"

#include "window/models/qt_text.h"
#include "window/models/saved_layouts.h"
#include "window/panels/layouts_editor.h"
#include "window/panels/time_columns_editor.h"
#include "window/panels/wheel_with_focus.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace tallyframe::window {

columns_panel::columns_panel(QWidget* parent)
    : QWidget(parent), layouts_popup_(new QComboBox),
      timeline_columns_(new time_columns_editor(tr("Timeline times"), "timelineColumnsTableView", true)),
      source_columns_(new time_columns_editor(tr("Source times"), "sourceColumnsTableView", false))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(make_layout_row());
    column->addWidget(timeline_columns_);
    column->addWidget(source_columns_);
    column->addStretch();

    connect(layouts_popup_, &QComboBox::currentIndexChanged, this, &columns_panel::changed);
    connect(timeline_columns_, &time_columns_editor::changed, this, &columns_panel::changed);
    connect(source_columns_, &time_columns_editor::changed, this, &columns_panel::changed);
}

void columns_panel::set_options(const report_options& options)
{
    const QSignalBlocker quiet(this);
    set_layouts(options);
    timeline_columns_->model().set_rows(time_column_rows(options.timeline_time_columns, options.adjustments));
    source_columns_->model().set_rows(time_column_rows(options.source_time_columns, {}));
}

void columns_panel::set_layouts(const report_options& options)
{
    show_layouts(options.layouts_array, options.layout.value_or(std::string()));
}

void columns_panel::apply_to(report_options& options) const
{
    options.layouts_array = layouts_;
    options.layout.reset();
    if (layouts_popup_->currentIndex() > 0)
        options.layout = layouts_popup_->currentText().toStdString();
    options.timeline_time_columns = chosen_formats(timeline_columns_->model().rows());
    options.adjustments = adjustments_of(timeline_columns_->model().rows());
    options.source_time_columns = chosen_formats(source_columns_->model().rows());
}

void columns_panel::edit_layouts()
{
    const std::string chosen =
        layouts_popup_->currentIndex() > 0 ? layouts_popup_->currentText().toStdString() : std::string();
    auto* editor = new layouts_editor(layouts_, chosen, window());
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, [this, editor] { take_layouts(*editor); });
    editor->open();
}

QWidget* columns_panel::make_layout_row()
{
    auto* row_widget = new QWidget;
    auto* row = new QHBoxLayout(row_widget);
    row->setContentsMargins({});
    layouts_popup_->setObjectName("layoutsAppPopupMenu");
    layouts_popup_->setToolTip(tr("Which columns the sheets of clips have"));
    layouts_popup_->setMinimumContentsLength(8);
    take_wheel_with_focus_only(*layouts_popup_);
    layouts_popup_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* label = new QLabel(tr("&Layout:"));
    label->setBuddy(layouts_popup_);
    auto* edit_button = new QPushButton(tr("Ed&it…"));
    edit_button->setObjectName("editLayoutsButton");
    edit_button->setToolTip(tr("Make layouts of your own"));
    connect(edit_button, &QPushButton::clicked, this, &columns_panel::edit_layouts);
    row->addWidget(label);
    row->addWidget(layouts_popup_, 1);
    row->addWidget(edit_button);
    return row_widget;
}

void columns_panel::show_layouts(std::vector<column_layout> layouts, const std::string& chosen)
{
    layouts_ = std::move(layouts);
    const QSignalBlocker quiet(layouts_popup_);
    layouts_popup_->clear();
    layouts_popup_->addItem(qt_text(default_layout_name));
    for (const column_layout& layout : layouts_)
        layouts_popup_->addItem(qt_text(layout.name));
    const std::size_t position = find_layout(chosen, layouts_);
    layouts_popup_->setCurrentIndex(position < layouts_.size() ? static_cast<int>(position) + 1 : 0);
}

void columns_panel::take_layouts(const layouts_editor& editor)
{
    show_layouts(editor.layouts(), editor.chosen_name());
    emit changed();
}

} // namespace tallyframe::window
