// SPDX-License-Identifier: MIT
#include "report/shared_rows.h"
#include "support/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;

const clip_record left = test::clip_of_file("/song.wav", "A1", 0, 49);

TEST(shared_row_on_clips_sheet, joins_the_two_channels_of_a_stereo_clip)
{
    EXPECT_TRUE(shares_row_on_clips_sheet(left, test::clip_of_file("/song.wav", "A2", 0, 49)));
}

TEST(shared_row_on_clips_sheet, asks_for_the_path_and_not_the_name)
{
    auto renamed = test::clip_of_file("/song.wav", "A2", 0, 49);
    renamed.name = "Other";
    EXPECT_TRUE(shares_row_on_clips_sheet(left, renamed));
    EXPECT_FALSE(shares_row_on_clips_sheet(left, test::clip_of_file("/other.wav", "A2", 0, 49)));
}

TEST(shared_row_on_clips_sheet, needs_the_same_place_on_the_timeline)
{
    EXPECT_FALSE(shares_row_on_clips_sheet(left, test::clip_of_file("/song.wav", "A2", 1, 49)));
    EXPECT_FALSE(shares_row_on_clips_sheet(left, test::clip_of_file("/song.wav", "A2", 0, 50)));
}

TEST(shared_row_on_clips_sheet, never_joins_video)
{
    const auto video = test::clip_of_file("/song.wav", "V1", 0, 49);
    EXPECT_FALSE(shares_row_on_clips_sheet(left, video));
    EXPECT_FALSE(shares_row_on_clips_sheet(video, left));
    EXPECT_FALSE(shares_row_on_clips_sheet(video, video));
}

TEST(shared_row_on_clips_sheet, joins_clips_that_both_lack_a_path)
{
    EXPECT_TRUE(shares_row_on_clips_sheet(test::clip("One", "A1", 0, 49), test::clip("Two", "A2", 0, 49)));
}

TEST(shared_row_on_reel_sheet, asks_for_the_name_and_not_the_path_on_purpose)
{
    EXPECT_TRUE(shares_row_on_reel_sheet(left, test::clip_of_file("/other.wav", "A2", 0, 49)));
    EXPECT_FALSE(shares_row_on_reel_sheet(left, test::clip("Other", "A2", 0, 49)));
}

TEST(shared_row_on_reel_sheet, joins_two_video_clips_too_on_purpose)
{
    EXPECT_TRUE(shares_row_on_reel_sheet(test::clip("Shot", "V1", 0, 49), test::clip("Shot", "V2", 0, 49)));
}

TEST(shared_row_on_reel_sheet, keeps_picture_and_sound_apart_though_they_are_one_use)
{
    const auto video = test::clip("Shot", "V1", 0, 49);
    const auto audio = test::clip("Shot", "A1", 0, 49);
    EXPECT_FALSE(shares_row_on_reel_sheet(video, audio));
    EXPECT_TRUE(is_same_use_of_reel(video, audio));
}

TEST(rows_of_clips_sheet, compare_each_clip_with_the_one_before_it)
{
    const auto second = test::clip_of_file("/song.wav", "A2", 0, 49);
    const auto third = test::clip_of_file("/song.wav", "A3", 0, 49);
    const auto later = test::clip_of_file("/song.wav", "A1", 50, 99);
    EXPECT_THAT(rows_of_clips_sheet({&left, &second, &third, &later}), ElementsAre(&left, &later));
}

} // namespace
} // namespace tallyframe
