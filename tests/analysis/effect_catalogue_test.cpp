// SPDX-License-Identifier: MIT
#include "analysis/effect_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tallyframe {

namespace {

TEST(effect_catalogue, holds_all_built_in_filters)
{
    const auto effectids = apple_filter_effectids();
    const auto begins_with = [&](std::string_view start) {
        return [start](const std::string& id) { return id.starts_with(start); };
    };
    EXPECT_EQ(std::count_if(effectids.begin(), effectids.end(), begins_with("FxPlugWrapper:")), 106);
    EXPECT_EQ(std::count_if(effectids.begin(), effectids.end(), begins_with("{61756678, ")), 34);
    EXPECT_EQ(effectids.size(), 106U + 85U + 34U) << "88 names, three of which are used twice";
    for (const std::string& effectid : effectids)
        EXPECT_TRUE(is_apple_filter(effectid)) << effectid;
}

TEST(effect_catalogue, holds_all_built_in_transitions)
{
    const auto transitions = apple_transitions();
    EXPECT_EQ(transitions.size(), 63U);
    for (const std::string& transition : transitions)
        EXPECT_TRUE(is_apple_transition(transition)) << transition;
}

TEST(effect_catalogue, knows_one_of_each_kind_of_filter)
{
    EXPECT_TRUE(is_apple_filter("FxPlugWrapper:6C0F1215_6017_44F0_82C8_1B265FDC16CB"));
    EXPECT_TRUE(is_apple_filter("FxPlugWrapper:736B5FE6_AA7F_4584_9669_B01425D8286E"));
    EXPECT_TRUE(is_apple_filter("Gaussian Blur"));
    EXPECT_TRUE(is_apple_filter("RGB Balance"));
    EXPECT_TRUE(is_apple_filter("Viewfinder"));
    EXPECT_TRUE(is_apple_filter("{61756678, 62706173, 6170706c}"));
    EXPECT_TRUE(is_apple_filter("{61756678, 56447070, 4b657947}"));
}

TEST(effect_catalogue, compares_every_letter)
{
    EXPECT_FALSE(is_apple_filter("FxPlugWrapper:6c0f1215_6017_44f0_82c8_1b265fdc16cb"));
    EXPECT_FALSE(is_apple_filter("6C0F1215_6017_44F0_82C8_1B265FDC16CB"));
    EXPECT_FALSE(is_apple_filter("FxPlugWrapper:Gaussian Blur"));
    EXPECT_FALSE(is_apple_filter("gaussian blur"));
    EXPECT_FALSE(is_apple_filter(" Blur"));
    EXPECT_FALSE(is_apple_filter(""));
}

TEST(effect_catalogue, wants_the_category_of_a_transition_that_has_one)
{
    EXPECT_TRUE(is_apple_transition("Dissolve ▸ Cross Dissolve"));
    EXPECT_FALSE(is_apple_transition("Cross Dissolve"));
    EXPECT_TRUE(is_apple_transition("Wipe"));
    EXPECT_TRUE(is_apple_transition("Wipe ▸ Edge Wipe"));
    EXPECT_TRUE(is_apple_transition("Cross Fade ( 0dB)"));
    EXPECT_FALSE(is_apple_transition("Cross Fade (0dB)"));
    EXPECT_FALSE(is_apple_transition(""));
}

} // namespace

} // namespace tallyframe
