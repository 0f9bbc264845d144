// SPDX-License-Identifier: MIT
#include "timecode/to_timecode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace tallyframe {

namespace {

using enum display_format;

struct conversion {
    double frames;
    double rate;
    display_format format;
    std::string_view timecode;
};

TEST(to_timecode, divides_evenly_without_drop_frame)
{
    const conversion cases[] = {
        {0, 25, non_drop_frame, "00:00:00:00"},          {24, 25, non_drop_frame, "00:00:00:24"},
        {25, 25, non_drop_frame, "00:00:01:00"},         {1499, 25, non_drop_frame, "00:00:59:24"},
        {1500, 25, non_drop_frame, "00:01:00:00"},       {90'000, 25, non_drop_frame, "01:00:00:00"},
        {86'400, 23.976, non_drop_frame, "01:00:00:00"}, {107'999, 29.97, non_drop_frame, "00:59:59:29"},
        {108'000, 30, non_drop_frame, "01:00:00:00"},    {180'000, 50, non_drop_frame, "01:00:00:00"},
        {216'000, 59.94, non_drop_frame, "01:00:00:00"}, {216'001, 60, non_drop_frame, "01:00:00:01"},
    };
    for (const conversion& c : cases)
        EXPECT_EQ(to_timecode(c.frames, c.rate, c.format), c.timecode) << c.frames << " at " << c.rate;
}

TEST(to_timecode, labels_the_last_two_frames_of_each_minute_as_the_next_one)
{
    const conversion cases[] = {
        {1797, 29.97, drop_frame, "00:00:59;27"},   {1798, 29.97, drop_frame, "00:01:00;00"},
        {1799, 29.97, drop_frame, "00:01:00;01"},   {1800, 29.97, drop_frame, "00:01:00;02"},
        {3595, 29.97, drop_frame, "00:01:59;27"},   {3596, 29.97, drop_frame, "00:02:00;00"},
        {17'980, 29.97, drop_frame, "00:10:00;00"}, {17'981, 29.97, drop_frame, "00:10:00;01"},
        {17'982, 29.97, drop_frame, "00:10:00;00"}, {107'892, 29.97, drop_frame, "01:00:00;00"},
    };
    for (const conversion& c : cases)
        EXPECT_EQ(to_timecode(c.frames, c.rate, c.format), c.timecode) << c.frames;
}

TEST(to_timecode, drops_the_labels_of_the_standard_where_asked_to)
{
    const conversion cases[] = {
        {0, 29.97, drop_frame, "00:00:00;00"},       {1799, 29.97, drop_frame, "00:00:59;29"},
        {1800, 29.97, drop_frame, "00:01:00;02"},    {3597, 29.97, drop_frame, "00:01:59;29"},
        {3598, 29.97, drop_frame, "00:02:00;02"},    {17'981, 29.97, drop_frame, "00:09:59;29"},
        {17'982, 29.97, drop_frame, "00:10:00;00"},  {19'781, 29.97, drop_frame, "00:10:59;29"},
        {19'782, 29.97, drop_frame, "00:11:00;02"},  {107'891, 29.97, drop_frame, "00:59:59;29"},
        {107'892, 29.97, drop_frame, "01:00:00;00"}, {3599, 59.94, drop_frame, "00:00:59;59"},
        {3600, 59.94, drop_frame, "00:01:00;04"},    {35'963, 59.94, drop_frame, "00:09:59;59"},
        {35'964, 59.94, drop_frame, "00:10:00;00"},  {1499, 25, drop_frame, "00:00:59;24"},
        {1500, 25, drop_frame, "00:01:00;00"},       {1800, 29.97, non_drop_frame, "00:01:00:00"},
        {1799.5, 29.97, drop_frame, "00:01:00;02"},  {-1, 29.97, drop_frame, "-1:59:59;29"},
    };
    for (const conversion& c : cases)
        EXPECT_EQ(to_timecode(c.frames, c.rate, c.format, drop_frame_counting::standard), c.timecode)
            << c.frames << " at " << c.rate;
}

TEST(to_timecode, gives_labels_of_the_standard_that_read_back_as_their_frame)
{
    for (const double rate : {29.97, 30.0, 59.94, 60.0}) {
        for (int frame = 0; frame < 250'000; ++frame) {
            ASSERT_EQ(to_frames(to_timecode(frame, rate, drop_frame, drop_frame_counting::standard), rate,
                                drop_frame),
                      frame)
                << rate;
        }
    }
}

TEST(to_timecode, drops_four_frames_a_minute_at_sixty)
{
    EXPECT_EQ(to_timecode(215'784, 59.94, drop_frame), "01:00:00;00");
    EXPECT_EQ(to_timecode(3595, 59.94, drop_frame), "00:00:59;55");
    EXPECT_EQ(to_timecode(3596, 59.94, drop_frame), "00:01:00;00");
}

TEST(to_timecode, drops_one_frame_a_minute_at_other_rates)
{
    EXPECT_EQ(to_timecode(24 * 60 - 1, 24, drop_frame), "00:01:00;00");
    EXPECT_EQ(to_timecode(25 * 60 - 1, 25, drop_frame), "00:01:00;00");
    EXPECT_EQ(to_timecode(14 * 60 - 1, 14, drop_frame), "00:00:59;13"); // below 15 nothing is dropped
}

TEST(to_timecode, writes_a_semicolon_for_an_unknown_format_and_drops_nothing)
{
    EXPECT_EQ(to_timecode(1800, 29.97, unknown), "00:01:00;00");
}

TEST(to_timecode, counts_at_29_97_without_drop_when_there_is_no_rate)
{
    EXPECT_EQ(to_timecode(1800, std::nullopt, drop_frame), "00:01:00:00");
    EXPECT_EQ(to_timecode(29, std::nullopt, unknown), "00:00:00:29");
}

TEST(to_timecode, floors_negative_counts)
{
    EXPECT_EQ(to_timecode(-1, 30, non_drop_frame), "-1:59:59:29");
    EXPECT_EQ(to_timecode(-108'000, 30, non_drop_frame), "-1:00:00:00");
    EXPECT_EQ(to_timecode(-108'001, 30, non_drop_frame), "-2:59:59:29");
    EXPECT_EQ(to_timecode(-30 * 3600 * 12, 30, non_drop_frame), "-12:00:00:00");
}

TEST(to_timecode, does_not_cut_wide_fields)
{
    EXPECT_EQ(to_timecode(25.0 * 3600 * 100, 25, non_drop_frame), "100:00:00:00");
    EXPECT_EQ(to_timecode(119, 120, non_drop_frame), "00:00:00:119");
}

TEST(to_timecode, rounds_the_frames_field_alone)
{
    EXPECT_EQ(to_timecode(10.4, 25, non_drop_frame), "00:00:00:10");
    EXPECT_EQ(to_timecode(10.5, 25, non_drop_frame), "00:00:00:11");
    EXPECT_EQ(to_timecode(24.5, 25, non_drop_frame), "00:00:00:25"); // no carry into the seconds
    EXPECT_EQ(to_timecode(-0.25, 25, non_drop_frame), "-1:59:59:25");
}

TEST(to_timecode, gives_the_empty_text_for_nothing)
{
    EXPECT_EQ(to_timecode(std::nullopt, 25, non_drop_frame), "");
    EXPECT_EQ(to_timecode(std::nullopt, std::nullopt, non_drop_frame), "");
}

TEST(to_timecode, gives_the_empty_text_where_no_time_can_be_told)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    for (const double rate : {0.0, 0.4, -1.0, -30.0, endless, -endless, std::nan("")})
        EXPECT_EQ(to_timecode(1, rate, drop_frame), "") << rate;
    for (const double frames : {endless, -endless, std::nan(""), 1e15, -1e15, 1e300})
        EXPECT_EQ(to_timecode(frames, 25, non_drop_frame), "") << frames;
    EXPECT_EQ(to_timecode(999'999'999'999'999, 25, non_drop_frame), "11111111111:06:39:24");
}

} // namespace

} // namespace tallyframe
