// SPDX-License-Identifier: MIT
#include "writers/text_colors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

TEST(text_colors, are_names_and_hash_codes)
{
    EXPECT_THAT(color_names(), testing::Contains("blue"));
    for (const std::string_view name : color_names())
        EXPECT_TRUE(color_value(name)) << name;
    EXPECT_EQ(color_value("#FF8800"), 0xFF8800U);
    EXPECT_EQ(color_value("octarine"), std::nullopt);
    EXPECT_EQ(color_value(""), std::nullopt);
}

} // namespace

} // namespace tallyframe
