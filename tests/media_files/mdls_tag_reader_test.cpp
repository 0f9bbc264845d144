// SPDX-License-Identifier: MIT
#include "media_files/mdls_tag_reader.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

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
    mdls_tag_reader mdls(
        stand_in(folder.path() / "mdls",
                 "for last do :; done\necho \"$last\" >>" + asked.string() + "\nprintf '%s' \"$last\"\n"));
    remembered_tags reader(mdls);
    for (const char* song : {"/a.mp3", "/b.mp3", "/a.mp3"})
        EXPECT_EQ(reader.tags_of(song).value().album, song);
    std::ifstream lines(asked);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(lines), {}), "/a.mp3\n/b.mp3\n");
}

} // namespace
