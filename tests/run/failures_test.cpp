// SPDX-License-Identifier: MIT
#include "run/failures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

void refuse()
{
    throw load_error(load_fault::not_xmeml);
}

TEST(failure, carries_its_message_and_the_place_where_it_was_raised)
{
    try {
        refuse();
        FAIL() << "nothing was thrown";
    } catch (const failure& error) {
        EXPECT_STREQ(error.what(), "not xmeml");
        EXPECT_THAT(error.location_trace(), testing::MatchesRegex("failures_test\\.cpp:1[0-9] in refuse"));
    }
}

TEST(load_error, says_the_two_that_hosts_tell_apart_in_these_words_exactly)
{
    EXPECT_STREQ(load_error(load_fault::fatal_error).what(), "fatal error");
    EXPECT_STREQ(load_error(load_fault::not_xmeml).what(), "not xmeml");
    EXPECT_EQ(load_error(load_fault::fatal_error).fault(), load_fault::fatal_error);
}

TEST(load_error, with_a_sentence_is_a_refusal_unless_it_says_otherwise)
{
    EXPECT_STREQ(load_error("It is too long.").what(), "It is too long.");
    EXPECT_EQ(load_error("It is too long.").fault(), load_fault::refused);
    EXPECT_EQ(load_error("not xmeml").fault(), load_fault::refused) << "a kind is no text";
    EXPECT_EQ(load_error("It has no name.", load_fault::unexpected).fault(), load_fault::unexpected);
}

} // namespace

} // namespace tallyframe
