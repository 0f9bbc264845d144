// SPDX-License-Identifier: MIT
#include "text/shortened.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

TEST(shortened, cuts_between_characters)
{
    EXPECT_EQ(shortened("", 3), "");
    EXPECT_EQ(shortened("abc", 3), "abc");
    EXPECT_EQ(shortened("abcd", 3), "abc…");
    EXPECT_EQ(shortened("a日本", 3), "a…");
    EXPECT_EQ(shortened("日本", 3), "日…");
    EXPECT_EQ(shortened("日本", 2), "…");
}

TEST(front_in_bytes, holds_whole_characters)
{
    EXPECT_EQ(front_in_bytes("abc", 3), "abc");
    EXPECT_EQ(front_in_bytes("abcd", 3), "abc");
    EXPECT_EQ(front_in_bytes("a日本", 4), "a日");
    EXPECT_EQ(front_in_bytes("a日本", 3), "a");
    EXPECT_EQ(front_in_bytes("日", 2), "");
}

TEST(front_in_utf16_units, counts_two_for_what_utf_16_writes_as_a_pair)
{
    EXPECT_EQ(front_in_utf16_units("abc", 3), "abc");
    EXPECT_EQ(front_in_utf16_units("abcd", 3), "abc");
    EXPECT_EQ(front_in_utf16_units("aé日本", 3), "aé日");
    EXPECT_EQ(front_in_utf16_units("a\U0001F3AC\U0001F3AC", 3), "a\U0001F3AC");
    EXPECT_EQ(front_in_utf16_units("a\U0001F3AC\U0001F3AC", 4), "a\U0001F3AC");
    EXPECT_EQ(front_in_utf16_units("\U0001F3AC", 1), "");
    EXPECT_EQ(front_in_utf16_units("", 0), "");
}

} // namespace
} // namespace tallyframe
