// SPDX-License-Identifier: MIT
#include "window/panels/content_panel.h"

#include "window/models/scope.h"
#include "window/panels/option_checkbox_list.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tallyframe::window {

content_panel::content_panel(QWidget* parent)
    : QWidget(parent), scope_buttons_(new QButtonGroup(this)),
      rows_(new option_checkbox_list(row_checkboxes())), sheets_(new option_checkbox_list(sheet_checkboxes()))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(make_scope_group());

    auto* rows_group = new QGroupBox(tr("Clips"));
    (new QVBoxLayout(rows_group))->addWidget(rows_);
    column->addWidget(rows_group);

    auto* sheets_group = new QGroupBox(tr("Sheets beside \"All Reels\""));
    (new QVBoxLayout(sheets_group))->addWidget(sheets_);
    column->addWidget(sheets_group);
    column->addStretch();

    connect(rows_, &option_checkbox_list::changed, this, &content_panel::changed);
    connect(sheets_, &option_checkbox_list::changed, this, &content_panel::changed);
    connect(scope_buttons_, &QButtonGroup::idClicked, this, [this](int tag) {
        take_scope(scope_for_tag(tag, scope_));
        emit scope_changed();
    });
}

void content_panel::set_choices(const choices& kept)
{
    if (QAbstractButton* button = scope_buttons_->button(tag_for_scope(kept.scope)))
        button->setChecked(true);
    rows_->set_options(kept.options);
    sheets_->set_options(kept.options);
    take_scope(kept.scope);
}

void content_panel::set_scope_enabled(bool enabled)
{
    for (QAbstractButton* button : scope_buttons_->buttons())
        button->setEnabled(enabled);
}

void content_panel::apply_to(choices& kept) const
{
    kept.scope = scope_for_tag(scope_buttons_->checkedId(), kept.scope);
    rows_->apply_to(kept.options);
    sheets_->apply_to(kept.options);
}

QWidget* content_panel::make_scope_group()
{
    auto* group = new QGroupBox(tr("Report on"));
    auto* column = new QVBoxLayout(group);
    scope_buttons_->setObjectName("importVideoAudioRadioButtons");
    const QString titles[] = {tr("Video and audio"), tr("Video only"), tr("Audio only")};
    const QString tool_tips[] = {tr("Lists video and audio tracks"), tr("Lists video tracks only"),
                                 tr("Lists audio tracks only")};
    for (int tag = 0; tag < 3; ++tag) {
        auto* button = new QRadioButton(titles[tag]);
        button->setToolTip(tool_tips[tag]);
        scope_buttons_->addButton(button, tag);
        column->addWidget(button);
    }
    scope_buttons_->button(0)->setChecked(true);
    return group;
}

void content_panel::take_scope(report_scope scope)
{
    scope_ = scope;
    const bool can_audio_be_of_video = scope == report_scope::video_audio;
    QCheckBox* video_clip_audio = rows_->box_for(&report_options::skip_video_clip_audio);
    video_clip_audio->setEnabled(can_audio_be_of_video);
    if (!can_audio_be_of_video)
        video_clip_audio->setChecked(false);
}

} // namespace tallyframe::window
