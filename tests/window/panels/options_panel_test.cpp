// SPDX-License-Identifier: MIT
#include "window/panels/options_panel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QScrollArea>
#include <QSignalSpy>

namespace tallyframe::window {

TEST(options_panel, gives_back_what_its_pages_were_shown)
{
    options_panel panel;
    choices wanted;
    wanted.scope = report_scope::audio;
    wanted.options.summary_sheet = false;
    wanted.options.source_time_columns = {time_format::seconds};
    wanted.options.audio_row_color = "purple";
    panel.set_choices(wanted);
    choices shown;
    panel.apply_to(shown);
    EXPECT_EQ(shown.scope, report_scope::audio);
    EXPECT_FALSE(shown.options.summary_sheet);
    EXPECT_EQ(shown.options.source_time_columns, wanted.options.source_time_columns);
    EXPECT_EQ(shown.options.audio_row_color, "purple");
    EXPECT_EQ(panel.chosen_scope(), report_scope::audio);
}

TEST(options_panel, tells_of_changes_on_every_page)
{
    options_panel panel;
    const QSignalSpy changes(&panel, &options_panel::changed);
    const QSignalSpy scopes(&panel, &options_panel::scope_changed);
    panel.findChild<QCheckBox*>("motionSheetCheckbox")->click();
    EXPECT_EQ(changes.count(), 1) << "Content";
    report_options options;
    options.layouts_array = {{"Short", {{"Track", 1}}}};
    panel.set_layouts(options);
    panel.findChild<QComboBox*>("layoutsAppPopupMenu")->setCurrentText("Short");
    EXPECT_EQ(changes.count(), 2) << "Columns";
    panel.findChild<QComboBox*>("videoRowColorPopup")->setCurrentText("red");
    EXPECT_EQ(changes.count(), 3) << "Look & Media";
    EXPECT_EQ(scopes.count(), 0);
    panel.findChild<QButtonGroup*>("importVideoAudioRadioButtons")->button(1)->click();
    EXPECT_EQ(scopes.count(), 1);
}

TEST(options_panel, scrolls_where_a_page_does_not_fit)
{
    options_panel panel;
    ASSERT_EQ(panel.count(), 3);
    for (int page = 0; page < panel.count(); ++page) {
        const auto* area = qobject_cast<const QScrollArea*>(panel.widget(page));
        ASSERT_NE(area, nullptr) << page;
        EXPECT_TRUE(area->widgetResizable());
        EXPECT_GE(area->minimumWidth(), area->widget()->minimumSizeHint().width())
            << panel.tabText(page).toStdString() << " is never cut at its side";
    }
}

} // namespace tallyframe::window
