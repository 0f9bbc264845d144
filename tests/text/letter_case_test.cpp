// SPDX-License-Identifier: MIT
#include "text/letter_case.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

TEST(upper_cased, changes_ascii_letters_only)
{
    EXPECT_EQ(upper_cased("True"), "TRUE");
    EXPECT_EQ(upper_cased("zoë1"), "ZOë1");
    EXPECT_EQ(upper_cased("`az{"), "`AZ{");
}

TEST(case_folded, is_the_same_for_both_cases_of_every_alphabet)
{
    EXPECT_EQ(case_folded("REEL Ångström ЯΣ"), case_folded("reel åNGSTRÖM яσ"));
    EXPECT_EQ(case_folded("STRASSE"), case_folded("Straße"));
    EXPECT_NE(case_folded("e"), case_folded("é"));
    EXPECT_EQ(case_folded("Day 1"), "day 1");
    EXPECT_EQ(case_folded(""), "");
}

} // namespace
} // namespace tallyframe
