// SPDX-License-Identifier: MIT
#include "sheets/audio_tags.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

using namespace tallyframe;

namespace {

/// Finds every file but those called "none", and counts.
class counting_locator final : public media_locator {
public:
    std::optional<std::filesystem::path> locate(const std::string& path) override
    {
        ++calls;
        return path.ends_with("none") ? std::nullopt : std::optional<std::filesystem::path>("/found" + path);
    }
    int calls = 0;
};

audio_tags light()
{
    audio_tags tags;
    tags.song_title = "Light";
    return tags;
}

class counting_reader final : public audio_tag_reader {
public:
    std::optional<audio_tags> tags_of(const std::filesystem::path& file) override
    {
        files.push_back(file.string());
        return known;
    }
    std::optional<audio_tags> known = light();
    std::vector<std::string> files;
};

class audio_tag_catalogue_ : public testing::Test {
protected:
    const audio_tags* tags_of(const std::string& track, std::optional<std::string> path)
    {
        clip_record clip;
        clip.place.track = track;
        clip.path = std::move(path);
        return tags.tags_of(clip);
    }

    counting_locator locator;
    counting_reader reader;
    audio_tag_catalogue tags{locator, reader};
};

TEST_F(audio_tag_catalogue_, reads_the_file_where_it_is_found)
{
    const audio_tags* found = tags_of("A1", "/song.mp3");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->song_title, "Light");
    EXPECT_EQ(reader.files, std::vector<std::string>{"/found/song.mp3"});
}

TEST_F(audio_tag_catalogue_, has_no_tags_for_video_rows)
{
    EXPECT_EQ(tags_of("V1", "/song.mp3"), nullptr);
    EXPECT_EQ(locator.calls, 0);
}

TEST_F(audio_tag_catalogue_, has_no_tags_without_a_file)
{
    EXPECT_EQ(tags_of("A1", "/none"), nullptr);
    EXPECT_EQ(tags_of("A1", std::nullopt), nullptr);
    EXPECT_TRUE(reader.files.empty());
}

TEST_F(audio_tag_catalogue_, has_no_tags_for_a_path_with_a_double_quote)
{
    EXPECT_EQ(tags_of("A1", "/12\" mix.mp3"), nullptr);
    EXPECT_TRUE(reader.files.empty());
}

TEST_F(audio_tag_catalogue_, looks_at_each_file_once)
{
    const audio_tags* first = tags_of("A1", "/song.mp3");
    EXPECT_EQ(tags_of("A2", "/song.mp3"), first);
    tags_of("A1", "/none");
    tags_of("A1", "/none");
    EXPECT_EQ(locator.calls, 2);
    EXPECT_EQ(reader.files.size(), 1U);
}

TEST_F(audio_tag_catalogue_, has_no_tags_when_the_reader_knows_nothing)
{
    reader.known.reset();
    EXPECT_EQ(tags_of("A1", "/song.mp3"), nullptr);
}

} // namespace
