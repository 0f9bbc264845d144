// SPDX-License-Identifier: MIT
#include "analysis/generators.h"
#include "run/failures.h"
#include "support/analyzed_document.h"
#include "support/names_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::HasSubstr;

std::string generator(std::int64_t start, std::int64_t end, std::string_view markup)
{
    return around("generatoritem", element("start", start) + element("end", end) + std::string(markup));
}

std::string title(std::string_view parameters)
{
    return generator(
        0, 50, element("name", "Text") + around("effect", element("name", "Text") + std::string(parameters)));
}

generator_record record_of(const std::vector<track_item>& items)
{
    return analysis_of(xmeml().sequence("Reel 1").video_track(items)).generatoritem_array.at(0);
}

generator_record graphic(std::string_view filters)
{
    return record_of({clip("Graphic").file({.media_source = "GraphicAndType"}).with(filters)});
}

std::string graphic_filter(std::string_view name, std::string_view base64 = {})
{
    return filter{std::string(name),
                  "GraphicAndType",
                  "filter",
                  {},
                  base64.empty() ? "" : parameter("1", "Source Text", value(base64))}
        .text();
}

// {"mTextParam":{"mStyleSheet":{"mText":"One\rTwo\r"}}} in UTF-16LE behind its length
constexpr const char* two_lines =
    "agAAAAAAAAB7ACIAbQBUAGUAeAB0AFAAYQByAGEAbQAiADoAewAiAG0AUwB0AHkAbABlAFMAaABlAGUAdAAiADoAewAiAG0AVABlAHgA"
    "dAAiADoAIgBPAG4AZQBcAHIAVAB3AG8AXAByACIAfQB9AH0A";

TEST(generators, stand_on_the_clock_of_the_sequence)
{
    const analysis_result result = analysis_of(
        xmeml()
            .sequence("Reel 1", {.start_frame = 1000})
            .video_track({generator(10, 30, element("name", "Slate") + "<enabled>FALSE</enabled>")},
                         {.attributes = R"(MZ.TrackName="Titles")"}));
    const generator_record& record = result.generatoritem_array.at(0);
    EXPECT_EQ(record.place.track, "V1");
    EXPECT_EQ(record.place.track_name, " Titles");
    EXPECT_EQ(record.place.seq_start_frame, 1010);
    EXPECT_EQ(record.place.seq_end_frame, 1029);
    EXPECT_EQ(record.place.seq_length, 20);
    EXPECT_EQ(record.enabled, "TRUE") << "the switch of the item itself does not count, on purpose";
}

TEST(generators, are_disabled_with_their_track)
{
    EXPECT_EQ(analysis_of(xmeml().sequence("Reel 1").video_track({title("")}, {.enabled = "false"}))
                  .generatoritem_array.at(0)
                  .enabled,
              "FALSE");
}

TEST(generators, join_two_lines_of_a_title)
{
    const generator_record record = record_of(
        {title(parameter("str", "Text", value("Hello")) + parameter("str2", "Text 2", value("World")))});
    EXPECT_EQ(record.text, "Hello  |  World");
}

TEST(generators, join_what_they_hold_in_order)
{
    EXPECT_EQ(record_of({title(parameter("str2", "", value("2")) + parameter("s", "", value("s"))
                               + parameter("str1", "", value("1")))})
                  .text,
              "  |  2s1");
}

TEST(generators, list_each_font_once)
{
    EXPECT_EQ(record_of({title(parameter("font", "Font", value("Lucida Grande"))
                               + parameter("font2", "Font", value("Arial"))
                               + parameter("font3", "Font", value("Lucida Grande")))})
                  .font,
              "Lucida Grande, Arial");
    EXPECT_EQ(record_of({title(parameter("fontname", "Font Name", value("Arial")))}).font, "");
}

TEST(generators, skip_parameters_without_a_value)
{
    EXPECT_EQ(record_of({title("<parameter>str</parameter>" + parameter("str", "", "")
                               + parameter("other", "Other", value("x")))})
                  .text,
              "");
}

