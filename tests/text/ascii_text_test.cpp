// SPDX-License-Identifier: MIT
#include "text/ascii_text.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

TEST(to_ascii, leaves_ascii_as_it_is)
{
    EXPECT_EQ(to_ascii(""), "");
    EXPECT_EQ(to_ascii("Reel 7\t\"A\"~"), "Reel 7\t\"A\"~");
    EXPECT_EQ(to_ascii(std::string_view("a\0b", 3)), std::string("a\0b", 3));
}

TEST(to_ascii, takes_accents_off_letters)
{
    EXPECT_EQ(to_ascii("Zoë"), "Zoe");
    EXPECT_EQ(to_ascii("Zoe\u0308"), "Zoe"); // already decomposed
    EXPECT_EQ(to_ascii("Ångström, naïve, Çà"), "Angstrom, naive, Ca");
    EXPECT_EQ(to_ascii("Việt"), "Viet"); // two marks on one letter
}

TEST(to_ascii, writes_other_letters_in_latin_ones)
{
    EXPECT_EQ(to_ascii("Kjøkken"), "Kjokken");
    EXPECT_EQ(to_ascii("Łódź"), "Lodz");
    EXPECT_EQ(to_ascii("Straße"), "Strasse");
    EXPECT_EQ(to_ascii("Москва 7"), "Moskva 7");
    EXPECT_EQ(to_ascii("東京"), "dong jing");
    EXPECT_EQ(to_ascii("“Reel” – 7…"), "\"Reel\" - 7...");
}

TEST(to_ascii, drops_signs_beside_what_can_be_written)
{
    EXPECT_EQ(to_ascii("A\U0001F3AC1"), "A1");
}

TEST(to_ascii, tells_texts_of_signs_alone_apart)
{
    EXPECT_EQ(to_ascii("\U0001F3AC"), "U+1F3AC");
    EXPECT_EQ(to_ascii("\U0001F3AC \U0001F9E8"), "U+1F3AC U+1F9E8");
}

TEST(to_ascii, only_takes_accents_off_texts_beyond_any_name)
{
    EXPECT_EQ(to_ascii("ßé" + std::string(300, 'x')), "e" + std::string(300, 'x'));
}

TEST(to_ascii, survives_bytes_that_are_not_utf_8)
{
    EXPECT_EQ(to_ascii("a\xE9\xFF"
                       "b"),
              "ab");
    EXPECT_EQ(to_ascii("a\xED\xA0\x80"
                       "b"),
              "ab"); // a surrogate
    EXPECT_EQ(to_ascii("cut short \xE6\x9D"), "cut short ");
}

} // namespace

} // namespace tallyframe
