// SPDX-License-Identifier: MIT
#include "timecode/clock_and_seconds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tallyframe {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(to_seconds, divides_by_the_exact_rate)
{
    EXPECT_EQ(to_seconds(50, 25), 2.0);
    EXPECT_EQ(to_seconds(30, 29.97), 30 / 29.97);
    EXPECT_EQ(to_seconds(-1, 24), -1.0 / 24);
    EXPECT_EQ(to_seconds(0, 23.976), 0.0);
}

TEST(to_seconds, gives_nothing_for_nothing)
{
    EXPECT_EQ(to_seconds(std::nullopt, 25), std::nullopt);
    EXPECT_EQ(to_seconds(1, std::nullopt), std::nullopt);
}

TEST(to_seconds, gives_nothing_where_no_time_can_be_told)
{
    for (const double rate : {0.0, 0.4, -25.0, infinity, std::nan("")})
        EXPECT_EQ(to_seconds(1, rate), std::nullopt) << rate;
    EXPECT_EQ(to_seconds(infinity, 25), std::nullopt);
    EXPECT_EQ(to_seconds(std::nan(""), 25), std::nullopt);
    EXPECT_EQ(to_seconds(std::numeric_limits<double>::max(), 0.5), std::nullopt);
}

TEST(to_clock, shows_hours_minutes_and_seconds)
{
    EXPECT_EQ(to_clock(0), "00:00:00");
    EXPECT_EQ(to_clock(3661), "01:01:01");
    EXPECT_EQ(to_clock(86399), "23:59:59");
}

TEST(to_clock, drops_fractions_of_a_second)
{
    EXPECT_EQ(to_clock(59.999), "00:00:59");
    EXPECT_EQ(to_clock(-0.001), "23:59:59");
}

TEST(to_clock, wraps_around_after_a_day)
{
    EXPECT_EQ(to_clock(86400), "00:00:00");
    EXPECT_EQ(to_clock(90061), "01:01:01");
}

TEST(to_clock, shows_the_time_before_midnight_for_negative_seconds)
{
    EXPECT_EQ(to_clock(-1), "23:59:59");
    EXPECT_EQ(to_clock(-86400), "00:00:00");
    EXPECT_EQ(to_clock(-86401), "23:59:59");
}

TEST(to_clock, gives_the_empty_text_for_nothing)
{
    EXPECT_EQ(to_clock(std::nullopt), "");
    EXPECT_EQ(to_clock(to_seconds(std::nullopt, 25)), "");
    EXPECT_EQ(to_clock(infinity), "");
    EXPECT_EQ(to_clock(std::nan("")), "");
}

TEST(to_clock, takes_any_finite_number)
{
    EXPECT_EQ(to_clock(86400e10 + 86400), "00:00:00");
    EXPECT_EQ(to_clock(std::numeric_limits<double>::max()).size(), 8U);
    EXPECT_EQ(to_clock(std::numeric_limits<double>::lowest()).size(), 8U);
}

} // namespace

} // namespace tallyframe
