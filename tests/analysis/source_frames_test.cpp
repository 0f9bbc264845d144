// SPDX-License-Identifier: MIT
#include "analysis/source_frames.h"
#include "support/analyzed_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;

clip_record video_record(const clip& item, const sequence_options& options = {})
{
    return analysis_of(xmeml().sequence("Reel 1", options).video_track({item})).video_clip_data_array.at(0);
}

clip_record audio_record(const clip& item, const sequence_options& options = {})
{
    return analysis_of(xmeml().sequence("Reel 1", options).audio_track({item})).audio_clip_data_array.at(0);
}

void expect_source(const clip_record& record, double first, double last, double length)
{
    EXPECT_EQ(record.src_start_frame, first);
    EXPECT_EQ(record.src_end_frame, last);
    EXPECT_EQ(record.src_length, length);
}

clip half_speed()
{
    return clip("A").in_out(100, 200).duration(2000).speed("50");
}

TEST(source_frames, follow_the_speed)
{
    expect_source(video_record(half_speed()), 50, 99, 50);
    expect_source(audio_record(half_speed()), 50, 99, 50);
}

TEST(source_frames, count_one_frame_more_backwards_on_purpose)
{
    expect_source(video_record(half_speed().reversed()), 901, 951, 51);
    expect_source(audio_record(half_speed().reversed()), 901, 951, 51);
}

TEST(source_frames, ignore_the_speed_of_a_clip_as_long_as_its_media_on_purpose)
{
    expect_source(video_record(half_speed().duration(1000)), 100, 199, 100);
    expect_source(audio_record(half_speed().duration(1000)), 100, 199, 100);
}

TEST(source_frames, still_run_backwards_in_a_clip_as_long_as_its_media)
{
    expect_source(video_record(half_speed().duration(1000).reversed()), 801, 901, 101);
}

TEST(media_frames, are_what_a_clip_shows_of_its_file_from_0_on)
{
    const media_file file{.timecode_frame = 90000};
    EXPECT_EQ(video_record(clip("A").in_out(100, 200).file(file)).media_frames, (used_frames{100, 199}));
    EXPECT_EQ(audio_record(half_speed()).media_frames, (used_frames{50, 99}));
    EXPECT_EQ(video_record(half_speed().reversed()).media_frames, (used_frames{900, 949}))
        << "without the one frame more of the columns";
    EXPECT_EQ(video_record(clip("A").file({.duration = std::nullopt})).media_frames, std::nullopt);
}

TEST(media_files, are_those_that_clips_show_each_once)
{
    const analysis_result analysis =
        analysis_of(xmeml()
                        .sequence("Reel 1")
                        .video_track({clip("A").at(0, 50).file({.path = "/a.mov"}),
                                      clip("B").at(50, 100).file({.path = "/b.mov"})})
                        .audio_track({clip("A").at(0, 50).same_file("/a.mov")}));
    ASSERT_EQ(analysis.media_files.size(), 2U);
    EXPECT_EQ(analysis.media_files[0].path, "/a.mov");
    EXPECT_EQ(analysis.video_clip_data_array.at(1).media_file, 1U);
    EXPECT_EQ(analysis.audio_clip_data_array.at(0).media_file, 0U);
}

TEST(source_frames, take_a_negative_speed_for_a_positive_one)
{
    expect_source(video_record(clip("A").in_out(100, 200).duration(2000).speed("-50.0")), 50, 99, 50);
}

TEST(source_frames, run_forwards_only_at_exactly_false)
{
    EXPECT_EQ(video_record(half_speed().reversed("FALSE")).src_start_frame, 50);
    EXPECT_EQ(video_record(half_speed().reversed("false")).src_start_frame, 901);
    EXPECT_EQ(video_record(half_speed().reversed("")).src_start_frame, 901);
}

TEST(source_frames, round_half_away_from_zero)
{
    expect_source(video_record(clip("A").in_out(1, 3).duration(2000).speed("50")), 1, 1, 1);
}

TEST(source_frames, add_the_offset_of_a_subclip)
{
    const std::string subclip = "<subclipinfo><startoffset>300</startoffset></subclipinfo>";
    expect_source(video_record(clip("A").in_out(10, 20).with(subclip)), 310, 319, 10);
    expect_source(video_record(half_speed().with(subclip)), 200, 249, 50);
}

TEST(source_frames, count_from_the_first_timecode_of_the_media)
{
    expect_source(video_record(clip("A").in_out(10, 20).file({.timecode_frame = 90000})), 90010, 90019, 10);
}

TEST(source_frames, count_at_the_rate_of_the_media)
{
    const media_file pal{.timebase = 25};
    // 300 and 600 frames at 29.97 are 250.25 and 500.5 frames at 25
    expect_source(video_record(clip("A").in_out(300, 600).file(pal), {.timebase = 30, .ntsc = "TRUE"}), 250,
                  500, 251);
    const std::string subclip = "<subclipinfo><startoffset>60</startoffset></subclipinfo>";
    EXPECT_EQ(video_record(clip("A").in_out(0, 60).file(pal).with(subclip), {.timebase = 30}).src_start_frame,
              50);
}

