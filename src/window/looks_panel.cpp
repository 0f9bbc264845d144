// SPDX-License-Identifier: MIT
#include "window/looks_panel.h"

#include "window/choices.h"
#include "window/color_popups.h"
#include "window/option_checkboxes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tallyframe::window {

looks_panel::looks_panel(QWidget* parent)
    : QWidget(parent), colors_(new color_popups), pictures_(new option_checkbox_list(picture_checkboxes())),
      width_popup_(new QComboBox)
{
    auto* colors_group = new QGroupBox(tr("Row colors"));
    (new QVBoxLayout(colors_group))->addWidget(colors_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(colors_group);
    column->addWidget(make_pictures_group());
    column->addStretch();

    connect(colors_, &color_popups::changed, this, &looks_panel::changed);
    connect(pictures_, &option_checkbox_list::changed, this, &looks_panel::show_picture_choices);
    connect(pictures_, &option_checkbox_list::changed, this, &looks_panel::changed);
    connect(width_popup_, &QComboBox::currentIndexChanged, this, &looks_panel::changed);
    show_picture_choices();
}

void looks_panel::set_options(const report_options& options)
{
    const QSignalBlocker quiet(this);
    colors_->set_options(options);
    pictures_->set_options(options);
    width_popup_->setCurrentIndex(width_popup_->findData(static_cast<int>(options.thumbnail_width)));
    show_picture_choices();
}

void looks_panel::apply_to(report_options& options) const
{
    colors_->apply_to(options);
    pictures_->apply_to(options);
    options.thumbnail_width = width_popup_->currentData().toInt();
}

QWidget* looks_panel::make_pictures_group()
{
    width_popup_->setObjectName("thumbnailWidthPopup");
    width_popup_->setToolTip(tr("Width of the pictures in the workbook"));
    for (const int width : thumbnail_widths)
        width_popup_->addItem(tr("%1 pixels").arg(width), width);

    auto* group = new QGroupBox(tr("Pictures"));
    auto* column = new QVBoxLayout(group);
    column->addWidget(pictures_);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Width:"), width_popup_);
    column->addLayout(form);
    return group;
}

void looks_panel::show_picture_choices()
{
    const bool are_wanted = pictures_->box_for(&report_options::inpoint_thumbnail_jpegs)->isChecked();
    pictures_->box_for(&report_options::keep_thumbnails)->setEnabled(are_wanted);
    width_popup_->setEnabled(are_wanted);
}

} // namespace tallyframe::window
