// SPDX-License-Identifier: MIT
#include "report/column_widths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

using testing::ElementsAre;

TEST(column_widths, grow_to_the_longest_text)
{
    column_widths widths = {5, 5};
    widen(widths, 0, "Interview");
    widen(widths, 1, "V1");
    EXPECT_THAT(widths, ElementsAre(9U, 5U));
}

TEST(column_widths, do_not_grow_by_bytes_that_make_no_character)
{
    column_widths widths = {5};
    widen(widths, 0, "\u65e5\u672c\u8a9e");
    EXPECT_THAT(widths, ElementsAre(5U));
}

TEST(column_widths, have_nothing_beyond_their_end)
{
    column_widths widths = {5};
    widen(widths, 1, "Interview");
    EXPECT_THAT(widths, ElementsAre(5U));
}

TEST(finished_width, shrinks_wide_columns_and_caps_the_widest)
{
    EXPECT_EQ(finished_width(40), 40);
    EXPECT_EQ(finished_width(50), 50);
    EXPECT_DOUBLE_EQ(finished_width(51), 51 * 0.85);
    EXPECT_DOUBLE_EQ(finished_width(100), 85);
    EXPECT_DOUBLE_EQ(finished_width(200), 170);
    EXPECT_EQ(finished_width(201), 170);
    EXPECT_EQ(finished_width(300), 170);
}

TEST(finished_width, of_the_widest_pictures_is_92_65)
{
    EXPECT_DOUBLE_EQ(finished_width(108 + 1), 92.65);
}

} // namespace
} // namespace tallyframe
