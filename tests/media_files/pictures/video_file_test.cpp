// SPDX-License-Identifier: MIT
#include "media_files/pictures/video_file.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

const pictures_by_the_way no_others = {[](media_time) { return false; }, [](media_time, const bitmap&) {}};

/// A film of numbered frames: its n-th frame is on display from n * seconds / frames on.
struct film {
    const char* name;
    const char* rate;
    std::int64_t frames_per; ///< frames in `seconds`
    std::int64_t seconds;
    std::vector<std::string> encoding;
};

void PrintTo(const film& tested, std::ostream* out)
{
    *out << tested.name << " at " << tested.rate;
}

constexpr int frame_count = 75;

class video_file_of_kind : public testing::TestWithParam<film> {
protected:
    video_file_of_kind()
        : film_(media_.film(GetParam().name, GetParam().rate, frame_count, GetParam().encoding))
    {
        limit_.start();
    }

    std::unique_ptr<video_file> open(std::span<const media_time> expected = {})
    {
        return video_file::open(film_, expected, limit_);
    }

    static media_time time_of(int frame) { return {frame * GetParam().seconds, GetParam().frames_per}; }

private:
    made_media media_;
    std::filesystem::path film_;
    time_limit limit_{std::chrono::minutes(2)};
};

int frame_shown(video_file& file, media_time time)
{
    const std::optional<bitmap> picture = file.frame_at(time, 160, no_others);
    return picture ? number_of(*picture) : -1;
}

TEST_P(video_file_of_kind, shows_each_frame_at_its_own_time_in_any_order)
{
    const std::unique_ptr<video_file> file = open();
    ASSERT_NE(file, nullptr);
    for (int frame = 0; frame < frame_count; ++frame)
        EXPECT_EQ(frame_shown(*file, time_of(frame)), frame) << "forward";
    for (int frame = frame_count - 1; frame >= 0; frame -= 7)
        EXPECT_EQ(frame_shown(*file, time_of(frame)), frame) << "backward";
    for (int step = 0; step < frame_count; step += 3) {
        const int frame = step * 37 % frame_count;
        EXPECT_EQ(frame_shown(*file, time_of(frame)), frame) << "scattered";
    }
}

TEST_P(video_file_of_kind, shows_each_frame_where_only_some_are_expected)
{
    for (const std::vector<int>& frames :
         std::vector<std::vector<int>>{{1, 2, 30, 33, 50, 74}, {23}, {71, 8, 9}}) {
        std::vector<media_time> expected;
        expected.reserve(frames.size());
        for (const int frame : frames)
            expected.push_back(time_of(frame));
        const std::unique_ptr<video_file> file = open(expected);
        ASSERT_NE(file, nullptr);
        for (const int frame : frames)
            EXPECT_EQ(frame_shown(*file, time_of(frame)), frame) << "expected";
        for (const int frame : {3, 4, 40, 41, 39})
            EXPECT_EQ(frame_shown(*file, time_of(frame)), frame) << "not expected";
    }
}

using encoding = std::vector<std::string>;

const encoding no_b_frames = {"-c:v", "libx264", "-preset", "veryfast", "-g", "30", "-bf", "0"};
const encoding intra_only = {"-c:v", "libx264", "-preset", "veryfast", "-g", "1"};
const encoding open_gop = {"-c:v", "libx264", "-preset", "veryfast",     "-g",
                           "12",   "-bf",     "2",       "-x264-params", "open-gop=1:scenecut=0"};
const encoding mpeg2 = {"-c:v", "mpeg2video", "-g", "12", "-bf", "2", "-q:v", "3"};
const encoding mpeg4_b = {"-c:v", "mpeg4", "-g", "12", "-bf", "2", "-q:v", "3"};
// Frames too large to share a packet of the stream: those that do have no time of their own.
const encoding noisy_mpeg2 = {
    "-vf", "scale=320:192,noise=alls=40:allf=t", "-c:v", "mpeg2video", "-g", "12", "-bf", "2", "-q:v", "3"};
const encoding hevc = {"-c:v",      "libx265",      "-preset",
                       "ultrafast", "-x265-params", "log-level=none:keyint=30:bframes=3"};
const encoding dnxhr = {"-vf",        "scale=320:192", "-c:v",     "dnxhd",
                        "-profile:v", "dnxhr_sq",      "-pix_fmt", "yuv422p"};

