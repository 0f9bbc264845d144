// SPDX-License-Identifier: MIT
#include "timecode/frame_rates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tallyframe {

namespace {

TEST(frame_rates, are_floating_for_ntsc_and_whole_otherwise)
{
    for (const frame_rates_row& row : frame_rates)
        EXPECT_EQ(row.fcp_rate.is_floating, row.ntsc == "TRUE") << row.type;
}

TEST(frame_rates, round_to_their_timebase)
{
    for (const frame_rates_row& row : frame_rates)
        EXPECT_EQ(nominal_rate(row.fcp_rate.frames_per_second), row.timebase) << row.type;
}

TEST(find_frame_rate, tells_rows_of_one_timebase_by_their_ntsc_text)
{
    ASSERT_NE(find_frame_rate("TRUE", 24), nullptr);
    EXPECT_EQ(find_frame_rate("TRUE", 24)->type, "24P (24 fps)");
    EXPECT_EQ(find_frame_rate("FALSE", 24)->type, "Film (24 fps)");
    EXPECT_EQ(find_frame_rate("FALSE", 25)->type, "PAL (25 fps)");
    EXPECT_EQ(find_frame_rate("TRUE", 30)->type, "NTSC/HD (29.97 fps)");
    EXPECT_EQ(find_frame_rate("FALSE", 30)->type, "Video/HD (30 fps)");
    EXPECT_EQ(find_frame_rate("FALSE", 50)->type, "HD (50 fps)");
    EXPECT_EQ(find_frame_rate("TRUE", 60)->type, "HD (59.94 fps)");
    EXPECT_EQ(find_frame_rate("FALSE", 60)->type, "HD (60 fps)");
}

TEST(find_frame_rate, knows_no_other_pairs)
{
    EXPECT_EQ(find_frame_rate("FALSE", 48), nullptr);
    EXPECT_EQ(find_frame_rate("TRUE", 25), nullptr);
    EXPECT_EQ(find_frame_rate("True", 24), nullptr); // compared as text
    EXPECT_EQ(find_frame_rate("", 24), nullptr);
    EXPECT_EQ(find_frame_rate("FALSE", 0), nullptr);
}

TEST(find_frame_rate, finds_a_row_by_its_exact_rate)
{
    ASSERT_NE(find_frame_rate(29.97), nullptr);
    EXPECT_EQ(find_frame_rate(29.97)->type, "NTSC/HD (29.97 fps)");
    EXPECT_EQ(find_frame_rate(25)->type, "PAL (25 fps)");
    EXPECT_EQ(find_frame_rate(29.970001), nullptr);
    EXPECT_EQ(find_frame_rate(0), nullptr);
}

TEST(rounded, goes_half_away_from_zero)
{
    EXPECT_EQ(rounded(0.5), 1);
    EXPECT_EQ(rounded(-0.5), -1);
    EXPECT_EQ(rounded(2.5), 3);
    EXPECT_EQ(rounded(0.49999999999999994), 0);
}

TEST(nominal_rate, is_nothing_where_no_rate_can_be)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    for (const double rate : {0.0, 0.49, -25.0, 1e7, endless, -endless, std::nan("")})
        EXPECT_EQ(nominal_rate(rate), std::nullopt) << rate;
    EXPECT_EQ(nominal_rate(0.5), 1);
    EXPECT_EQ(nominal_rate(1'000'000), 1'000'000);
}

} // namespace

} // namespace tallyframe
