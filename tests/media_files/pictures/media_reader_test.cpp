// SPDX-License-Identifier: MIT
#include "media_files/pictures/media_reader.h"
#include "support/kept_diagnostics.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

#include <fstream>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

std::string head_of(const std::filesystem::path& file, std::uintmax_t length)
{
    std::ifstream in(file, std::ios::binary);
    std::string bytes(length, '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(length));
    return bytes;
}

class media_reader_ : public testing::Test {
protected:
    int frame_shown(const std::filesystem::path& file, int frame)
    {
        const std::optional<bitmap> picture = reader.frame_at(file, {frame, 25}, 160);
        return picture ? number_of(*picture) : -1;
    }

    made_media media;
    kept_diagnostics out;
    media_reader reader{out};
};

TEST_F(media_reader_, goes_to_and_fro_between_more_files_than_stay_open)
{
    std::vector<std::filesystem::path> films;
    const auto film = media.film("0.mp4", "25", 40, long_gop);
    for (int i = 1; i <= 20; ++i) {
        films.push_back(media.folder() / (std::to_string(i) + ".mp4"));
        std::filesystem::create_hard_link(film, films.back());
    }
    for (const int frame : {20, 4, 33}) {
        for (const auto& each : films)
            EXPECT_EQ(frame_shown(each, frame), frame);
    }
}

TEST_F(media_reader_, decodes_a_picture_once)
{
    const auto film = media.film("film.mp4", "25", 40, long_gop);
    const std::vector<expected_frame> expected = {{film, {31, 25}, 160}, {film, {35, 25}, 160}};
    reader.expect(expected);
    EXPECT_EQ(frame_shown(film, 31), 31);
    // What was read with it or before needs no file any more.
    std::ofstream(film, std::ios::trunc).close();
    EXPECT_EQ(frame_shown(film, 31), 31);
    EXPECT_EQ(frame_shown(film, 35), 35);
}

TEST_F(media_reader_, knows_no_tracks_of_stills_and_other_files)
{
    EXPECT_EQ(reader.track_count(media.film("film.mov", "25", 2, {"-c:v", "mpeg4"})), 1U);
    EXPECT_EQ(reader.track_count(media.film("still.png", "25", 1, {})), 0U);
    EXPECT_EQ(reader.track_count(write_file(media.folder() / "text.mov", "text")), 0U);
    EXPECT_EQ(reader.track_count(media.folder() / "none.mov"), 0U);
}

TEST_F(media_reader_, reads_nothing_from_a_text_with_a_films_name)
{
    const auto text = write_file(media.folder() / "text.mov", "I am no film, I am a letter.\n");
    EXPECT_EQ(frame_shown(text, 0), -1);
    EXPECT_EQ(reader.still(text), nullptr);
}

TEST_F(media_reader_, reads_what_is_left_of_a_truncated_film)
{
    const auto whole = media.film("whole.mkv", "25", 60, {"-c:v", "mpeg4", "-g", "10", "-q:v", "3"});
    const auto half =
        write_file(media.folder() / "half.mkv", head_of(whole, std::filesystem::file_size(whole) / 2));
    EXPECT_EQ(frame_shown(half, 3), 3);
    EXPECT_EQ(frame_shown(half, 59), -1);
    EXPECT_EQ(frame_shown(half, 12), 12);

    const auto mp4 = media.film("whole.mp4", "25", 60, long_gop);
    const auto no_index =
        write_file(media.folder() / "no_index.mp4", head_of(mp4, std::filesystem::file_size(mp4) / 2));
    EXPECT_EQ(frame_shown(no_index, 0), -1);
}

TEST_F(media_reader_, survives_films_with_any_byte_changed)
{
    const auto whole = media.film("whole.mov", "25", 12, long_gop);
    const std::string bytes = head_of(whole, std::filesystem::file_size(whole));
    for (std::size_t i = 0; i < bytes.size(); i += 37) {
        std::string damaged = bytes;
        damaged[i] = static_cast<char>(~static_cast<unsigned char>(damaged[i]));
        const auto file = write_file(media.folder() / ("damaged" + std::to_string(i) + ".mov"), damaged);
        reader.frame_at(file, {7, 25}, 160); // a picture, or nothing
    }
}

TEST_F(media_reader_, follows_no_playlist_in_disguise)
{
    const auto film = media.film("film.mp4", "25", 2, long_gop);
    const std::string playlists[] = {
        "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n" + film.string() + "\n#EXT-X-ENDLIST\n",
        "ffconcat version 1.0\nfile '" + film.filename().string() + "'\n",
        "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\"></MPD>\n",
    };
    for (const std::string& playlist : playlists) {
        const auto file = write_file(media.folder() / "playlist.mov", playlist);
        EXPECT_EQ(media_reader(out).track_count(file), 0U) << playlist;
    }
}

TEST_F(media_reader_, opens_no_address_that_looks_like_a_path)
{
    EXPECT_EQ(reader.track_count(std::filesystem::path("http://127.0.0.1:1/film.mp4")), 0U);
    EXPECT_EQ(reader.track_count(std::filesystem::path("concat:/etc/passwd")), 0U);
}

TEST_F(media_reader_, opens_files_whatever_their_names)
{
    const auto film = media.film("film.mp4", "25", 2, long_gop);
    for (const std::string name : {"50%d.mp4", "a:b.mp4", "-i.mp4", "sp ace \"quote\".mp4", "#1?.mp4"}) {
        const auto named = media.folder() / name;
        std::filesystem::create_hard_link(film, named);
        EXPECT_EQ(frame_shown(named, 1), 1) << name;
    }
}

TEST_F(media_reader_, refuses_frames_of_more_than_a_hundred_megapixels)
{
    const auto huge = media.make(
        "huge.mkv",
        {"-f", "lavfi", "-i", "color=black:s=16000x8000:r=1,format=gray", "-frames:v", "1", "-c:v", "png"});
    EXPECT_EQ(frame_shown(huge, 0), -1);
}

TEST_F(media_reader_, gives_a_file_up_that_takes_too_long)
{
    const auto film = media.film("film.mp4", "25", 40, long_gop);
    media_reader hasty(out, std::chrono::milliseconds(0));
    EXPECT_EQ(hasty.frame_at(film, {31, 25}, 160), std::nullopt);
    EXPECT_EQ(hasty.frame_at(film, {0, 1}, 160), std::nullopt);
    EXPECT_EQ(out.text, "media: given up, it takes too long to decode: " + film.string() + "\n")
        << "said once";
}

TEST_F(media_reader_, keeps_stills_at_hand)
{
    const auto still = media.film("still.png", "25", 1, {});
    const image_data picture = reader.still(still);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(reader.still(still), picture);
}

TEST(picture_cache, drops_what_was_unused_for_longest)
{
    const auto picture = std::make_shared<const bitmap>(bitmap{10, 10, std::vector<std::uint8_t>(1000)});
    picture_cache cache(3000);
    cache.keep({"a", {0, 1}, 10}, picture);
    cache.keep({"b", {0, 1}, 10}, picture);
    EXPECT_EQ(cache.find({"a", {0, 1}, 10}), picture);
    cache.keep({"c", {0, 1}, 10}, picture);
    EXPECT_FALSE(cache.contains({"b", {0, 1}, 10}));
    EXPECT_TRUE(cache.contains({"a", {0, 1}, 10}));
    EXPECT_TRUE(cache.contains({"c", {0, 1}, 10}));
}

TEST(picture_cache, remembers_what_could_not_be_read)
{
    picture_cache cache(3000);
    cache.keep({"a", {0, 1}, 10}, nullptr);
    EXPECT_TRUE(cache.contains({"a", {0, 1}, 10}));
    EXPECT_EQ(cache.find({"a", {0, 1}, 10}), nullptr);
}

} // namespace
