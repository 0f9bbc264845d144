// SPDX-License-Identifier: MIT
#include "text/leading_numbers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace tallyframe {
namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / 4;

TEST(leading_digits, are_those_at_the_front_whatever_their_number)
{
    EXPECT_EQ(leading_digits_of(" 0012 34").digits, "12");
    EXPECT_EQ(leading_digits_of("000").digits, "");
    EXPECT_EQ(leading_digits_of("x1").digits, "");
    EXPECT_EQ(leading_digits_of("+7").digits, "7");
    EXPECT_FALSE(leading_digits_of("+7").is_negative);
    EXPECT_TRUE(leading_digits_of("-07").is_negative);
    const std::string long_number(10'000, '9');
    EXPECT_EQ(leading_digits_of(long_number).digits, long_number);
}

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

} // namespace
} // namespace tallyframe
