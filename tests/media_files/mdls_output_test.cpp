// SPDX-License-Identifier: MIT
#include "media_files/mdls_output.h"

#include <gtest/gtest.h>

#include <string>
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
    return tags_in_mdls_output(raw_form({"", "", authors, "", "", "", "", ""})).value();
}

audio_tags with_track_number(const std::string& number)
{
    return tags_in_mdls_output(raw_form({"", number, "", "", "", "", "", ""})).value();
}

TEST(tags_in_mdls_output, puts_each_value_in_its_place)
{
    const auto tags = tags_in_mdls_output(
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

TEST(tags_in_mdls_output, gives_none_for_a_tool_that_prints_nothing)
{
    EXPECT_EQ(tags_in_mdls_output(""), std::nullopt);
}

TEST(tags_in_mdls_output, takes_values_beyond_the_end_as_empty)
{
    audio_tags album_alone;
    album_alone.album = "Weather";
    EXPECT_EQ(tags_in_mdls_output("Weather"), album_alone);
    EXPECT_EQ(tags_in_mdls_output(raw_form({"", "", "", "", "", "", "", ""})), audio_tags());
}

TEST(tags_in_mdls_output, reads_the_last_value_without_its_nul)
{
    std::string raw = raw_form({"", "", "", "", "", "", "", "Light"});
    raw.pop_back();
    EXPECT_EQ(tags_in_mdls_output(raw)->song_title, "Light");
}

TEST(tags_in_mdls_output, takes_the_number_that_a_text_begins_with)
{
    EXPECT_EQ(with_track_number("7/12").track_number, 7);
    EXPECT_EQ(with_track_number(" 12").track_number, 12);
    EXPECT_EQ(with_track_number("-3").track_number, -3);
    EXPECT_EQ(with_track_number("+3").track_number, 3);
    EXPECT_EQ(with_track_number("B4").track_number, 0) << "no number";
    EXPECT_EQ(with_track_number(" ").track_number, 0);
    EXPECT_EQ(with_track_number("").track_number, std::nullopt) << "an empty cell";
    EXPECT_GT(with_track_number("99999999999999999999").track_number, 1e18);
    EXPECT_EQ(tags_in_mdls_output(raw_form({"", "", "", "", "", "", "1999-05-01", ""}))->year, 1999);
}

TEST(tags_in_mdls_output, keeps_the_comma_that_a_list_puts_after_a_name)
{
    EXPECT_EQ(with_authors("(\n    \"Zoë Keene\"\n)").authors, "Zoë Keene");
    EXPECT_EQ(with_authors("(\n    \"Ann\",\n    Lee\n)").authors, "Ann,, Lee");
    EXPECT_EQ(with_authors("(\n)").authors, "");
    EXPECT_EQ(with_authors("Ann").authors, "") << "a list has lines around its names";
    EXPECT_EQ(with_authors("").authors, "");
}

} // namespace
