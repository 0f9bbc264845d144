// SPDX-License-Identifier: MIT
#include "window/desktop/badge.h"

#include <gtest/gtest.h>

namespace tallyframe::window {

TEST(badge, is_a_share_of_one_that_is_visible_while_a_run_goes_on)
{
    EXPECT_EQ(launcher_entry_properties("25%"),
              (QVariantMap{{"progress", 0.25}, {"progress-visible", true}}));
    EXPECT_EQ(launcher_entry_properties("100%"),
              (QVariantMap{{"progress", 1.0}, {"progress-visible", true}}));
    EXPECT_EQ(launcher_entry_properties(""), (QVariantMap{{"progress", 0.0}, {"progress-visible", false}}));
}

} // namespace tallyframe::window
