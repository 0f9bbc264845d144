// SPDX-License-Identifier: MIT
#include "media_files/tag_readers.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>
#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

struct tagged_kind {
    const char* name;
    std::vector<std::string> encoding;
    audio_tags tags;
};

class taglib_tag_reader_of_kind : public testing::TestWithParam<tagged_kind> { };

TEST_P(taglib_tag_reader_of_kind, gives_each_value)
{
    const made_media media;
    std::vector<std::string> arguments = {"-f",        "lavfi",
                                          "-i",        "sine=duration=0.2",
                                          "-metadata", "title=Morning \"Light\"",
                                          "-metadata", "album=Weather",
                                          "-metadata", "artist=Zoë Keene",
                                          "-metadata", "composer=Ann Lee",
                                          "-metadata", "genre=Ambient",
                                          "-metadata", "date=1999",
                                          "-metadata", "track=7/12"};
    arguments.insert(arguments.end(), GetParam().encoding.begin(), GetParam().encoding.end());
    const auto file = media.make(GetParam().name, arguments);
    EXPECT_EQ(taglib_tag_reader().tags_of(file), GetParam().tags);
}

audio_tags all_values()
{
    return {.song_title = "Morning \"Light\"",
            .album = "Weather",
            .track_number = 7,
            .year = 1999,
            .musical_genre = "Ambient",
            .authors = "Zoë Keene",
            .composer = "Ann Lee",
            .producer = ""};
}

/// The chunks of a WAV file have a place for each but the composer.
audio_tags all_values_of_chunks()
{
    audio_tags values = all_values();
    values.composer = "";
    return values;
}

INSTANTIATE_TEST_SUITE_P(kinds, taglib_tag_reader_of_kind,
                         testing::Values(tagged_kind{"song.mp3", {}, all_values()},
                                         tagged_kind{"song.m4a", {}, all_values()},
                                         tagged_kind{"song.flac", {}, all_values()},
                                         tagged_kind{"song.ogg", {"-c:a", "libvorbis"}, all_values()},
                                         tagged_kind{"song.aiff", {"-write_id3v2", "1"}, all_values()},
                                         tagged_kind{"song.wav", {}, all_values_of_chunks()}),
                         [](const testing::TestParamInfo<tagged_kind>& tested) {
                             return std::string(tested.param.name).substr(5);
                         });

TEST(taglib_tag_reader, joins_all_authors_in_one_line)
{
    const made_media media;
    const auto file = media.make("song.flac", {"-f", "lavfi", "-i", "sine=duration=0.2"});
    TagLib::FileRef song(file.c_str());
    TagLib::PropertyMap properties;
    properties["ARTIST"] = TagLib::StringList("\"Zoe\" ").append("Two\nLines").append(" Bo ");
    song.file()->setProperties(properties);
    song.save();
    audio_tags authors_alone;
    authors_alone.authors = "Zoe ,, Two Lines,, Bo";
    EXPECT_EQ(taglib_tag_reader().tags_of(file), authors_alone);
}

TEST(taglib_tag_reader, gives_empty_values_for_a_file_without_tags)
{
    const made_media media;
    const auto file = media.make("plain.wav", {"-f", "lavfi", "-i", "sine=duration=0.2", "-bitexact"});
    EXPECT_EQ(taglib_tag_reader().tags_of(file), audio_tags());
}

TEST(taglib_tag_reader, gives_empty_values_for_a_broken_file)
{
    const temporary_folder folder;
    const auto file = write_file(folder.path() / "text.wav", "not a sound");
    EXPECT_EQ(taglib_tag_reader().tags_of(file), audio_tags());
}

TEST(taglib_tag_reader, knows_nothing_of_other_files)
{
    const temporary_folder folder;
    EXPECT_EQ(taglib_tag_reader().tags_of(write_file(folder.path() / "text.txt", "not a sound")),
              std::nullopt);
    EXPECT_EQ(taglib_tag_reader().tags_of(folder.path() / "none.mp3"), std::nullopt);
}