INSTANTIATE_TEST_SUITE_P(
    kinds, video_file_of_kind,
    testing::Values(
        film{"long_gop.mp4", "24000/1001", 24000, 1001, long_gop},
        film{"long_gop.mkv", "24000/1001", 24000, 1001, long_gop}, film{"intra.mov", "25", 25, 1, intra_only},
        film{"open_gop.mp4", "25", 25, 1, open_gop}, film{"open_gop.ts", "25", 25, 1, open_gop},
        film{"no_b_frames.mov", "30000/1001", 30000, 1001, no_b_frames},
        film{"long_gop.mkv", "30000/1001", 30000, 1001, long_gop},
        film{"long_gop.mp4", "50", 50, 1, long_gop},
        film{"long_gop.mkv", "60000/1001", 60000, 1001, long_gop},
        film{"long_gop.mp4", "60000/1001", 60000, 1001, long_gop}, film{"mpeg2.ts", "25", 25, 1, mpeg2},
        film{"mpeg2.mxf", "30000/1001", 30000, 1001, mpeg2}, film{"mpeg2.mpg", "25", 25, 1, noisy_mpeg2},
        film{"prores.mov", "24000/1001", 24000, 1001, {"-c:v", "prores_ks"}},
        film{"dnxhr.mxf", "25", 25, 1, dnxhr}, film{"mjpeg.avi", "25", 25, 1, {"-c:v", "mjpeg", "-q:v", "3"}},
        film{"mpeg4.avi", "30000/1001", 30000, 1001, mpeg4_b}, film{"h264.avi", "25", 25, 1, long_gop},
        film{"hevc.mp4", "25", 25, 1, hevc},
        film{"raw.mov", "25", 25, 1, {"-c:v", "rawvideo", "-pix_fmt", "uyvy422"}}),
    [](const testing::TestParamInfo<film>& tested) {
        std::string name = std::string(tested.param.name) + "_at_" + tested.param.rate;
        std::replace_if(
            name.begin(), name.end(), [](char c) { return c == '.' || c == '/'; }, '_');
        return name;
    });

struct opened_film {
    std::unique_ptr<time_limit> limit;
    std::unique_ptr<video_file> file;
};

opened_film opened(const std::filesystem::path& path, std::span<const media_time> expected = {})
{
    auto limit = std::make_unique<time_limit>(std::chrono::minutes(1));
    limit->start();
    std::unique_ptr<video_file> file = video_file::open(path, expected, *limit);
    return {std::move(limit), std::move(file)};
}

TEST(video_file, shows_a_frame_until_the_next_one_starts)
{
    const made_media media;
    const opened_film film = opened(media.film("film.mp4", "25", 30, long_gop));
    EXPECT_EQ(frame_shown(*film.file, {39, 1000}), 0);
    EXPECT_EQ(frame_shown(*film.file, {40, 1000}), 1);
    EXPECT_EQ(frame_shown(*film.file, {79, 1000}), 1);
    EXPECT_EQ(frame_shown(*film.file, {1010, 1000}), 25);
}

TEST(video_file, counts_time_from_the_first_frame_of_a_file_that_starts_later)
{
    const made_media media;
    encoding late = long_gop;
    late.insert(late.end(), {"-output_ts_offset", "100"});
    const opened_film film = opened(media.film("film.mkv", "25", 30, late));
    EXPECT_EQ(frame_shown(*film.file, {0, 1}), 0);
    EXPECT_EQ(frame_shown(*film.file, {17, 25}), 17);
    EXPECT_EQ(frame_shown(*film.file, {3, 25}), 3);
}

TEST(video_file, counts_from_the_first_frame_of_a_film_that_begins_with_an_empty_edit)
{
    const made_media media;
    const std::filesystem::path whole = media.film("whole.mov", "25", 60, long_gop);
    const opened_film film =
        opened(media.make("late.mov",
                          {"-itsoffset", "0.4", "-i", whole.string(), "-f", "lavfi", "-i", "sine=duration=3",
                           "-map", "0", "-map", "1", "-c:v", "copy"}));
    for (const int frame : {0, 1, 40, 59, 7})
        EXPECT_EQ(frame_shown(*film.file, {frame, 25}), frame);
}

TEST(video_file, goes_on_counting_through_joined_transport_streams)
{
    const made_media media;
    const std::string part = content_of(media.film("part.ts", "25", 60, long_gop));
    const std::filesystem::path late = media.film("late.ts", "25", 60, [] {
        encoding arguments = long_gop;
        arguments.insert(arguments.end(), {"-output_ts_offset", "5000"});
        return arguments;
    }());
    const std::filesystem::path joined[] = {
        write_file(media.folder() / "thrice.ts", part + part + part),
        write_file(media.folder() / "earlier.ts", content_of(late) + part),
        write_file(media.folder() / "later.ts", part + part + content_of(late)),
    };
    for (const std::filesystem::path& file : joined) {
        const opened_film film = opened(file);
        for (const int frame : {0, 1, 59, 60, 61, 100, 119, 30, 75})
            EXPECT_EQ(frame_shown(*film.file, {frame, 25}), frame % 60) << file << ' ' << frame;
    }
}

