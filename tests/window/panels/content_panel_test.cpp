// SPDX-License-Identifier: MIT
#include "window/panels/content_panel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QSignalSpy>

namespace tallyframe::window {

namespace {

choices shown_by(const content_panel& panel)
{
    choices kept;
    panel.apply_to(kept);
    return kept;
}

QAbstractButton* scope_button(const content_panel& panel, int tag)
{
    return panel.findChild<QButtonGroup*>("importVideoAudioRadioButtons")->button(tag);
}

} // namespace

TEST(content_panel, shows_choices_quietly_and_gives_them_back)
{
    content_panel panel;
    const QSignalSpy changes(&panel, &content_panel::changed);
    const QSignalSpy scopes(&panel, &content_panel::scope_changed);
    choices wanted;
    wanted.scope = report_scope::video;
    wanted.figures = figure_style::exact;
    wanted.options.filters_sheet = false;
    wanted.options.report_enabled_only = true;
    panel.set_choices(wanted);
    EXPECT_EQ(scopes.count(), 0);
    EXPECT_EQ(panel.chosen_scope(), report_scope::video);
    const choices shown = shown_by(panel);
    EXPECT_EQ(shown.scope, report_scope::video);
    EXPECT_EQ(shown.figures, figure_style::exact);
    EXPECT_FALSE(shown.options.filters_sheet);
    EXPECT_TRUE(shown.options.report_enabled_only);
    EXPECT_TRUE(shown.options.motion_sheet);
    EXPECT_EQ(changes.count(), 0);
}

TEST(content_panel, tells_of_a_sheet_apart_from_the_scope)
{
    content_panel panel;
    panel.set_choices({});
    const QSignalSpy changes(&panel, &content_panel::changed);
    const QSignalSpy scopes(&panel, &content_panel::scope_changed);
    panel.findChild<QCheckBox*>("filtersSheetCheckbox")->click();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(scopes.count(), 0);
    EXPECT_FALSE(shown_by(panel).options.filters_sheet);
    scope_button(panel, 2)->click();
    EXPECT_EQ(scopes.count(), 1);
    EXPECT_EQ(panel.chosen_scope(), report_scope::audio);
}

TEST(content_panel, asks_for_another_analysis_when_figures_are_to_be_exact)
{
    content_panel panel;
    panel.set_choices({});
    EXPECT_EQ(panel.chosen_figures(), figure_style::comparable);
    const QSignalSpy analyses(&panel, &content_panel::scope_changed);
    panel.findChild<QCheckBox*>("exactFiguresCheckbox")->click();
    EXPECT_EQ(analyses.count(), 1);
    EXPECT_EQ(panel.chosen_figures(), figure_style::exact);
    EXPECT_EQ(shown_by(panel).figures, figure_style::exact);
}

TEST(content_panel, leaves_out_the_sound_of_video_clips_only_where_both_are_reported)
{
    content_panel panel;
    auto* box = panel.findChild<QCheckBox*>("videoClipAudioCheckbox");
    box->setChecked(true);
    scope_button(panel, 1)->click();
    EXPECT_FALSE(box->isEnabled());
    EXPECT_FALSE(shown_by(panel).options.skip_video_clip_audio);
    scope_button(panel, 0)->click();
    EXPECT_TRUE(box->isEnabled());
    EXPECT_FALSE(box->isChecked()) << "nobody has ticked it again";
}

TEST(content_panel, can_take_the_scope_from_the_user_for_a_while)
{
    content_panel panel;
    panel.set_scope_enabled(false);
    for (int tag = 0; tag < 3; ++tag)
        EXPECT_FALSE(scope_button(panel, tag)->isEnabled()) << tag;
    EXPECT_TRUE(panel.findChild<QCheckBox*>("filtersSheetCheckbox")->isEnabled());
    panel.set_scope_enabled(true);
    EXPECT_TRUE(scope_button(panel, 1)->isEnabled());
}

} // namespace tallyframe::window
