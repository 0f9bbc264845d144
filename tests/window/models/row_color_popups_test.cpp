// SPDX-License-Identifier: MIT
#include "window/models/row_color_popups.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(row_color_popups, have_names_that_stay_as_settings_are_kept_under_them)
{
    report_options options;
    std::string names;
    for (const color_popup& popup : row_color_popups()) {
        names += popup.object_name + std::string(" ");
        options.*popup.option = popup.title;
    }
    EXPECT_EQ(names, "videoRowColorPopup audioRowColorPopup markerRowColorPopup ");
    EXPECT_EQ(options.video_row_color, "Video rows:");
    EXPECT_EQ(options.audio_row_color, "Audio rows:");
    EXPECT_EQ(options.marker_row_color, "Marker rows:");
}

} // namespace tallyframe::window
