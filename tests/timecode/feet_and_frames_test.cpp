// SPDX-License-Identifier: MIT
#include "timecode/feet_and_frames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tallyframe {

namespace {

TEST(to_feet_and_frames, counts_sixteen_frames_a_foot)
{
    EXPECT_EQ(to_feet_and_frames(1000), "0062+08");
    EXPECT_EQ(to_feet_and_frames(15), "0000+15");
    EXPECT_EQ(to_feet_and_frames(16), "0001+00");
    EXPECT_EQ(to_feet_and_frames(0), "0000+00");
    EXPECT_EQ(to_feet_and_frames(16 * 12345), "12345+00");
}

TEST(to_feet_and_frames, floors_negative_counts_with_the_sign_inside_the_padding)
{
    EXPECT_EQ(to_feet_and_frames(-1), "00-1+15");
    EXPECT_EQ(to_feet_and_frames(-16), "00-1+00");
    EXPECT_EQ(to_feet_and_frames(-17), "00-2+15");
    EXPECT_EQ(to_feet_and_frames(-160'000), "-10000+00");
}

TEST(to_feet_and_frames, cuts_fractions_towards_zero)
{
    EXPECT_EQ(to_feet_and_frames(15.9), "0000+15");
    EXPECT_EQ(to_feet_and_frames(-0.9), "0000+00");
}

TEST(to_feet_and_frames, gives_the_empty_text_for_nothing)
{
    EXPECT_EQ(to_feet_and_frames(std::nullopt), "");
    EXPECT_EQ(to_feet_and_frames(std::nan("")), "");
    EXPECT_EQ(to_feet_and_frames(std::numeric_limits<double>::infinity()), "");
}

TEST(to_feet_and_frames, has_no_text_for_enormous_counts)
{
    EXPECT_EQ(to_feet_and_frames(999'999'999'999'999), "62499999999999+15");
    EXPECT_EQ(to_feet_and_frames(1e15), "");
    EXPECT_EQ(to_feet_and_frames(-1e300), "");
}

} // namespace

} // namespace tallyframe
