// SPDX-License-Identifier: MIT
#include "document/text_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tallyframe {

namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / 4;

TEST(leading_integer, reads_the_digits_at_the_front)
{
    EXPECT_EQ(leading_integer("25"), 25);
    EXPECT_EQ(leading_integer("111.0"), 111);
    EXPECT_EQ(leading_integer("-1"), -1);
    EXPECT_EQ(leading_integer("+7"), 7);
    EXPECT_EQ(leading_integer(" \t\r\n12 34"), 12);
    EXPECT_EQ(leading_integer("007x"), 7);
}

TEST(leading_integer, counts_text_without_a_number_as_zero)
{
    for (const char* text : {"", " ", "-", "+", "x1", ".5", "- 1", "--1"})
        EXPECT_EQ(leading_integer(text), 0) << text;
}

TEST(leading_integer, stops_at_the_end_of_its_range)
{
    EXPECT_EQ(leading_integer(std::to_string(largest)), largest);
    EXPECT_EQ(leading_integer(std::to_string(largest + 1)), largest);
    EXPECT_EQ(leading_integer("-" + std::string(10'000, '9')), -largest);
    EXPECT_EQ(leading_integer(std::string(10'000, '0') + "5"), 5);
}

TEST(leading_number, reads_the_decimal_number_at_the_front)
{
    EXPECT_EQ(leading_number("120.7"), 120.7);
    EXPECT_EQ(leading_number(" -1e3 frames"), -1000);
    EXPECT_EQ(leading_number("+.5"), 0.5);
    EXPECT_EQ(leading_number("5."), 5);
    EXPECT_EQ(leading_number("2e"), 2);
    EXPECT_EQ(leading_number("0x10"), 0);
    EXPECT_EQ(leading_number("23,976"), 23);
}

TEST(leading_number, counts_text_without_a_number_as_zero)
{
    for (const char* text : {"", "-", ".", "-.", "inf", "nan", "-infinity", "e5", "- 1"})
        EXPECT_EQ(leading_number(text), 0) << text;
}

TEST(leading_number, is_always_finite)
{
    constexpr double limit = std::numeric_limits<double>::max();
    EXPECT_EQ(leading_number("1e999"), limit);
    EXPECT_EQ(leading_number("-1e999"), -limit);
    EXPECT_EQ(leading_number(std::string(400, '9')), limit);
    EXPECT_EQ(leading_number(std::string(400, '9') + ".5e+1"), limit);
    EXPECT_EQ(leading_number("1e-999"), 0);
    EXPECT_EQ(leading_number("0." + std::string(400, '0') + "1"), 0);
}

TEST(truncated_number, cuts_towards_zero)
{
    EXPECT_EQ(truncated_number("29.97"), 29);
    EXPECT_EQ(truncated_number("-29.97"), -29);
    EXPECT_EQ(truncated_number("1e999"), largest);
    EXPECT_EQ(truncated_number("-1e999"), -largest);
}

TEST(trimmed, takes_ascii_blanks_and_nul_off_both_ends)
{
    EXPECT_EQ(trimmed(std::string_view("\0 \t\n\v\f\r a b \0", 12)), "a b");
    EXPECT_EQ(trimmed("\u00a0a\u00a0"), "\u00a0a\u00a0"); // a no-break space stays
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(upper_cased, changes_ascii_letters_only)
{
    EXPECT_EQ(upper_cased("True"), "TRUE");
    EXPECT_EQ(upper_cased("zoë1"), "ZOë1");
    EXPECT_EQ(upper_cased("`az{"), "`AZ{");
}

TEST(with_quotes_escaped, replaces_every_double_quote)
{
    EXPECT_EQ(with_quotes_escaped("plain"), "plain");
    EXPECT_EQ(with_quotes_escaped("\"a\"\"b\""), "&quot;a&quot;&quot;b&quot;");
    EXPECT_EQ(with_quotes_escaped(""), "");
}

TEST(shortened, cuts_between_characters)
{
    EXPECT_EQ(shortened("", 3), "");
    EXPECT_EQ(shortened("abc", 3), "abc");
    EXPECT_EQ(shortened("abcd", 3), "abc…");
    EXPECT_EQ(shortened("a日本", 3), "a…");
    EXPECT_EQ(shortened("日本", 3), "日…");
    EXPECT_EQ(shortened("日本", 2), "…");
}

TEST(in_quotes, shortens_a_long_name)
{
    EXPECT_EQ(in_quotes("Reel 1"), "\"Reel 1\"");
    EXPECT_EQ(in_quotes(std::string(101, 'x')), '"' + std::string(100, 'x') + "…\"");
}

} // namespace

} // namespace tallyframe
