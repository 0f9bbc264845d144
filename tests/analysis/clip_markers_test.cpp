// SPDX-License-Identifier: MIT
#include "analysis/clip_markers.h"
#include "run/failures.h"
#include "support/analyzed_document.h"
#include "support/names_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

analysis_result video_track(const std::vector<track_item>& items, const sequence_options& options = {})
{
    return analysis_of(xmeml().sequence("Reel 1", options).video_track(items));
}

TEST(clip_markers, carry_place_and_state_of_their_clip)
{
    const analysis_result result = analysis_of(xmeml().sequence("Reel 1").video_track(
        {clip("Boat").at(200, 300).in_out(10, 110).enabled("False").marker("m", 30, 40)},
        {.attributes = R"(MZ.TrackName="Main")"}));
    ASSERT_EQ(result.video_clip_marker_array.size(), 1U);
    const clip_marker_record& record = result.video_clip_marker_array[0];
    EXPECT_EQ(record.place.track, "V1");
    EXPECT_EQ(record.place.track_name, " Main");
    EXPECT_EQ(record.clip_name, "Boat");
    EXPECT_EQ(record.enabled, "FALSE");
    EXPECT_EQ(record.in_point, 30);
    EXPECT_EQ(record.out_point, 39);
    EXPECT_EQ(record.duration, 10);
}

TEST(clip_markers, stand_in_the_sequence)
{
    const clip_marker_record record =
        video_track({clip("Boat").at(200, 300).in_out(10, 110).marker("m", 30, 40)}, {.start_frame = 90000})
            .video_clip_marker_array.at(0);
    EXPECT_EQ(record.in_frame, 90220);
    EXPECT_EQ(record.out_frame, 90230) << "the start and the duration";
}

TEST(clip_markers, count_their_source_frames_from_the_sequence_position_on_purpose)
{
    const clip_marker_record record =
        video_track(
            {clip("Boat").at(200, 300).in_out(10, 110).file({.timecode_frame = 5000}).marker("m", 30, 40)})
            .video_clip_marker_array.at(0);
    EXPECT_EQ(record.src_in_frame, 5010 + (220 - 10));
    EXPECT_EQ(record.src_out_frame, 5010 + (220 - 10) + 10);
}

TEST(clip_markers, keep_a_margin_of_two_frames_at_both_ends_on_purpose)
{
    const analysis_result result = video_track({clip("Boat")
                                                    .in_out(100, 150)
                                                    .marker("97", 97)
                                                    .marker("98", 98)
                                                    .marker("148", 148)
                                                    .marker("149", 149)
                                                    .marker("range", 100, 149)
                                                    .marker("long", 100, 150)});
    EXPECT_THAT(names_of(result.video_clip_marker_array), ElementsAre("98", "148", "range"));
}

TEST(clip_markers, follow_the_speed_of_the_clip)
{
    const analysis_result result = video_track(
        {clip("Boat").in_out(100, 200).duration(2000).speed("50").marker("in", 50).marker("out", 99)});
    ASSERT_THAT(names_of(result.video_clip_marker_array), ElementsAre("in"));
    EXPECT_EQ(result.video_clip_marker_array[0].in_frame, 0);
}

TEST(clip_markers, lie_before_zero_in_a_reversed_video_clip_and_after_it_in_audio_on_purpose)
{
    const clip item =
        clip("Boat").in_out(-200, -100).duration(2000).reversed().marker("up", 150).marker("down", -150);
    const analysis_result result =
        analysis_of(xmeml().sequence("Reel 1").video_track({item}).audio_track({item}));
    EXPECT_THAT(names_of(result.video_clip_marker_array), IsEmpty())
        << "in 200, out 100 at -100%: nothing lies between";
    EXPECT_THAT(names_of(result.audio_clip_marker_array), ElementsAre("down"));
    const clip forwards =
        clip("Boat").in_out(200, 100).duration(2000).reversed().marker("up", 150).marker("down", -150);
    EXPECT_THAT(names_of(video_track({forwards}).video_clip_marker_array), ElementsAre("down"));
}

TEST(clip_markers, have_no_source_frames_before_any_clip_with_media)
{
    const analysis_result result = video_track({clip("nested").without_file().marker("m", 5)});
    ASSERT_EQ(result.video_clip_marker_array.size(), 1U);
    EXPECT_EQ(result.video_clip_marker_array[0].in_frame, 5);
    EXPECT_EQ(result.video_clip_marker_array[0].src_in_frame, std::nullopt);
    EXPECT_EQ(result.video_clip_marker_array[0].src_out_frame, std::nullopt);
}

TEST(clip_markers, of_a_clip_without_media_count_from_the_last_clip_with_some_on_purpose)
{
    const analysis_result result =
        analysis_of(xmeml()
                        .sequence("Reel 1")
                        .video_track({clip("A").in_out(10, 60).file({.timecode_frame = 1000}),
                                      clip("nested").at(50, 90).without_file().marker("m", 5)})
                        .audio_track({clip("nested").without_file().marker("m", 5)}));
    EXPECT_EQ(result.video_clip_marker_array.at(0).src_in_frame, 1010 + 55);
    EXPECT_EQ(result.audio_clip_marker_array.at(0).src_in_frame, 1010 + 5);
}