TEST(generators, are_named_by_the_first_name_anywhere_inside)
{
    const generator_record record = record_of(
        {generator(0, 5, around("effect", element("name", "Outline Text")) + element("name", "Mine"))});
    EXPECT_EQ(record.name, "Outline Text");
    EXPECT_EQ(record.type, "Mine") << "a name of the item itself is its type";
}

TEST(generators, are_of_the_type_that_their_effect_names)
{
    EXPECT_EQ(record_of({generator(0, 5, around("effect", element("name", "Color")))}).type, "Color");
}

TEST(generators, are_unknown_without_any_name)
{
    const generator_record record = record_of({generator(0, 5, "")});
    EXPECT_EQ(record.type, "Unknown");
    EXPECT_EQ(record.name, std::nullopt);
}

TEST(generators, take_hidden_ends_from_their_neighbours)
{
    const generator_record record =
        record_of({transition(40, 60, "", "Wipe"), generator(-1, -1, ""), transition(90, 100, "", "Wipe")});
    EXPECT_EQ(record.place.seq_start_frame, 40);
    EXPECT_EQ(record.place.seq_end_frame, 99);
}

TEST(generators, take_even_a_hidden_end_of_a_neighbour)
{
    EXPECT_EQ(
        record_of({std::string("<x><start>-1</start></x>"), generator(-1, 50, "")}).place.seq_start_frame,
        -1);
}

TEST(generators, need_a_neighbour_for_a_hidden_end)
{
    EXPECT_THROW(record_of({generator(-1, 50, "")}), analysis_error);
    EXPECT_THROW(record_of({generator(0, -1, "")}), analysis_error);
    EXPECT_THROW(record_of({std::string("<note/>"), generator(-1, 50, "")}), analysis_error);
    EXPECT_THROW(record_of({around("generatoritem", element("name", "x"))}), analysis_error);
    try {
        record_of({generator(0, -1, element("name", "Slate"))});
        FAIL();
    } catch (const analysis_error& error) {
        EXPECT_THAT(error.what(), HasSubstr(R"(The generator "Slate" on track V1 has the end -1)"));
    }
}

TEST(graphics, hold_the_names_of_their_effects_and_the_lines_of_their_text)
{
    const generator_record record =
        graphic(graphic_filter("Title 1", two_lines) + graphic_filter("") + graphic_filter("Title 2"));
    EXPECT_EQ(record.type, "GraphicAndType");
    EXPECT_EQ(record.name, "Graphic");
    EXPECT_EQ(record.text, "Title 1  |  Title 2  |  One  |  Two");
    EXPECT_EQ(record.font, "");
}

TEST(graphics, with_a_plain_font_name_hold_only_the_names_of_their_effects)
{
    const generator_record record = graphic(graphic_filter("Title 1", "AAFBcmlhbC1Cb2xkAA=="));
    EXPECT_EQ(record.font, "Arial-Bold");
    EXPECT_EQ(record.text, "Title 1");
}

TEST(graphics, read_the_text_of_any_effect)
{
    EXPECT_EQ(
        graphic(filter{"X", "other", "filter", {}, parameter("7", "Source Text", value(two_lines))}.text())
            .text,
        "One  |  Two");
    EXPECT_EQ(
        graphic(filter{"X", "other", "filter", {}, parameter("7", "Source text", value(two_lines))}.text())
            .text,
        "");
}

TEST(graphics, are_listed_though_their_text_cannot_be_read)
{
    const generator_record record = graphic(graphic_filter("Title 1", "ewB7AHsA"));
    EXPECT_EQ(record.text, "Title 1");
    EXPECT_EQ(record.font, "");
    EXPECT_EQ(graphic("").text, "");
}

TEST(graphics, stand_where_their_clip_stands)
{
    const generator_record record =
        record_of({clip("Graphic").at(10, 30).enabled("FALSE").file({.media_source = "GraphicAndType"})});
    EXPECT_EQ(record.place.track, "V1");
    EXPECT_EQ(record.place.seq_start_frame, 10);
    EXPECT_EQ(record.place.seq_end_frame, 29);
    EXPECT_EQ(record.enabled, "FALSE");
}

} // namespace

} // namespace tallyframe
