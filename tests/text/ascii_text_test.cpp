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

TEST(to_ascii, drops_what_has_no_ascii_base)
{
    EXPECT_EQ(to_ascii("Øre 東京 ✓ A\U0001F3AC1"), "re   A1");
    EXPECT_EQ(to_ascii("東京"), "");
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
