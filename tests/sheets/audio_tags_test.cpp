// SPDX-License-Identifier: MIT
#include "sheets/audio_tags.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

using namespace tallyframe;

namespace {

/// A raw form out of values: each with a NUL behind it.
std::string raw_form(const std::vector<std::string>& values)
{
    std::string raw;
    for (const std::string& value : values)
        raw += value + '\0';
    return raw;
}

audio_tags with_authors(const std::string& authors)
{
    return parse_audio_tags(raw_form({"", "", authors, "", "", "", "", ""})).value();
}

audio_tags with_track_number(const std::string& number)
{
    return parse_audio_tags(raw_form({"", number, "", "", "", "", "", ""})).value();
}

TEST(parse_audio_tags, puts_each_value_in_its_place)
{
    const auto tags = parse_audio_tags(
        raw_form({"Weather", "7", "(\n    \"Zoë Keene\"\n)", "Ann Lee", "Ambient", "Bo", "1999", "Light"}));
    const audio_tags expected = {.song_title = "Light",
                                 .album = "Weather",
                                 .track_number = 7,
                                 .year = 1999,
                                 .musical_genre = "Ambient",
                                 .authors = "Zoë Keene",
                                 .composer = "Ann Lee",
                                 .producer = "Bo"};
    EXPECT_EQ(tags, expected);
}

TEST(parse_audio_tags, gives_none_for_a_tool_that_prints_nothing)
{
    EXPECT_EQ(parse_audio_tags(""), std::nullopt);
}

TEST(parse_audio_tags, takes_values_beyond_the_end_as_empty)
{
    audio_tags album_alone;
    album_alone.album = "Weather";
    EXPECT_EQ(parse_audio_tags("Weather"), album_alone);
    EXPECT_EQ(parse_audio_tags(raw_form({"", "", "", "", "", "", "", ""})), audio_tags());
}

TEST(parse_audio_tags, reads_the_last_value_without_its_nul)
{
    std::string raw = raw_form({"", "", "", "", "", "", "", "Light"});
    raw.pop_back();
    EXPECT_EQ(parse_audio_tags(raw)->song_title, "Light");
}

TEST(parse_audio_tags, takes_the_number_that_a_text_begins_with)
{
    EXPECT_EQ(with_track_number("7/12").track_number, 7);
    EXPECT_EQ(with_track_number(" 12").track_number, 12);
    EXPECT_EQ(with_track_number("-3").track_number, -3);
    EXPECT_EQ(with_track_number("+3").track_number, 3);
    EXPECT_EQ(with_track_number("B4").track_number, 0) << "no number";
    EXPECT_EQ(with_track_number(" ").track_number, 0);
    EXPECT_EQ(with_track_number("").track_number, std::nullopt) << "an empty cell";
    EXPECT_GT(with_track_number("99999999999999999999").track_number, 1e18);
    EXPECT_EQ(parse_audio_tags(raw_form({"", "", "", "", "", "", "1999-05-01", ""}))->year, 1999);
}

TEST(parse_audio_tags, keeps_the_comma_that_a_list_puts_after_a_name)
{
    EXPECT_EQ(with_authors("(\n    \"Zoë Keene\"\n)").authors, "Zoë Keene");
    EXPECT_EQ(with_authors("(\n    \"Ann\",\n    Lee\n)").authors, "Ann,, Lee");
    EXPECT_EQ(with_authors("(\n)").authors, "");
    EXPECT_EQ(with_authors("Ann").authors, "") << "a list has lines around its names";
    EXPECT_EQ(with_authors("").authors, "");
}

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

class counting_reader final : public audio_tag_reader {
public:
    std::string raw_tags(const std::filesystem::path& file) override
    {
        files.push_back(file.string());
        return raw;
    }
    std::string raw = raw_form({"Weather", "", "", "", "", "", "", "Light"});
    std::vector<std::string> files;
};

class audio_tag_catalogue_ : public testing::Test {
protected:
    const audio_tags* tags_of(const std::string& track, std::optional<std::string> path)
    {
        clip_record clip;
        clip.track = track;
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
    reader.raw.clear();
    EXPECT_EQ(tags_of("A1", "/song.mp3"), nullptr);
}

} // namespace
