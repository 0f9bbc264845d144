// SPDX-License-Identifier: MIT
#include "window/panels/color_popups.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QSignalSpy>

namespace tallyframe::window {

TEST(color_popups, show_colors_quietly_and_tell_what_the_user_changes)
{
    color_popups popups;
    const QSignalSpy changes(&popups, &color_popups::changed);
    report_options options;
    options.audio_row_color = "green";
    popups.set_options(options);
    auto* audio = popups.findChild<QComboBox*>("audioRowColorPopup");
    EXPECT_EQ(audio->currentText(), "green");
    EXPECT_FALSE(audio->itemIcon(0).isNull());
    EXPECT_EQ(changes.count(), 0);

    audio->setCurrentText("red");
    EXPECT_EQ(changes.count(), 1);
    report_options chosen;
    popups.apply_to(chosen);
    EXPECT_EQ(chosen.audio_row_color, "red");
    EXPECT_EQ(chosen.video_row_color, options.video_row_color);
    EXPECT_EQ(chosen.marker_row_color, options.marker_row_color);
}

} // namespace tallyframe::window
