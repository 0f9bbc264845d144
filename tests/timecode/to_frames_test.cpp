// SPDX-License-Identifier: MIT
#include "timecode/to_timecode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace tallyframe {

namespace {

using enum display_format;

frame_duration_source duration_of(const char* text)
{
    return [text] { return std::optional<std::string>(text); };
}

TEST(to_frames, counts_drop_frames_as_the_standard_does)
{
    EXPECT_EQ(to_frames("01:00:00;00", 29.97, drop_frame), 107'892);
    EXPECT_EQ(to_frames("00:01:00;02", 29.97, drop_frame), 1800);
    EXPECT_EQ(to_frames("00:00:59;29", 29.97, drop_frame), 1799);
    EXPECT_EQ(to_frames("00:10:00;00", 29.97, drop_frame), 17'982);
    EXPECT_EQ(to_frames("01:00:00;00", 30, drop_frame), 107'892);
    EXPECT_EQ(to_frames("01:00:00;00", 59.94, drop_frame), 215'784);
    EXPECT_EQ(to_frames("01:00:00;00", 60, drop_frame), 215'784);
}

TEST(to_frames, drops_no_frames_at_other_rates)
{
    EXPECT_EQ(to_frames("01:00:00;00", 25, drop_frame), 90'000);
    EXPECT_EQ(to_frames("01:00:00;00", 23.976, drop_frame), 86'400);
    EXPECT_EQ(to_frames("01:00:00;00", 29.970001, drop_frame), 108'000);
}

TEST(to_frames, goes_by_the_format_and_not_by_the_separator)
{
    EXPECT_EQ(to_frames("01:00:00;00", 29.97, non_drop_frame), 108'000);
    EXPECT_EQ(to_frames("01:00:00:00", 29.97, drop_frame), 107'892);
    EXPECT_EQ(to_frames("01:00:00;00", 29.97, unknown), 108'000);
}

TEST(to_frames, takes_a_point_for_a_separator)
{
    EXPECT_EQ(to_frames("00:00:10.05", 25, non_drop_frame), 255);
    EXPECT_EQ(to_frames("00.00.10.05", 25, non_drop_frame), 255);
}

TEST(to_frames, fills_missing_fields_from_the_front)
{
    EXPECT_EQ(to_frames("1:02:03", 25, non_drop_frame), (60 + 2) * 25 + 3);
    EXPECT_EQ(to_frames("::", 25, non_drop_frame), 0);
    EXPECT_EQ(to_frames("1::", 25, non_drop_frame), 1500);
    EXPECT_EQ(to_frames("01:00:00:", 25, non_drop_frame), 90'000);
}

TEST(to_frames, cuts_a_compact_number_into_pairs)
{
    EXPECT_EQ(to_frames("10203.12", 25, non_drop_frame), 3723 * 25 + 12);
    EXPECT_EQ(to_frames("010203.12", 25, non_drop_frame), 3723 * 25 + 12);
    EXPECT_EQ(to_frames("203:12", 25, non_drop_frame), 123 * 25 + 12);
    EXPECT_EQ(to_frames("10.05", 25, non_drop_frame), 255);
    EXPECT_EQ(to_frames("0.05", 25, non_drop_frame), 5);
    EXPECT_EQ(to_frames("10:", 25, non_drop_frame), 250);
    EXPECT_EQ(to_frames(".", 25, non_drop_frame), 0);
    EXPECT_EQ(to_frames("-5.00", 25, non_drop_frame), -125);
    EXPECT_EQ(to_frames("01020304.12", 25, non_drop_frame), 3723 * 25 + 4); // the frames are the fifth field
}

TEST(to_frames, uses_the_first_four_fields_only)
{
    EXPECT_EQ(to_frames("01:00:00:07:99", 25, non_drop_frame), 90'007);
    EXPECT_EQ(to_frames("01:00:00:07:99:99:", 25, non_drop_frame), 90'007);
}

TEST(to_frames, reads_the_leading_digits_of_each_field)
{
    EXPECT_EQ(to_frames("aa:1b: 2:+3x", 25, non_drop_frame), 1500 + 50 + 3);
    EXPECT_EQ(to_frames("-1:59:59:29", 30, non_drop_frame), -1);
    EXPECT_EQ(to_frames("00:-1:00;00", 29.97, drop_frame), -1800 + 1 * 18 - 9 * 2);
}

TEST(to_frames, converts_rational_time_by_the_frame_duration)
{
    EXPECT_EQ(to_frames("1001/30000s", 25, unknown, duration_of("1001/30000s")), 1);
    EXPECT_EQ(to_frames("3003/30000s", 25, unknown, duration_of("1001/30000s")), 3);
    EXPECT_EQ(to_frames("5s", 25, unknown, duration_of("1/25s")), 125);
    EXPECT_EQ(to_frames("1/50s", 25, unknown, duration_of("1/25s")), 1); // half a frame rounds up
    EXPECT_EQ(to_frames("-1/50s", 25, unknown, duration_of("1/25s")), -1);
    EXPECT_EQ(to_frames("5", 0, unknown, duration_of("1/25s")), 125); // neither rate nor unit is needed
}

TEST(to_frames, knows_zero_without_the_frame_duration)
{
    const frame_duration_source must_not_be_asked = []() -> std::optional<std::string> {
        ADD_FAILURE() << "asked for the frame duration";
        return std::nullopt;
    };
    for (const char* zero : {"0s", "0/0s", "0/1s"})
        EXPECT_EQ(to_frames(zero, 0, drop_frame, must_not_be_asked), 0) << zero;
}

TEST(to_frames, gives_nothing_where_no_count_can_be_told)
{
    EXPECT_EQ(to_frames(std::nullopt, 25, non_drop_frame), std::nullopt);
    EXPECT_EQ(to_frames("5s", 25, non_drop_frame), std::nullopt); // a host without frame duration
    EXPECT_EQ(to_frames("5s", 25, non_drop_frame, [] { return std::optional<std::string>(); }), std::nullopt);
    EXPECT_EQ(to_frames("5/0s", 25, non_drop_frame, duration_of("1/25s")), std::nullopt);
    EXPECT_EQ(to_frames("5s", 25, non_drop_frame, duration_of("0/25s")), std::nullopt);
    EXPECT_EQ(to_frames("", 25, non_drop_frame, duration_of("")), std::nullopt);
    for (const double rate : {0.0, -30.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(to_frames("01:00:00:00", rate, drop_frame), std::nullopt) << rate;
}

TEST(to_frames, takes_any_length_of_text)
{
    const std::string nines(100'000, '9');
    EXPECT_EQ(to_frames(nines + ":" + nines + ":" + nines + ":" + nines, 29.97, drop_frame), std::nullopt);
    EXPECT_EQ(to_frames(nines + ".01", 25, non_drop_frame), 99 * 90'000 + 99 * 1500 + 99 * 25 + 99);
    EXPECT_EQ(to_frames(std::string(100'000, ':'), 25, non_drop_frame), 0);
    EXPECT_EQ(to_frames(nines + "s", 25, non_drop_frame, duration_of("1/25s")), std::nullopt);
}

TEST(to_frames, brings_back_every_non_drop_count)
{
    for (const double rate : {23.976, 25.0, 29.97, 30.0, 50.0, 59.94, 60.0}) {
        for (int frames = -200'000; frames < 400'000; frames += 37)
            ASSERT_EQ(to_frames(to_timecode(frames, rate, non_drop_frame), rate, non_drop_frame), frames)
                << rate;
    }
}

TEST(to_frames, brings_back_drop_counts_but_for_the_last_two_frames_of_ten_minutes)
{
    for (int frames = 0; frames < 40'000; ++frames) {
        const int from_end = 17'982 - frames % 17'982;
        const int expected = from_end <= 2 ? frames + 2 : frames;
        ASSERT_EQ(to_frames(to_timecode(frames, 29.97, drop_frame), 29.97, drop_frame), expected);
    }
}

} // namespace

} // namespace tallyframe
