// SPDX-License-Identifier: MIT
#include "text/trimmed.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

TEST(trimmed, takes_ascii_blanks_and_nul_off_both_ends)
{
    EXPECT_EQ(trimmed(std::string_view("\0 \t\n\v\f\r a b \0", 12)), "a b");
    EXPECT_EQ(trimmed("\u00a0a\u00a0"), "\u00a0a\u00a0"); // a no-break space stays
    EXPECT_EQ(trimmed(" \n "), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(without_leading_blanks, takes_ascii_blanks_off_the_front)
{
    EXPECT_EQ(without_leading_blanks(" \t\n\v\f\r a "), "a ");
    EXPECT_EQ(without_leading_blanks(" \n"), "");
    EXPECT_EQ(without_leading_blanks(std::string_view("\0a", 2)), std::string_view("\0a", 2));
    EXPECT_EQ(without_leading_blanks("\u00a0a"), "\u00a0a");
}

} // namespace
} // namespace tallyframe
