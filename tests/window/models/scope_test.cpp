// SPDX-License-Identifier: MIT
#include "window/models/scope.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(scope, follows_the_tag_of_the_chosen_button)
{
    EXPECT_EQ(scope_for_tag(0, report_scope::audio), report_scope::video_audio);
    EXPECT_EQ(scope_for_tag(1, report_scope::audio), report_scope::video);
    EXPECT_EQ(scope_for_tag(2, report_scope::video), report_scope::audio);
}

TEST(scope, stays_as_it_was_for_an_unknown_tag)
{
    EXPECT_EQ(scope_for_tag(3, report_scope::audio), report_scope::audio);
    EXPECT_EQ(scope_for_tag(-1, report_scope::audio), report_scope::audio);
}

TEST(scope, has_the_tag_that_leads_to_it)
{
    for (const int tag : {0, 1, 2})
        EXPECT_EQ(tag_for_scope(scope_for_tag(tag, {})), tag);
}

} // namespace tallyframe::window
