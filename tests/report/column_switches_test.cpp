// SPDX-License-Identifier: MIT
#include "report/column_switches.h"
#include "run/failures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tallyframe {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> off_titles(const column_switches& switches)
{
    std::vector<std::string> titles;
    for (const column_switch_entry& entry : all_column_switches) {
        if (!switches.is_on(entry.which))
            titles.emplace_back(entry.title);
    }
    return titles;
}

std::vector<std::string> on_titles(const column_switches& switches)
{
    std::vector<std::string> titles;
    for (const column_switch_entry& entry : all_column_switches) {
        if (switches.is_on(entry.which))
            titles.emplace_back(entry.title);
    }
    return titles;
}

report_options with_layout(std::vector<column_layout::checkbox> checkboxes)
{
    report_options options;
    options.layouts_array = {{"Producer", std::move(checkboxes)}};
    options.layout = "Producer";
    return options;
}

TEST(column_switches, stand_in_the_order_of_their_enumeration)
{
    for (std::size_t i = 0; i < all_column_switches.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(all_column_switches[i].which), i);
}

TEST(chosen_columns, are_all_but_row_numbers_sound_roll_and_comments_by_default)
{
    EXPECT_THAT(off_titles(chosen_columns({}, true)),
                ElementsAre("Row Numbers", "Sound Roll Name", "Comments"));
}

TEST(chosen_columns, leave_out_the_timeline_for_bins)
{
    EXPECT_THAT(off_titles(chosen_columns({}, false)),
                ElementsAre("Row Numbers", "Enabled", "Sequence In", "Sequence Out", "Clip Duration",
                            "Sound Roll Name", "Comments"));
}

TEST(chosen_columns, leave_out_the_timeline_for_bins_whatever_the_layout_says)
{
    const auto options = with_layout(
        {{"Enabled", 1}, {"Sequence In", 1}, {"Sequence Out", 1}, {"Clip Duration", 1}, {"Scene", 1}});
    EXPECT_THAT(on_titles(chosen_columns(options, false)), ElementsAre("Scene"));
}

TEST(chosen_columns, are_off_when_a_layout_does_not_list_them)
{
    EXPECT_THAT(on_titles(chosen_columns(with_layout({{"Enabled", 1}}), true)), ElementsAre("Enabled"));
}

TEST(chosen_columns, count_a_mixed_state_as_on)
{
    EXPECT_THAT(on_titles(chosen_columns(with_layout({{"Track", -1}, {"Scene", 0}}), true)),
                ElementsAre("Track"));
}

TEST(chosen_columns, take_the_first_of_two_states_and_the_first_of_two_layouts)
{
    auto options = with_layout({{"Track", 0}, {"Track", 1}});
    options.layouts_array.push_back({"Producer", {{"Scene", 1}}});
    EXPECT_THAT(on_titles(chosen_columns(options, true)), IsEmpty());
}

TEST(chosen_columns, refuse_a_layout_that_is_not_there)
{
    auto options = with_layout({});
    options.layout = "Archive";
    try {
        chosen_columns(options, true);
        FAIL() << "nothing thrown";
    } catch (const failure& error) {
        EXPECT_STREQ(error.what(), "There is no column layout named \"Archive\". Choose another layout.");
    }
}

} // namespace
} // namespace tallyframe