TEST(video_file, follows_the_edit_list_of_a_film_cut_without_a_new_encoding)
{
    const made_media media;
    const std::filesystem::path whole = media.film("whole.mp4", "25", 60, long_gop);
    const opened_film film =
        opened(media.make("cut.mp4", {"-ss", "1.6", "-i", whole.string(), "-c", "copy"}));
    EXPECT_EQ(frame_shown(*film.file, {0, 1}), 40);
    EXPECT_EQ(frame_shown(*film.file, {10, 25}), 50);
    EXPECT_EQ(frame_shown(*film.file, {1, 25}), 41);
}

TEST(video_file, keeps_to_the_frames_of_a_variable_rate)
{
    const made_media media;
    // Frame n starts at n²/500 seconds: each is on display for longer than the one before.
    const std::filesystem::path file =
        media.make("variable.mkv",
                   {"-f", "lavfi", "-i", numbered_frames("25") + ",settb=1/1000,setpts=N*N/500/TB", "-vsync",
                    "passthrough", "-enc_time_base", "1/1000", "-frames:v", "40", "-c:v", "libx264",
                    "-preset", "veryfast", "-bf", "3", "-g", "15"});
    std::vector<media_time> expected;
    for (const int frame : {3, 30, 12, 38, 13, 25}) {
        expected.push_back({std::int64_t{frame} * frame, 500});
        expected.push_back({std::int64_t{frame + 1} * (frame + 1) - 1, 500});
    }
    for (const auto& known_before : {std::vector<media_time>(), expected}) {
        const opened_film film = opened(file, known_before);
        for (const media_time time : expected) {
            const int frame = static_cast<int>(std::sqrt(time.value));
            EXPECT_EQ(frame_shown(*film.file, time), frame) << time.value << "/500";
        }
    }
}

TEST(video_file, shows_the_only_frame_of_a_film_of_one)
{
    const made_media media;
    const opened_film film = opened(media.film("one.mov", "25", 1, intra_only));
    EXPECT_EQ(frame_shown(*film.file, {0, 1}), 0);
}

/// Rates as captures and exports write them, beside those of the documents about them.
struct nearly_equal_rate {
    const char* rate;
    media_time frame; ///< how long a document takes a frame to be
};

constexpr nearly_equal_rate nearly_equal_rates[] = {
    {"2997/100", {1001, 30000}},
    {"23976/1000", {1001, 24000}},
    {"5994/100", {1001, 60000}},
    {"1000000/33367", {1001, 30000}},
    {"30000/1001", {1001, 30000}},
    {"24000/1001", {1001, 24000}},
    {"60000/1001", {1001, 60000}},
    {"24", {1, 24}},
    {"25", {1, 25}},
    {"30", {1, 30}},
    {"50", {1, 50}},
    {"60", {1, 60}},
};

TEST(video_file, shows_the_frame_of_that_number_to_the_end_of_a_day)
{
    const made_media media;
    for (const nearly_equal_rate& tested : nearly_equal_rates) {
        constexpr std::int64_t day = 86400; // seconds
        const std::int64_t last = day * tested.frame.timescale / tested.frame.value - 1;
        // Six frames at the beginning, a long gap, and six at the end.
        const std::string filter = numbered_frames(tested.rate) + ",setpts='round((N+if(lt(N,6),0,"
            + std::to_string(last - 11) + "))/(" + tested.rate + ")/TB)'";
        const opened_film film =
            opened(media.make("day.mkv",
                              {"-f", "lavfi", "-i", filter, "-vsync", "passthrough", "-frames:v", "12",
                               "-c:v", "libx264", "-preset", "veryfast", "-g", "3", "-bf", "2"}));
        for (int frame = 11; frame >= 0; --frame) {
            const std::int64_t number = frame < 6 ? frame : frame + last - 11;
            EXPECT_EQ(frame_shown(*film.file, {number * tested.frame.value, tested.frame.timescale}), frame)
                << tested.rate;
        }
    }
}

