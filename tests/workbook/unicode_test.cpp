// SPDX-License-Identifier: MIT
#include "workbook/records/unicode.h"

#include <gtest/gtest.h>

#include <string>

TEST(to_utf16, reads_characters_of_all_sizes)
{
    EXPECT_EQ(xls::to_utf16(""), u"");
    EXPECT_EQ(xls::to_utf16("a\u007f\u0080\u07ff\u0800\uffff"), u"a\u007f\u0080\u07ff\u0800\uffff");
    EXPECT_EQ(xls::to_utf16("\U00010000\U0010ffff"), u"\U00010000\U0010ffff");
    EXPECT_EQ(xls::to_utf16(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
}

TEST(to_utf16, replaces_each_broken_part_once)
{
    const std::u16string broken = u"\ufffd";
    EXPECT_EQ(xls::to_utf16("\x80"), broken); // goes on, but nothing started
    EXPECT_EQ(xls::to_utf16("\xC0\xAF"), broken + broken); // a longer form than needed
    EXPECT_EQ(xls::to_utf16("\xE0\x9F\xBF"), broken + broken + broken);
    EXPECT_EQ(xls::to_utf16("\xED\xA0\x80"), broken + broken + broken); // a surrogate
    EXPECT_EQ(xls::to_utf16("\xF4\x90\x80\x80"), broken + broken + broken + broken); // over U+10FFFF
    EXPECT_EQ(xls::to_utf16("\xF0\x9F\x8E"), broken); // cut off
    EXPECT_EQ(xls::to_utf16("\xF0\x9F\x8E!"), broken + u"!");
    EXPECT_EQ(xls::to_utf16("\xE6\x97\xE6\x97\xA5"), broken + u"\u65e5");
}

TEST(valid_utf8, repairs_as_to_utf16_does)
{
    for (const std::string text :
         {"abc", "Zo\u00eb \u65e5 \U0001F3AC", "\xC0\xAF", "\xF0\x9F\x8E!", "\xED\xA0\x80x"})
        EXPECT_EQ(xls::to_utf16(xls::valid_utf8(text, 100).utf8), xls::to_utf16(text));
}

TEST(valid_utf8, cuts_in_utf16_units)
{
    EXPECT_EQ(xls::valid_utf8("\u65e5\u672c\u8a9e", 2).utf8, "\u65e5\u672c");
    EXPECT_TRUE(xls::valid_utf8("\u65e5\u672c\u8a9e", 2).cut);
    EXPECT_FALSE(xls::valid_utf8("\u65e5\u672c", 2).cut);
    EXPECT_EQ(xls::valid_utf8("a\U0001F3AC", 2).utf8, "a");
    EXPECT_EQ(xls::valid_utf8("a\U0001F3AC", 3).utf8, "a\U0001F3AC");
}

TEST(is_ascii, looks_at_each_byte)
{
    for (std::size_t size = 0; size < 20; ++size) {
        EXPECT_TRUE(xls::is_ascii(std::string(size, 'x')));
        for (std::size_t i = 0; i < size; ++i) {
            std::string text(size, 'x');
            text[i] = '\xC3';
            EXPECT_FALSE(xls::is_ascii(text)) << size << ' ' << i;
        }
    }
}
