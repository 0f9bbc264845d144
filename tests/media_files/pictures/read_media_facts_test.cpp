// SPDX-License-Identifier: MIT
#include "media_files/pictures/read_media_facts.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

using namespace testing_support;

TEST(read_media_facts, tells_what_a_film_is)
{
    const made_media media;
    const auto film =
        media.make("film.mov", {"-f",        "lavfi", "-i",        "color=s=160x96:r=24000/1001",
                                "-f",        "lavfi", "-i",        "sine=sample_rate=48000",
                                "-f",        "lavfi", "-i",        "sine=sample_rate=48000",
                                "-map",      "0:v",   "-map",      "1:a",
                                "-map",      "2:a",   "-ac:a:0",   "2",
                                "-frames:v", "48",    "-timecode", "01:00:00:00",
                                "-shortest", "-c:v",  "mpeg4",     "-c:a",
                                "pcm_s16le"});
    const auto facts = read_media_facts(film);
    ASSERT_TRUE(facts);
    EXPECT_NEAR(facts->duration.value(), 48 * 1001 / 24000.0, 0.001);
    EXPECT_NEAR(facts->frames_per_second.value(), 24000 / 1001.0, 1e-6);
    EXPECT_EQ(facts->frame_size, (pixel_size{160, 96}));
    EXPECT_EQ(facts->start_timecode, "01:00:00:00");
    EXPECT_EQ(facts->audio_channels, 3);
}

TEST(read_media_facts, tells_a_drop_frame_timecode_as_it_is_written)
{
    const made_media media;
    const auto film = media.make("film.mov",
                                 {"-f", "lavfi", "-i", "color=s=160x96:r=30000/1001", "-frames:v", "5",
                                  "-timecode", "00:59:58;00", "-c:v", "mpeg4"});
    EXPECT_EQ(read_media_facts(film).value().start_timecode, "00:59:58;00");
    EXPECT_EQ(read_media_facts(film).value().audio_channels, 0);
}

TEST(read_media_facts, tells_when_a_recorder_was_started)
{
    const made_media media;
    const auto sound = media.make("sound.wav",
                                  {"-f", "lavfi", "-i", "sine=sample_rate=48000", "-t", "2", "-write_bext",
                                   "1", "-metadata", "time_reference=172800000"});
    const auto facts = read_media_facts(sound);
    ASSERT_TRUE(facts);
    EXPECT_NEAR(facts->duration.value(), 2, 0.001);
    EXPECT_EQ(facts->frames_per_second, std::nullopt);
    EXPECT_EQ(facts->frame_size, std::nullopt);
    EXPECT_EQ(facts->start_seconds, 3600);
    EXPECT_EQ(facts->audio_channels, 1);
}

TEST(read_media_facts, gives_a_still_picture_no_duration)
{
    const made_media media;
    for (const char* name : {"still.png", "still.jpg", "still.tif", "still.bmp"}) {
        const auto still =
            media.make(name, {"-f", "lavfi", "-i", "color=s=160x96", "-frames:v", "1", "-update", "1"});
        const auto facts = read_media_facts(still);
        ASSERT_TRUE(facts) << name;
        EXPECT_EQ(facts->frame_size, (pixel_size{160, 96})) << name;
        EXPECT_EQ(facts->duration, std::nullopt) << name;
        EXPECT_EQ(facts->frames_per_second, std::nullopt) << name;
        EXPECT_EQ(facts->audio_channels, std::nullopt) << name;
    }
}

TEST(read_media_facts, knows_nothing_of_what_is_no_media)
{
    const temporary_folder folder;
    EXPECT_EQ(read_media_facts(write_file(folder.path() / "a.mov", "no film")), std::nullopt);
    EXPECT_EQ(read_media_facts(write_file(folder.path() / "b.mov", "")), std::nullopt);
    EXPECT_EQ(read_media_facts(folder.path() / "absent.mov"), std::nullopt);
    EXPECT_EQ(read_media_facts(write_file(folder.path() / "list.txt", "ffconcat version 1.0\nfile a.mov\n")),
              std::nullopt);
}

} // namespace
} // namespace tallyframe