TEST(video_file, shows_the_frame_of_that_number_whatever_the_container)
{
    const made_media media;
    constexpr int last = 25000; // a frame early by time alone from 20010 on
    const std::string frames = "color=black:s=20x4:r=2997/100,format=gray,"
                               "geq=lum='if(mod(floor(N/pow(2,floor(X/2))),2),255,0)'";
    const auto avi = media.make("film.avi",
                                {"-f", "lavfi", "-i", frames, "-frames:v", std::to_string(last + 1), "-c:v",
                                 "rawvideo", "-pix_fmt", "uyvy422"});
    const auto mov = media.make("film.mov", {"-i", avi.string(), "-c", "copy"});
    const auto mkv = media.make("film.mkv", {"-i", avi.string(), "-c", "copy"});
    for (const auto& file : {avi, mov, mkv}) {
        const opened_film film = opened(file);
        for (const int frame : {last, 20010, 20011, 1, 12345})
            EXPECT_EQ(frame_shown(*film.file, {std::int64_t{frame} * 1001, 30000}), frame % 1024) << file;
    }
}

TEST(video_file, goes_by_time_where_the_rates_differ)
{
    const made_media media;
    const opened_film film = opened(media.film("film.avi", "25", 60, {"-c:v", "mjpeg", "-q:v", "3"}));
    EXPECT_EQ(frame_shown(*film.file, {30030, 30000}), 25);
    EXPECT_EQ(frame_shown(*film.file, {29029, 30000}), 24);
    EXPECT_EQ(frame_shown(*film.file, {60060, 60000}), 25);
}

TEST(video_file, shows_nothing_after_the_last_frame)
{
    const made_media media;
    const opened_film film = opened(media.film("film.mp4", "25", 30, long_gop));
    EXPECT_EQ(frame_shown(*film.file, {30, 25}), -1);
    EXPECT_EQ(frame_shown(*film.file, {1000, 1}), -1);
    EXPECT_EQ(frame_shown(*film.file, {29, 25}), 29) << "and goes on to work";
}

TEST(video_file, survives_times_beyond_all_clocks)
{
    const made_media media;
    const opened_film film = opened(media.film("film.mp4", "25", 5, intra_only));
    EXPECT_EQ(frame_shown(*film.file, {INT64_MAX, 1}), -1);
    EXPECT_EQ(frame_shown(*film.file, {1, 0}), -1);
    EXPECT_EQ(frame_shown(*film.file, {INT64_MAX, INT64_MAX}), -1) << "one second: after the end";
    EXPECT_EQ(frame_shown(*film.file, {INT64_MIN, INT64_MAX}), 0)
        << "before the start the first frame stands";
    EXPECT_EQ(frame_shown(*film.file, {2, 25}), 2);
}

TEST(video_file, offers_the_expected_pictures_that_it_comes_by)
{
    const made_media media;
    const media_time asked = {14, 25};
    const std::vector<media_time> expected = {{5, 25}, asked, {22, 25}, {40, 25}};
    const opened_film film = opened(media.film("film.mp4", "25", 60, long_gop), expected);
    std::vector<std::pair<std::int64_t, int>> offered;
    const pictures_by_the_way others = {
        [&](media_time time) { return time != asked; },
        [&](media_time time, const bitmap& picture) { offered.emplace_back(time.value, number_of(picture)); },
    };
    const std::optional<bitmap> picture = film.file->frame_at(asked, 160, others);
    ASSERT_TRUE(picture);
    EXPECT_EQ(number_of(*picture), 14);
    const std::vector<std::pair<std::int64_t, int>> before_the_next_key_frame = {{5, 5}, {22, 22}};
    EXPECT_EQ(offered, before_the_next_key_frame);
}

TEST(video_file, has_no_frames_without_video)
{
    const made_media media;
    const opened_film sound = opened(media.make("sound.wav", {"-f", "lavfi", "-i", "sine=duration=1"}));
    ASSERT_NE(sound.file, nullptr);
    EXPECT_EQ(sound.file->track_count(), 1U);
    EXPECT_EQ(frame_shown(*sound.file, {0, 1}), -1);
}

TEST(video_file, takes_no_cover_for_a_film)
{
    const made_media media;
    const std::filesystem::path cover =
        media.make("cover.png", {"-f", "lavfi", "-i", "color=red:s=64x64", "-frames:v", "1"});
    const opened_film song =
        opened(media.make("song.mp3",
                          {"-f", "lavfi", "-i", "sine=duration=1", "-i", cover.string(), "-map", "0", "-map",
                           "1", "-c:v", "copy", "-id3v2_version", "3", "-disposition:v", "attached_pic"}));
    ASSERT_NE(song.file, nullptr);
    EXPECT_EQ(song.file->track_count(), 2U);
    EXPECT_EQ(frame_shown(*song.file, {0, 1}), -1);
}

} // namespace