/// An mdls of our own, which answers with its last argument and how many it got.
std::filesystem::path stand_in(const std::filesystem::path& file, const std::string& commands)
{
    write_file(file, "#!/bin/sh\n" + commands);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
}

TEST(mdls_tag_reader, asks_for_the_eight_attributes_raw_and_in_order)
{
    const temporary_folder folder;
    const auto mdls = stand_in(folder.path() / "mdls", "for argument do printf '[%s]' \"$argument\"; done\n");
    EXPECT_EQ(mdls_tag_reader(mdls).tags_of("/Music/A song.mp3").value().album,
              "[-name][kMDItemAlbum][-name][kMDItemAudioTrackNumber][-name][kMDItemAuthors]"
              "[-name][kMDItemComposer][-name][kMDItemMusicalGenre][-name][kMDItemProducer]"
              "[-name][kMDItemRecordingYear][-name][kMDItemTitle][-raw][-nullMarker][][/Music/A song.mp3]");
}

TEST(mdls_tag_reader, runs_no_command_of_a_path)
{
    const temporary_folder folder;
    const auto mdls = stand_in(folder.path() / "mdls", "for last do :; done\nprintf '%s' \"$last\"\n");
    const auto trap = folder.path() / "trap";
    const std::string hostile =
        "/Music/$(touch '" + trap.string() + "')\"; touch '" + trap.string() + "'; `id`.mp3";
    EXPECT_EQ(mdls_tag_reader(mdls).tags_of(hostile).value().album, hostile);
    EXPECT_FALSE(std::filesystem::exists(trap));
    EXPECT_EQ(mdls_tag_reader(mdls).tags_of("-name").value().album, "./-name") << "a path is never an option";
}

TEST(mdls_tag_reader, knows_nothing_when_the_tool_prints_nothing_or_fails)
{
    const temporary_folder folder;
    EXPECT_EQ(mdls_tag_reader(stand_in(folder.path() / "quiet", "exit 0\n")).tags_of("/a"), std::nullopt);
    EXPECT_EQ(mdls_tag_reader(stand_in(folder.path() / "failing", "echo could not find it; exit 1\n"))
                  .tags_of("/a"),
              std::nullopt);
    const output_limits short_limit = {.time = std::chrono::milliseconds(100), .bytes = 100};
    EXPECT_EQ(mdls_tag_reader(stand_in(folder.path() / "slow", "sleep 20\n"), short_limit).tags_of("/a"),
              std::nullopt);
}

TEST(remembered_tags, asks_once_for_each_file)
{
    const temporary_folder folder;
    const auto asked = folder.path() / "asked";
    remembered_tags reader(std::make_unique<mdls_tag_reader>(
        stand_in(folder.path() / "mdls",
                 "for last do :; done\necho \"$last\" >>" + asked.string() + "\nprintf '%s' \"$last\"\n")));
    for (const char* song : {"/a.mp3", "/b.mp3", "/a.mp3"})
        EXPECT_EQ(reader.tags_of(song).value().album, song);
    std::ifstream lines(asked);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(lines), {}), "/a.mp3\n/b.mp3\n");
}

TEST(tag_reader_of_this_system, uses_mdls_where_there_is_one)
{
    const temporary_folder folder;
    stand_in(folder.path() / "mdls", "printf 'from mdls'\n");
    const std::string old_path = std::getenv("PATH");
    setenv("PATH", folder.path().c_str(), 1);
    EXPECT_EQ(tag_reader_of_this_system()->tags_of("/a").value().album, "from mdls");
    setenv("PATH", "/nowhere", 1);
    EXPECT_EQ(tag_reader_of_this_system()->tags_of("/a"), std::nullopt);
    setenv("PATH", old_path.c_str(), 1);
}

} // namespace
