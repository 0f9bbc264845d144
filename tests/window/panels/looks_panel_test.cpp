// SPDX-License-Identifier: MIT
#include "window/panels/looks_panel.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>

using testing::ElementsAre;

namespace tallyframe::window {

namespace {

choices shown_by(const looks_panel& panel)
{
    choices kept;
    panel.apply_to(kept);
    return kept;
}

QComboBox* width_popup(const looks_panel& panel)
{
    return panel.findChild<QComboBox*>("thumbnailWidthPopup");
}

} // namespace

TEST(looks_panel, shows_choices_quietly_and_gives_them_back)
{
    looks_panel panel;
    const QSignalSpy changes(&panel, &looks_panel::changed);
    choices wanted;
    wanted.options.marker_row_color = "red";
    wanted.options.inpoint_thumbnail_jpegs = true;
    wanted.options.keep_thumbnails = true;
    wanted.options.thumbnail_width = 96;
    wanted.media_places = {{"/Volumes/Rushes", "/mnt/rushes"}, {"", "/mnt/stock"}};
    panel.set_choices(wanted);
    EXPECT_EQ(changes.count(), 0);
    const choices shown = shown_by(panel);
    EXPECT_EQ(shown.options.marker_row_color, "red");
    EXPECT_TRUE(shown.options.inpoint_thumbnail_jpegs);
    EXPECT_TRUE(shown.options.keep_thumbnails);
    EXPECT_EQ(shown.options.thumbnail_width, 96);
    EXPECT_THAT(shown.media_places, ElementsAre(wanted.media_places[0], wanted.media_places[1]));
}

TEST(looks_panel, offers_what_belongs_to_pictures_only_with_them)
{
    looks_panel panel;
    auto* keep = panel.findChild<QCheckBox*>("keepThumbnailsCheckbox");
    EXPECT_FALSE(keep->isEnabled());
    EXPECT_FALSE(width_popup(panel)->isEnabled());
    panel.findChild<QCheckBox*>("inpointThumbnailsCheckbox")->click();
    EXPECT_TRUE(keep->isEnabled());
    EXPECT_TRUE(width_popup(panel)->isEnabled());
}

TEST(looks_panel, keeps_the_last_width_while_another_is_being_typed)
{
    looks_panel panel;
    const QSignalSpy changes(&panel, &looks_panel::changed);
    width_popup(panel)->setEditText("5"); // of 500
    choices kept;
    kept.options.thumbnail_width = 320;
    panel.apply_to(kept);
    EXPECT_EQ(kept.options.thumbnail_width, 320);
    width_popup(panel)->setEditText("500");
    panel.apply_to(kept);
    EXPECT_EQ(kept.options.thumbnail_width, 500);
    EXPECT_EQ(changes.count(), 2);
}

} // namespace tallyframe::window
