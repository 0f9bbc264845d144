// SPDX-License-Identifier: MIT
#include "platform/failures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

void refuse()
{
    throw load_error(not_xmeml_message);
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

TEST(failure, keeps_the_two_messages_that_hosts_tell_apart)
{
    EXPECT_STREQ(fatal_error_message, "fatal error");
    EXPECT_STREQ(not_xmeml_message, "not xmeml");
}

} // namespace

} // namespace tallyframe
