// SPDX-License-Identifier: MIT
#include "window/panels/option_checkbox_list.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tallyframe::window {

namespace {

constexpr const char* context = "option_checkbox";

} // namespace

option_checkbox_list::option_checkbox_list(std::span<const option_checkbox> entries, QWidget* parent)
    : QWidget(parent), entries_(entries)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    for (const option_checkbox& entry : entries) {
        auto* box = new QCheckBox(QCoreApplication::translate(context, entry.title));
        box->setObjectName(entry.object_name);
        box->setToolTip(QCoreApplication::translate(context, entry.tool_tip));
        connect(box, &QCheckBox::toggled, this, &option_checkbox_list::changed);
        column->addWidget(box);
        boxes_.push_back(box);
    }
}

void option_checkbox_list::set_options(const report_options& options)
{
    const QSignalBlocker quiet(this);
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        boxes_[i]->setChecked(options.*entries_[i].option);
}

void option_checkbox_list::apply_to(report_options& options) const
{
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        options.*entries_[i].option = boxes_[i]->isChecked();
}

QCheckBox* option_checkbox_list::box_for(bool report_options::*option) const
{
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        if (entries_[i].option == option)
            return boxes_[i];
    }
    return nullptr;
}

} // namespace tallyframe::window
