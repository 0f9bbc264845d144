// SPDX-License-Identifier: MIT
#include "window/panels/looks_panel.h"

#include "window/panels/color_popups.h"
#include "window/panels/media_places_editor.h"
#include "window/panels/option_checkbox_list.h"
#include "window/panels/wheel_with_focus.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace tallyframe::window {

namespace {

/// Takes whole numbers within the bounds of a picture's width; what is typed beyond them becomes the bound.
class width_validator final : public QIntValidator {
public:
    explicit width_validator(QObject* parent) : QIntValidator(narrowest_thumbnail, widest_thumbnail, parent)
    {
    }

    void fixup(QString& text) const override
    {
        text = QString::number(std::clamp(text.toInt(), bottom(), top()));
    }
};

} // namespace

looks_panel::looks_panel(QWidget* parent)
    : QWidget(parent), colors_(new color_popups), pictures_(new option_checkbox_list(picture_checkboxes())),
      width_popup_(new QComboBox), media_places_(new media_places_editor)
{
    auto* colors_group = new QGroupBox(tr("Row colors"));
    (new QVBoxLayout(colors_group))->addWidget(colors_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(colors_group);
    column->addWidget(make_pictures_group());
    column->addWidget(media_places_, 1);

    connect(colors_, &color_popups::changed, this, &looks_panel::changed);
    connect(pictures_, &option_checkbox_list::changed, this, &looks_panel::show_picture_choices);
    connect(pictures_, &option_checkbox_list::changed, this, &looks_panel::changed);
    connect(width_popup_, &QComboBox::editTextChanged, this, &looks_panel::changed);
    connect(media_places_, &media_places_editor::changed, this, &looks_panel::changed);
    show_picture_choices();
}

void looks_panel::set_choices(const choices& kept)
{
    const QSignalBlocker quiet(this);
    colors_->set_options(kept.options);
    pictures_->set_options(kept.options);
    width_popup_->setEditText(QString::number(kept.options.thumbnail_width));
    media_places_->model().set_places(kept.media_places);
    show_picture_choices();
}

void looks_panel::apply_to(choices& kept) const
{
    colors_->apply_to(kept.options);
    pictures_->apply_to(kept.options);
    if (width_popup_->lineEdit()->hasAcceptableInput()) // otherwise it is still being typed
        kept.options.thumbnail_width = width_popup_->currentText().toInt();
    kept.media_places = media_places_->model().places();
}

QWidget* looks_panel::make_pictures_group()
{
    set_up_widths();
    auto* label = new QLabel(tr("&Width:"));
    label->setBuddy(width_popup_);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(width_popup_);
    row->addWidget(new QLabel(tr("pixels")));
    row->addStretch();
    auto* group = new QGroupBox(tr("Pictures"));
    auto* column = new QVBoxLayout(group);
    column->addWidget(pictures_);
    column->addLayout(row);
    return group;
}

void looks_panel::set_up_widths()
{
    width_popup_->setObjectName("thumbnailWidthPopup");
    width_popup_->setToolTip(tr("Width of the pictures in the workbook, %1 to %2 pixels")
                                 .arg(narrowest_thumbnail)
                                 .arg(widest_thumbnail));
    width_popup_->setEditable(true);
    take_wheel_with_focus_only(*width_popup_);
    width_popup_->setInsertPolicy(QComboBox::NoInsert);
    width_popup_->setValidator(new width_validator(width_popup_));
    for (const int width : thumbnail_widths)
        width_popup_->addItem(QString::number(width));
}

void looks_panel::show_picture_choices()
{
    const bool are_wanted = pictures_->box_for(&report_options::inpoint_thumbnail_jpegs)->isChecked();
    pictures_->box_for(&report_options::keep_thumbnails)->setEnabled(are_wanted);
    width_popup_->setEnabled(are_wanted);
}

} // namespace tallyframe::window
