// SPDX-License-Identifier: MIT
#include "window/panels/content_panel.h"

#include "window/models/scope.h"
#include "window/panels/option_checkbox_list.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tallyframe::window {

content_panel::content_panel(QWidget* parent)
    : QWidget(parent), scope_buttons_(new QButtonGroup(this)),
      rows_(new option_checkbox_list(row_checkboxes())),
      sheets_(new option_checkbox_list(sheet_checkboxes())),
      exact_figures_(new QCheckBox(tr("Exact figures")))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(make_scope_group());

    auto* rows_group = new QGroupBox(tr("Clips"));
    (new QVBoxLayout(rows_group))->addWidget(rows_);
    column->addWidget(rows_group);
    column->addWidget(make_figures_group());

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
    const QSignalBlocker quiet(exact_figures_);
    exact_figures_->setChecked(kept.figures == figure_style::exact);
    take_scope(kept.scope);
}

figure_style content_panel::chosen_figures() const
{
    return exact_figures_->isChecked() ? figure_style::exact : figure_style::comparable;
}

void content_panel::set_scope_enabled(bool enabled)
{
    exact_figures_->setEnabled(enabled);
    for (QAbstractButton* button : scope_buttons_->buttons())
        button->setEnabled(enabled);
}

void content_panel::apply_to(choices& kept) const
{
    kept.scope = scope_for_tag(scope_buttons_->checkedId(), kept.scope);
    kept.figures = chosen_figures();
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

QWidget* content_panel::make_figures_group()
{
    auto* group = new QGroupBox(tr("Figures"));
    exact_figures_->setObjectName("exactFiguresCheckbox");
    exact_figures_->setToolTip(tr(
        "Some figures are as in older lists, so that lists can be compared, and not quite right. This makes "
        "them right: the guide (F1) tells which"));
    (new QVBoxLayout(group))->addWidget(exact_figures_);
    connect(exact_figures_, &QCheckBox::toggled, this, &content_panel::scope_changed);
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
