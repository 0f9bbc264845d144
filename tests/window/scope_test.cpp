// SPDX-License-Identifier: MIT
#include "window/scope.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(scope, follows_the_tag_of_the_chosen_button)
{
    EXPECT_EQ(scope_for_tag(0, {}), (scope{"video + audio", true}));
    EXPECT_EQ(scope_for_tag(1, {}), (scope{"video", false}));
    EXPECT_EQ(scope_for_tag(2, {}), (scope{"audio", false}));
}

TEST(scope, stays_as_it_was_for_an_unknown_tag)
{
    const scope audio{"audio", false};
    EXPECT_EQ(scope_for_tag(3, audio), audio);
    EXPECT_EQ(scope_for_tag(-1, audio), audio);
}

} // namespace tallyframe::window