TEST(source_frames, stay_fractions_where_the_timecode_is_one)
{
    const std::string timecode = "<timecode><rate><timebase>30</timebase></rate><frame>31</frame></timecode>";
    const std::string file = R"(<file id="f"><duration>1000</duration><rate><timebase>25</timebase></rate>)"
        + timecode + "</file>";
    const clip_record record = video_record(clip("A").without_file().in_out(0, 10).with(file));
    EXPECT_DOUBLE_EQ(*record.src_start_frame, 31 * 25 / 30.0);
    EXPECT_DOUBLE_EQ(*record.src_length, 10);
    EXPECT_EQ(record.image_time, (rational{0, 1}));
}

TEST(source_frames, of_a_still_image_never_follow_a_speed)
{
    const clip_record record =
        video_record(clip("A").in_out(100, 200).duration(500).speed("50").file({.duration = {}}));
    EXPECT_TRUE(record.isImage);
    expect_source(record, 100, 199, 100);
    EXPECT_EQ(record.fcp_rate, (frame_rate{25, false}));
}

TEST(source_frames, of_a_reversed_still_image_count_from_its_own_duration)
{
    expect_source(video_record(clip("A").in_out(100, 200).duration(500).reversed().file({.duration = {}})),
                  301, 401, 101);
}

TEST(source_frames, of_audio_without_a_media_duration_count_from_its_own)
{
    const clip_record record =
        audio_record(clip("A").in_out(100, 200).duration(500).speed("50").reversed().file({.duration = {}}));
    EXPECT_FALSE(record.isImage);
    EXPECT_EQ(record.image_time, std::nullopt);
    expect_source(record, 301, 401, 101);
}

TEST(source_frames, of_a_bin_clip_use_all_its_media)
{
    const auto bin_record = [](const clip& item) {
        return analysis_of(xmeml().bin_clip("Day 1", bin_clip("m", 400, "video", {item})), "")
            .video_clip_data_array.at(0);
    };
    expect_source(bin_record(clip("A")), 0, 399, 400);
    expect_source(bin_record(clip("A").speed("50")), 0, 199, 200);
    expect_source(bin_record(clip("A").reversed()), 601, 1001, 401);
    expect_source(bin_record(clip("A").reversed().file({.duration = {}})), 1, 401, 401);
    expect_source(bin_record(clip("A").speed("50").file({.duration = {}})), 0, 399, 400);
}

TEST(image_time, is_exact)
{
    const auto image_time = [](std::int64_t timebase, std::string_view ntsc, std::int64_t in) {
        return video_record(
                   clip("A")
                       .in_out(in, in + 10)
                       .file({.timebase = timebase, .ntsc = std::string(ntsc), .timecode_frame = 1000}),
                   {.timebase = timebase == 48 ? 24 : timebase, .ntsc = std::string(ntsc)})
            .image_time;
    };
    EXPECT_EQ(image_time(25, "FALSE", 10), (rational{2, 5}));
    EXPECT_EQ(image_time(25, "FALSE", 0), (rational{0, 1}));
    EXPECT_EQ(image_time(30, "TRUE", 30), (rational{1001, 1000}));
    EXPECT_EQ(image_time(24, "TRUE", 1), (rational{1001, 24000}));
    EXPECT_EQ(image_time(60, "TRUE", 2), (rational{1001, 30000}));
    EXPECT_EQ(image_time(48, "TRUE", 12), (rational{1001, 2000})) << "12 frames at 23.976 are 24 at 47.952";
    EXPECT_EQ(image_time(25, "FALSE", -5), (rational{-1, 5}));
}

TEST(image_time, needs_a_usable_rate)
{
    for (const std::int64_t timebase : {0, -25}) {
        const clip_record record = video_record(clip("A").file({.timebase = timebase}));
        EXPECT_EQ(record.image_time, std::nullopt) << timebase;
    }
}

TEST(source_frames, stay_finite_on_absurd_numbers)
{
    const std::string huge(300, '9');
    const std::vector<std::string> speeds{huge, "1e308", "-1e308", "0", "nan"};
    for (const std::string& speed : speeds) {
        const analysis_result result = analysis_of(
            xmeml()
                .sequence("Reel 1")
                .video_track(
                    {clip("A")
                         .at(INT64_MIN / 4, INT64_MAX / 4)
                         .in_out(INT64_MIN, INT64_MAX)
                         .duration(7)
                         .speed(speed)
                         .reversed()
                         .marker("m", INT64_MAX, INT64_MIN / 2)
                         .file({.duration = INT64_MAX, .timebase = INT64_MAX, .timecode_frame = INT64_MIN})})
                .audio_track(
                    {clip("A").at(-1, INT64_MAX / 2).in_out(INT64_MAX, INT64_MIN).duration(7).speed(speed)}));
        for (const clip_record& record : result.video_clip_data_array) {
            EXPECT_TRUE(!record.src_start_frame || std::isfinite(*record.src_start_frame));
            EXPECT_TRUE(!record.src_end_frame || std::isfinite(*record.src_end_frame));
        }
    }
}

} // namespace

} // namespace tallyframe
