// SPDX-License-Identifier: MIT
#include "document/track_checkboxes.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using states = std::vector<int>;

TEST(track_checkboxes, start_ticked)
{
    track_checkboxes boxes;
    boxes.clone_and_clear();
    boxes.restore(0);
    boxes.restore(1);
    EXPECT_EQ(boxes.current, (states{1, 1}));
    EXPECT_TRUE(boxes.is_ticked(1));
    EXPECT_FALSE(boxes.is_ticked(2));
}

TEST(track_checkboxes, keep_the_users_ticks_by_position)
{
    track_checkboxes boxes{states{1, 0, 1}, {}};
    boxes.clone_and_clear();
    EXPECT_EQ(boxes.current, states{});
    for (std::size_t position = 0; position < 4; ++position)
        boxes.restore(position);
    EXPECT_EQ(boxes.current, (states{1, 0, 1, 1})); // the fourth track is new
}

TEST(track_checkboxes, keep_an_earlier_copy_when_cleared_twice)
{
    track_checkboxes boxes{states{0}, {}};
    boxes.clone_and_clear();
    boxes.clone_and_clear();
    EXPECT_EQ(boxes.clone, states{0});
    EXPECT_EQ(boxes.current, states{});
}

TEST(track_checkboxes, have_an_empty_copy_before_there_were_any)
{
    track_checkboxes boxes{std::nullopt, {0, 0}};
    boxes.clone_and_clear();
    EXPECT_EQ(boxes.clone, states{});
    EXPECT_EQ(boxes.current, states{});
}

TEST(track_checkboxes, save_a_copy_of_their_own)
{
    track_checkboxes boxes{states{0, 1}, {}};
    boxes.clone_and_clear();
    boxes.restore(0);
    boxes.current->at(0) = 1;
    EXPECT_EQ(boxes.clone, (states{0, 1}));
}

TEST(track_checkboxes, restore_one_position_over_and_over)
{
    track_checkboxes boxes{states{0, 1}, {}};
    boxes.clone_and_clear();
    boxes.restore(0); // every bin clip counts as the first track
    boxes.restore(0);
    EXPECT_EQ(boxes.current, states{0});
    EXPECT_FALSE(boxes.is_ticked(0));
}

TEST(track_checkboxes, tick_nothing_without_a_list)
{
    track_checkboxes boxes;
    EXPECT_FALSE(boxes.is_ticked(0));
    boxes.restore(1);
    EXPECT_EQ(boxes.current, (states{1, 1}));
}

} // namespace

} // namespace tallyframe
