// SPDX-License-Identifier: MIT
#include "run/badge_text.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

TEST(badge_text, shows_the_whole_percentage_cut)
{
    EXPECT_EQ(badge_text(0, 3), "0%");
    EXPECT_EQ(badge_text(1, 3), "33%");
    EXPECT_EQ(badge_text(2, 3), "66%");
    EXPECT_EQ(badge_text(3, 3), "100%");
    EXPECT_EQ(badge_text(999, 1000), "99%");
}

TEST(badge_text, divides_before_it_multiplies)
{
    EXPECT_EQ(badge_text(29, 100), "28%"); // 0.29 * 100.0 is just below 29
}

TEST(badge_text, counts_an_empty_bar_as_done)
{
    EXPECT_EQ(badge_text(0, 0), "100%");
    EXPECT_EQ(badge_text(1, -1), "100%");
}

TEST(badge_text, may_pass_the_end)
{
    EXPECT_EQ(badge_text(3, 2), "150%");
}

} // namespace

} // namespace tallyframe
