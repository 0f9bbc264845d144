// SPDX-License-Identifier: MIT
#include "window/models/row_colors.h"
#include "writers/text_colors.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(row_colors, are_those_of_the_workbook)
{
    EXPECT_EQ(row_color("blue"), QColor(0, 0, 255));
    EXPECT_EQ(row_color("green"), QColor(0, 128, 0));
    EXPECT_EQ(row_color("gray"), QColor(128, 128, 128));
    EXPECT_EQ(row_color("#123456"), QColor(0x12, 0x34, 0x56));
    EXPECT_FALSE(row_color("mauve").isValid());
}

TEST(row_colors, stay_as_they_are_on_paper)
{
    for (const std::string_view name : color_names())
        EXPECT_EQ(readable_on(Qt::white, row_color(name)), row_color(name)) << name;
}

TEST(row_colors, get_lighter_on_a_dark_background_and_keep_their_hue)
{
    const QColor background(30, 31, 33);
    const QColor blue = readable_on(background, row_color("blue"));
    EXPECT_GT(blue.lightness(), row_color("blue").lightness());
    EXPECT_NEAR(blue.hslHue(), row_color("blue").hslHue(), 2);
    EXPECT_GT(readable_on(background, row_color("black")).lightness(), 100);
    EXPECT_EQ(readable_on(background, row_color("yellow")).rgb(), row_color("yellow").rgb());
}

} // namespace tallyframe::window