clip_marker_record exact_marker(const clip& item, const sequence_options& options = {})
{
    return exact_analysis_of(xmeml().sequence("Reel 1", options).video_track({item}))
        .video_clip_marker_array.at(0);
}

TEST(exact_clip_markers, count_their_source_frames_in_the_media)
{
    const clip_marker_record record = exact_marker(
        clip("Boat").at(200, 300).in_out(10, 110).file({.timecode_frame = 5000}).marker("m", 30, 40));
    EXPECT_EQ(record.src_in_frame, 5030) << "the clip's Source In, 5010, and 20 from its in point";
    EXPECT_EQ(record.src_out_frame, 5040);
    EXPECT_EQ(record.source_clock, (media_clock{25, display_format::non_drop_frame}));
}

TEST(exact_clip_markers, keep_their_place_in_the_media_at_another_speed)
{
    const clip_marker_record record = exact_marker(clip("Boat")
                                                       .in_out(101, 201)
                                                       .duration(2000)
                                                       .speed("50")
                                                       .file({.timecode_frame = 5000})
                                                       .marker("m", 60, 70));
    EXPECT_EQ(record.src_in_frame, 5060) << "not 5051 + 9.5, rounded twice";
    EXPECT_EQ(record.src_out_frame, 5070);
}

TEST(exact_clip_markers, count_at_the_rate_of_the_media)
{
    const clip_marker_record record = exact_marker(
        clip("Boat").in_out(10, 110).file({.timebase = 50, .timecode_frame = 5000}).marker("m", 30, 40));
    EXPECT_EQ(record.src_in_frame, 5060);
    EXPECT_EQ(record.src_out_frame, 5080);
    EXPECT_EQ(record.source_clock, (media_clock{50, display_format::non_drop_frame}));
}

TEST(exact_clip_markers, count_from_the_start_of_a_subclip)
{
    const clip_marker_record record =
        exact_marker(clip("Boat")
                         .in_out(10, 110)
                         .with("<subclipinfo><startoffset>400</startoffset></subclipinfo>")
                         .marker("m", 30));
    EXPECT_EQ(record.src_in_frame, 430);
    EXPECT_EQ(record.src_out_frame, 430);
}

TEST(exact_clip_markers, count_back_in_a_reversed_clip)
{
    const analysis_result result =
        exact_analysis_of(xmeml().sequence("Reel 1").audio_track({clip("Boat")
                                                                      .in_out(100, 200)
                                                                      .duration(2000)
                                                                      .reversed()
                                                                      .file({.timecode_frame = 5000})
                                                                      .marker("m", 130, 140)}));
    const clip_record& shown = result.audio_clip_data_array.at(0);
    EXPECT_EQ(shown.src_end_frame, 5901);
    EXPECT_EQ(result.audio_clip_marker_array.at(0).src_in_frame, 5871) << "30 before the clip's Source Out";
    EXPECT_EQ(result.audio_clip_marker_array.at(0).src_out_frame, 5861);
}

TEST(exact_clip_markers, have_no_source_frames_without_media_or_in_a_still)
{
    const analysis_result result = exact_analysis_of(xmeml().sequence("Reel 1").video_track(
        {clip("A"), clip("nested").without_file().marker("m", 5),
         clip("Still").file({.path = "/Media/still.tif", .duration = {}}).marker("s", 5)}));
    ASSERT_THAT(names_of(result.video_clip_marker_array), ElementsAre("m", "s"));
    for (const clip_marker_record& record : result.video_clip_marker_array) {
        EXPECT_EQ(record.src_in_frame, std::nullopt);
        EXPECT_EQ(record.src_out_frame, std::nullopt);
        EXPECT_EQ(record.source_clock, std::nullopt);
    }
}

TEST(clip_markers, are_listed_once)
{
    const analysis_result result =
        video_track({clip("A").marker("m", 5).marker("n", 6).marker("m", 5).marker("m", 5, 7)});
    EXPECT_THAT(names_of(result.video_clip_marker_array), ElementsAre("m", "n", "m"));
    EXPECT_EQ(analysis_of(xmeml().sequence("Reel 1").audio_track({clip("A").marker("m", 5).marker("m", 5)}))
                  .audio_clip_marker_array.size(),
              1U);
}

TEST(clip_markers, that_differ_in_one_field_all_stay)
{
    const clip_marker_record original;
    std::vector<clip_marker_record> records(6, original);
    records[1].comment = "";
    records[2].src_in_frame = 0;
    records[3].clip_name = "";
    records[4].color = "Red";
    remove_duplicates(records);
    ASSERT_EQ(records.size(), 5U);
    EXPECT_EQ(records[0], original);
    EXPECT_EQ(records[4].color, "Red");
    std::vector<clip_marker_record> none;
    remove_duplicates(none);
    EXPECT_THAT(none, IsEmpty());
}

TEST(clip_markers, of_one_clip_may_be_many_thousands)
{
    clip item("A");
    item.in_out(0, 200'000).duration(200'000);
    std::string markers;
    for (int i = 0; i < 50'000; ++i)
        markers += marker("m", i % 25'000);
    EXPECT_EQ(video_track({item.with(markers)}).video_clip_marker_array.size(), 25'000U);
}

TEST(clip_markers, without_a_position_end_the_analysis)
{
    EXPECT_THROW(video_track({clip("A").with("<marker><name>m</name><out>-1</out></marker>")}),
                 analysis_error);
}

} // namespace

} // namespace tallyframe
