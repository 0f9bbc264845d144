// SPDX-License-Identifier: MIT
#include "text/visible_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyframe {
namespace {

TEST(visible_text, stays_as_it_is_when_all_of_it_can_be_seen)
{
    EXPECT_EQ(visible_text("Reel 1, Kjøkken – 東京 <1>"), "Reel 1, Kjøkken – 東京 <1>");
    EXPECT_EQ(visible_text(""), "");
}

TEST(visible_text, shows_what_would_forge_another_line_or_move_the_cursor)
{
    EXPECT_EQ(visible_text("Day 1\r\nWrote x.xls"), "Day 1<U+000D><U+000A>Wrote x.xls");
    EXPECT_EQ(visible_text("\x1b[2J\tend\x7f"), "<U+001B>[2J<U+0009>end<U+007F>");
    EXPECT_EQ(visible_text("\u009b31m"), "<U+009B>31m");
    EXPECT_EQ(visible_text("a\u2028b\u2029c"), "a<U+2028>b<U+2029>c");
    EXPECT_EQ(visible_text(std::string_view("a\0b", 3)), "a<U+0000>b");
}

TEST(visible_text, shows_what_turns_the_line_round)
{
    EXPECT_EQ(visible_text("cut\u202Elmx.xls"), "cut<U+202E>lmx.xls");
    EXPECT_EQ(visible_text("\u2066x\u2069\u200F"), "<U+2066>x<U+2069><U+200F>");
}

TEST(visible_text, shows_each_byte_that_is_not_utf_8)
{
    EXPECT_EQ(visible_text("Jos\xe9"), "Jos<E9>");
    EXPECT_EQ(visible_text("a\x9b\xff z\xe6\x9d"), "a<9B><FF> z<E6><9D>");
}

TEST(visible_name, stands_in_quotes)
{
    EXPECT_EQ(visible_name("cut\n.xml"), "\"cut<U+000A>.xml\"");
}

TEST(in_quotes, shortens_a_long_name_and_makes_it_visible)
{
    EXPECT_EQ(in_quotes("Reel 1"), "\"Reel 1\"");
    EXPECT_EQ(in_quotes("Reel\n\u202E1"), "\"Reel<U+000A><U+202E>1\"");
    EXPECT_EQ(in_quotes(std::string(101, 'x')), '"' + std::string(100, 'x') + "…\"");
}

} // namespace
} // namespace tallyframe
