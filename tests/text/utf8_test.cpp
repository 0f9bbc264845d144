// SPDX-License-Identifier: MIT
#include "text/utf8.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

void expect_character(std::string_view text, std::size_t length, std::optional<char32_t> code_point)
{
    const utf8_character first = first_character(text);
    EXPECT_EQ(first.bytes, text.substr(0, length));
    EXPECT_EQ(first.code_point, code_point) << text;
}

TEST(utf8, reads_the_first_character_of_each_length)
{
    expect_character("ab", 1, U'a');
    expect_character("\u00e9b", 2, U'\u00e9');
    expect_character("\u6771b", 3, U'\u6771');
    expect_character("\U0001F3ACb", 4, U'\U0001F3AC');
    expect_character("\U0010FFFF", 4, U'\U0010FFFF');
    expect_character(std::string_view("\0b", 2), 1, U'\0');
}

TEST(utf8, takes_one_byte_where_no_character_begins)
{
    expect_character("\x80z", 1, std::nullopt);
    expect_character("\xe9z", 1, std::nullopt);
    expect_character("\xf5\x80\x80\x80", 1, std::nullopt);
    expect_character("\xff", 1, std::nullopt);
    expect_character("\xe6\x9d", 1, std::nullopt); // ends too early
}

TEST(utf8, knows_no_overlong_forms_surrogates_or_what_lies_beyond_unicode)
{
    expect_character("\xc0\xaf", 1, std::nullopt);
    expect_character("\xe0\x80\xaf", 1, std::nullopt);
    expect_character("\xf0\x80\x80\xaf", 1, std::nullopt);
    expect_character("\xed\xa0\x80", 1, std::nullopt);
    expect_character("\xf4\x90\x80\x80", 1, std::nullopt);
}

TEST(declared_length, goes_by_the_first_byte)
{
    EXPECT_EQ(declared_length("abcd"), 1U);
    EXPECT_EQ(declared_length("\x80zzz"), 1U);
    EXPECT_EQ(declared_length("\xBFzzz"), 1U);
    EXPECT_EQ(declared_length("\xC0zzz"), 2U);
    EXPECT_EQ(declared_length("\xDFzzz"), 2U);
    EXPECT_EQ(declared_length("\xE0zzz"), 3U);
    EXPECT_EQ(declared_length("\xEFzzz"), 3U);
    EXPECT_EQ(declared_length("\xF0zzz"), 4U);
    EXPECT_EQ(declared_length("\xF7zzz"), 4U);
    EXPECT_EQ(declared_length("\xF8zzz"), 1U);
    EXPECT_EQ(declared_length("\xFFzzz"), 1U);
    EXPECT_EQ(declared_length("\xF0z"), 2U); // as far as the text goes
}

TEST(text_length, counts_characters_and_not_bytes)
{
    EXPECT_EQ(text_length(""), 0U);
    EXPECT_EQ(text_length("Clip"), 4U);
    EXPECT_EQ(text_length("Zo\u00eb"), 3U);
    EXPECT_EQ(text_length("\u65e5\u672c\u8a9e"), 3U);
    EXPECT_EQ(text_length("\U0001F3AC"), 1U);
}

TEST(is_utf8, is_a_text_of_whole_characters)
{
    EXPECT_TRUE(is_utf8(""));
    EXPECT_TRUE(is_utf8("a\u00e9\u6771\U0001F3AC"));
    EXPECT_FALSE(is_utf8("caf\xe9"));
    EXPECT_FALSE(is_utf8("a\xed\xa0\x80"
                         "b"));
    EXPECT_FALSE(is_utf8("cut short \xe6\x9d"));
}

} // namespace
} // namespace tallyframe
