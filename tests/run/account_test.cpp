// SPDX-License-Identifier: MIT
#include "run/account.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(account, of_a_run_that_lost_nothing_says_nothing)
{
    const account lost;
    EXPECT_TRUE(lost.is_empty());
    EXPECT_THAT(sentences_of(lost), IsEmpty());
}

TEST(account, tells_each_kind_in_its_order_with_the_first_examples)
{
    account lost;
    lost.add(loss_kind::missing_media, 1, "/Volumes/Rushes/A001.mov");
    for (const char* line : {"14", "15", "90", "91", "92", "93"})
        lost.add(loss_kind::mended_lines, 1, line);
    lost.add(loss_kind::dropped_characters, 12);
    EXPECT_FALSE(lost.is_empty());
    EXPECT_THAT(
        sentences_of(lost),
        ElementsAre("6 lines of the document held bad characters and were mended (14, 15, 90, 91, 92, …).",
                    "12 bad characters were dropped from the document.",
                    "1 media file was not found (/Volumes/Rushes/A001.mov)."));
}

TEST(account, tells_rows_with_a_placeholder_from_rows_with_nothing)
{
    account lost;
    lost.add(loss_kind::missing_pictures, 3, "Interview, row 2");
    lost.add(loss_kind::unreadable_pictures, 1, "Harbour, row 7");
    lost.add(loss_kind::absent_pictures, 1);
    lost.add(loss_kind::absent_pictures, 1);
    EXPECT_THAT(
        sentences_of(lost),
        ElementsAre("3 rows show a placeholder, because their media was not found (Interview, row 2, …).",
                    "1 row shows a placeholder, because its media could not be read (Harbour, row 7).",
                    "2 rows are without their pictures, which could not be made."));
}

TEST(account, shows_names_that_would_forge_a_line)
{
    account lost;
    lost.add(loss_kind::missing_media, 1, "a\nWrote b.xls");
    EXPECT_THAT(sentences_of(lost), ElementsAre("1 media file was not found (a<U+000A>Wrote b.xls)."));
}

TEST(account, adds_up_over_loading_and_saving)
{
    account whole;
    whole.add(loss_kind::cut_texts, 2, "Filters, row 3");
    account saving;
    saving.add(loss_kind::cut_texts, 1, "All Reels, row 2");
    whole += saving;
    EXPECT_EQ(whole.of(loss_kind::cut_texts).count, 3U);
    EXPECT_THAT(whole.of(loss_kind::cut_texts).examples, ElementsAre("Filters, row 3", "All Reels, row 2"));
}

} // namespace
} // namespace tallyframe
