// SPDX-License-Identifier: MIT
#include "report/time_cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

using enum display_format;

using testing::ElementsAre;

const cell_value no_cell;

cell_value text(const std::string& made)
{
    return made;
}

TEST(time_columns, stand_in_their_own_order_and_each_once)
{
    EXPECT_THAT(in_column_order({time_format::seconds, time_format::timecode, time_format::seconds}),
                ElementsAre(time_format::timecode, time_format::seconds));
}

TEST(adjusted_header, shows_the_adjustment_with_its_sign)
{
    EXPECT_EQ(adjusted_header("Sequence In", 0), "Sequence In");
    EXPECT_EQ(adjusted_header("Sequence In", 1), "Sequence In +1");
    EXPECT_EQ(adjusted_header("Sequence In", -2), "Sequence In -2");
}

TEST(time_cell, shows_a_time_in_each_format)
{
    EXPECT_EQ(time_cell(time_format::timecode, 100, 25, non_drop_frame), text("00:00:04:00"));
    EXPECT_EQ(time_cell(time_format::timecode, 1799, 29.97, drop_frame), text("00:01:00;01"));
    EXPECT_EQ(time_cell(time_format::timecode, 1799, 29.97, drop_frame, figure_style::exact),
              text("00:00:59;29"));
    EXPECT_EQ(time_cell(time_format::clock, 100, 25, non_drop_frame), text("00:00:04"));
    EXPECT_EQ(time_cell(time_format::frames, 100, 25, non_drop_frame), cell_value(100.0));
    EXPECT_EQ(time_cell(time_format::feet_and_frames, 100, 25, non_drop_frame), text("0006+04"));
    EXPECT_EQ(time_cell(time_format::seconds, 90, 25, non_drop_frame), cell_value(3.6));
}

TEST(time_cell, of_no_time_is_an_empty_text_or_no_cell)
{
    EXPECT_EQ(time_cell(time_format::timecode, std::nullopt, 25, non_drop_frame), text(""));
    EXPECT_EQ(time_cell(time_format::clock, std::nullopt, 25, non_drop_frame), text(""));
    EXPECT_EQ(time_cell(time_format::frames, std::nullopt, 25, non_drop_frame), no_cell);
    EXPECT_EQ(time_cell(time_format::feet_and_frames, std::nullopt, 25, non_drop_frame), text(""));
    EXPECT_EQ(time_cell(time_format::seconds, std::nullopt, 25, non_drop_frame), no_cell);
}

TEST(time_cell, without_a_usable_rate_holds_nothing)
{
    EXPECT_EQ(time_cell(time_format::timecode, 100, 0, non_drop_frame), text(""));
    EXPECT_EQ(time_cell(time_format::seconds, 100, 0, non_drop_frame), no_cell);
    EXPECT_EQ(time_cell(time_format::seconds, 100, std::nullopt, non_drop_frame), no_cell);
    EXPECT_EQ(time_cell(time_format::clock, 100, std::nullopt, non_drop_frame), text(""));
}

TEST(time_cell, writes_frames_whole_and_seconds_with_decimals)
{
    EXPECT_EQ(time_cell_kind(time_format::timecode), cell_kind::text);
    EXPECT_EQ(time_cell_kind(time_format::clock), cell_kind::text);
    EXPECT_EQ(time_cell_kind(time_format::frames), cell_kind::whole_number);
    EXPECT_EQ(time_cell_kind(time_format::feet_and_frames), cell_kind::text);
    EXPECT_EQ(time_cell_kind(time_format::seconds), cell_kind::decimal);
}

} // namespace
} // namespace tallyframe
