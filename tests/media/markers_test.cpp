// SPDX-License-Identifier: MIT
#include "media/markers.h"
#include "run/failures.h"
#include "support/counting_progress.h"
#include "support/parsed_text.h"
#include "support/xmeml_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;

marker_record record_of(const std::string& markup, std::int64_t offset = 0, bool is_ppro = false)
{
    const parsed_xml parsed = parsed_text(markup);
    return marker_hash(parsed.document.root(), offset, is_ppro);
}

std::string marker_with(std::string_view markup)
{
    return marker("M", 0, -1, markup);
}

std::string rgb(int red, int green, int blue)
{
    return around("color", element("red", red) + element("green", green) + element("blue", blue));
}

TEST(marker_hash, covers_one_frame_without_an_out_point)
{
    const marker_record record = record_of(marker("M", 100));
    EXPECT_EQ(record.in_point, 100);
    EXPECT_EQ(record.out_point, 100);
    EXPECT_EQ(record.duration, 0);
}

TEST(marker_hash, ends_on_the_frame_before_the_out_point)
{
    const marker_record record = record_of(marker("M", 100, 150));
    EXPECT_EQ(record.out_point, 149);
    EXPECT_EQ(record.duration, 50);
}

TEST(marker_hash, adds_the_offset_to_the_frames_only)
{
    const marker_record record = record_of(marker("M", 100, 150), 90'000);
    EXPECT_EQ(record.in_point, 100);
    EXPECT_EQ(record.in_frame, 90'100);
    EXPECT_EQ(record.out_point, 149);
    EXPECT_EQ(record.out_frame, 90'149);
}

TEST(marker_hash, cuts_decimals_towards_zero)
{
    const marker_record record = record_of("<marker><name/><in>120.7</in><out/></marker>");
    EXPECT_EQ(record.in_point, 120);
    EXPECT_EQ(record.duration, -120);
    EXPECT_EQ(record.out_point, -1);
    EXPECT_EQ(record_of("<marker><name/><in>-1.9</in><out>-1</out></marker>").in_point, -1);
}

TEST(marker_hash, escapes_double_quotes_in_name_and_comment)
{
    const marker_record record = record_of(marker(R"(Say "cut")", 0, -1, element("comment", R"(a "b")")));
    EXPECT_EQ(record.name, "Say &quot;cut&quot;");
    EXPECT_EQ(record.comment, "a &quot;b&quot;");
}

TEST(marker_hash, tells_the_type_by_the_first_known_tag)
{
    EXPECT_EQ(record_of(marker_with(element("comment", "<SCORING> cue 3 <CHAPTER>"))).type, "Chapter");
    EXPECT_EQ(record_of(marker_with(element("comment", "<SCORING><COMPRESSION>"))).type, "Compression");
    EXPECT_EQ(record_of(marker_with(element("comment", "x <SCORING>"))).type, "Scoring");
    EXPECT_EQ(record_of(marker_with(element("comment", "<chapter>"))).type, "Note");
    EXPECT_EQ(record_of(marker_with(element("comment", "<CHAPTER> 1"))).comment, "<CHAPTER> 1");
}

TEST(marker_hash, tells_an_absent_comment_from_an_empty_one)
{
    EXPECT_EQ(record_of(marker("M", 0)).comment, std::nullopt);
    EXPECT_EQ(record_of(marker("M", 0)).type, "Note");
    EXPECT_EQ(record_of(marker_with("<comment/>")).comment, "");
}

TEST(marker_hash, names_the_colour)
{
    const auto name_of = [](int red, int green, int blue) {
        return record_of(marker_with(rgb(red, green, blue))).color;
    };
    EXPECT_EQ(name_of(255, 0, 0), "Red");
    EXPECT_EQ(name_of(255, 127, 0), "Orange");
    EXPECT_EQ(name_of(255, 255, 0), "Yellow");
    EXPECT_EQ(name_of(48, 191, 72), "Green");
    EXPECT_EQ(name_of(48, 191, 191), "Turquoise");
    EXPECT_EQ(name_of(0, 128, 255), "Blue");
    EXPECT_EQ(name_of(127, 0, 255), "Purple");
    EXPECT_EQ(name_of(255, 0, 127), "Pink");
    EXPECT_EQ(name_of(10, 20, 30), "Red");
    EXPECT_EQ(name_of(255, 255, 255), "Red") << "white has no components";
    EXPECT_EQ(record_of(marker("M", 0)).color, "");
}

TEST(marker_hash, names_the_packed_colour)
{
    const auto name_of = [](std::string_view packed) {
        return record_of(marker_with(element("pproColor", packed))).color;
    };
    EXPECT_EQ(name_of("4281740498"), "Red");
    EXPECT_EQ(name_of("4280578025"), "Orange");
    EXPECT_EQ(name_of("4281049552"), "Yellow");
    EXPECT_EQ(name_of("4292277273"), "Turquoise");
    EXPECT_EQ(name_of("4294741314"), "Blue");
    EXPECT_EQ(name_of("4289825711"), "Purple");
    EXPECT_EQ(name_of("4294967295"), "White");
    EXPECT_EQ(name_of("5"), "Green");
    EXPECT_EQ(name_of(""), "Green");
}

TEST(marker_hash, reads_the_digits_at_the_front_of_a_component)
{
    const std::string odd = "<color><red> 255x</red><green>127.9</green><blue/></color>";
    EXPECT_EQ(record_of(marker_with(odd)).color, "Orange");
}

TEST(marker_hash, lets_even_an_unknown_packed_colour_win)
{
    EXPECT_EQ(record_of(marker_with(rgb(255, 127, 0) + "<pproColor>5</pproColor>")).color, "Green");
    EXPECT_EQ(record_of(marker_with("<pproColor>4281740498</pproColor>" + rgb(0, 128, 255))).color, "Red");
}

TEST(marker_hash, is_green_without_colour_in_premiere_pro)
{
    EXPECT_EQ(record_of(marker("M", 0), 0, true).color, "Green");
    EXPECT_EQ(record_of(marker_with(rgb(0, 128, 255)), 0, true).color, "Blue");
}

TEST(marker_hash, refuses_a_marker_without_name_in_or_out)
{
    EXPECT_THROW(record_of("<marker><in>1</in><out>-1</out></marker>"), analysis_error);
    EXPECT_THROW(record_of("<marker><name>M</name><out>-1</out></marker>"), analysis_error);
    EXPECT_THROW(record_of("<marker><name>M</name><in>1</in></marker>"), analysis_error);
    EXPECT_THROW(record_of(marker_with("<color><red>1</red><green>1</green></color>")), analysis_error);
}

TEST(marker_hash, says_which_marker_lacks_what)
{
    const parsed_xml parsed =
        parsed_text("<clipitem><name>Boat</name><marker><name>Cue</name><out>1</out></marker></clipitem>");
    try {
        marker_hash(parsed.document.root().child("marker"), 0);
        FAIL();
    } catch (const analysis_error& error) {
        EXPECT_THAT(error.what(),
                    testing::StartsWith(R"(The marker "Cue" of the clipitem "Boat" has no "in" element.)"));
    }
}

TEST(marker_hash, stays_in_range_on_absurd_positions)
{
    const std::string huge(400, '9');
    const marker_record record =
        record_of("<marker><name/><in>-" + huge + "</in><out>" + huge + "</out></marker>", INT64_MAX / 4);
    EXPECT_GT(record.duration, 0);
    EXPECT_LT(record.in_point, 0);
}

} // namespace

} // namespace tallyframe
