// SPDX-License-Identifier: MIT
#include "analysis/filters_and_motion.h"
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
using testing::IsEmpty;

analysis_result clip_with(std::string_view filters)
{
    return analysis_of(xmeml().sequence("Reel 1").video_track({clip("Boat").with(filters)}));
}

std::vector<std::string> filters_of(std::string_view filters)
{
    return names_of(clip_with(filters).video_clip_filter_array);
}

std::vector<std::string> motion_of(std::string_view filters)
{
    return names_of(clip_with(filters).video_clip_motion_array);
}

std::string motion(std::string_view effectid, std::string_view name, std::string_view parameters,
                   std::string_view enabled = {})
{
    return filter{std::string(name), std::string(effectid), "motion", std::string(enabled),
                  std::string(parameters)}
        .text();
}

std::string basic(std::string_view parameters)
{
    return motion("basic", "Basic Motion", parameters);
}

std::string keyframe(std::string_view text)
{
    return around("keyframe", element("when", 0) + value(text));
}

TEST(filters, carry_place_and_state_of_their_clip)
{
    const analysis_result result =
        analysis_of(xmeml()
                        .sequence("Reel 1", {.start_frame = 1000})
                        .video_track({clip("Boat").at(10, 30).enabled("False").with(
                                         filter{"Blur", "Gaussian Blur", "filter", "TRUE"}.text())},
                                     {.attributes = R"(MZ.TrackName="Main")"}));
    ASSERT_EQ(result.video_clip_filter_array.size(), 1U);
    const filter_record& record = result.video_clip_filter_array[0];
    EXPECT_EQ(record.name, "Blur");
    EXPECT_TRUE(record.apple);
    EXPECT_EQ(record.enabled, "FALSE") << "the clip's, not the filter's";
    EXPECT_EQ(record.place.track, "V1");
    EXPECT_EQ(record.place.track_name, " Main");
    EXPECT_EQ(record.clip_name, "Boat");
    EXPECT_EQ(record.place.seq_start_frame, 1010);
    EXPECT_EQ(record.place.seq_end_frame, 1029);
    EXPECT_EQ(record.place.seq_length, 20);
}

TEST(filters, that_are_switched_off_are_left_out)
{
    EXPECT_THAT(filters_of(filter{"A", "a", "filter", "FALSE"}.text()
                           + filter{"B", "b", "filter", "False"}.text()
                           + filter{"C", "c", "filter", "TRUE"}.text()
                           + filter{"D", "d", "filter", "0"}.text() + filter{"E", "e"}.text()),
                ElementsAre("C", "D", "E"));
}

TEST(filters, are_built_in_by_their_effect_id)
{
    const auto is_built_in = [](std::string_view effect) {
        return clip_with(around("filter",
                                around("effect", "<effecttype>filter</effecttype>" + std::string(effect))))
            .video_clip_filter_array.at(0)
            .apple;
    };
    EXPECT_TRUE(is_built_in("<effectid>Gaussian Blur</effectid>"));
    EXPECT_FALSE(is_built_in("<name>Gaussian Blur</name>"));
    EXPECT_FALSE(is_built_in("<effectid>gaussian blur</effectid>"));
    EXPECT_FALSE(is_built_in("<effectid>Gaussian Blur </effectid>"));
}

TEST(filters, need_no_name)
{
    EXPECT_THAT(filters_of("<filter><effect><effecttype>filter</effecttype></effect></filter>"),
                ElementsAre(""));
}

TEST(filters, are_only_effects_of_that_type)
{
    EXPECT_THAT(filters_of(filter{"A", "a", "Filter"}.text() + filter{"B", "b", "motion"}.text()
                           + filter{"C", "c", ""}.text()),
                IsEmpty());
}

TEST(motion, at_its_neutral_values_is_not_listed)
{
    EXPECT_THAT(motion_of(basic(parameter("scale", "Scale", value("100"))
                                + parameter("rotation", "Rotation", value("0"))
                                + parameter("center", "Center", point("0", "0"))
                                + parameter("centerOffset", "Anchor Point", point("0", "0")))),
                IsEmpty());
    EXPECT_THAT(motion_of(basic("")), IsEmpty());
}

TEST(motion, lists_each_changed_property_in_order)
{
    const std::string all = parameter("centerOffset", "Anchor Point", point("0", "0.1"))
        + parameter("center", "Center", point("0.5", "0")) + parameter("rotation", "Rotation", value("90"))
        + parameter("scale", "Scale", value("50"));
    EXPECT_THAT(motion_of(basic(all)), ElementsAre("Scale (50%)", "Rotation", "Center", "Anchor Point"));
}

TEST(motion, takes_names_from_the_document)
{
    EXPECT_THAT(motion_of(basic(parameter("scale", "Skalierung", value("50")))),
                ElementsAre("Skalierung (50%)"));
}

TEST(motion, compares_text_and_not_numbers_on_purpose)
{
    EXPECT_THAT(motion_of(basic(parameter("rotation", "Rotation", value("0.0")))), ElementsAre("Rotation"));
    EXPECT_THAT(motion_of(basic(parameter("scale", "Scale", value("100.0")))), ElementsAre("Scale (100.0%)"));
}

TEST(motion, takes_what_is_absent_for_neutral)
{
    EXPECT_THAT(motion_of(basic(parameter("scale", "Scale", "") + parameter("rotation", "Rotation", "")
                                + parameter("center", "Center", around("value", "<horiz>0</horiz>"))
                                + parameter("centerOffset", "Anchor Point", value("")))),
                IsEmpty());
}

TEST(motion, joins_the_values_of_a_keyframed_scale)
{
    const std::string scale =
        parameter("scale", "Scale", value("7") + keyframe("50") + keyframe("75") + keyframe("100"));
    analyzed_document document(xmeml().sequence("Reel 1").video_track({clip("Boat").with(basic(scale))}));
    EXPECT_THAT(names_of(document.result.video_clip_motion_array), ElementsAre("Scale (50%, 75%, 100%)"));
    const xml_node joined = document.parsed.document.root().first(
        "sequence/media/video/track/clipitem/filter/effect/parameter/value");
    EXPECT_EQ(document.additions.text_of(joined), "50%, 75%, 100") << "it stays for later analyses";
    EXPECT_EQ(joined.text(), "7") << "not in the document";
    document.analyze_again();
    EXPECT_THAT(names_of(document.result.video_clip_motion_array), ElementsAre("Scale (50%, 75%, 100%)"));
}

TEST(motion, with_one_neutral_key_frame_is_not_listed)
{
    EXPECT_THAT(motion_of(basic(parameter("scale", "Scale", value("50") + keyframe("100")))), IsEmpty());
}

TEST(motion, refuses_a_keyframed_scale_without_a_value)
{
    try {
        motion_of(basic(parameter("scale", "Scale", keyframe("50"))));
        FAIL();
    } catch (const analysis_error& error) {
        EXPECT_THAT(error.what(),
                    HasSubstr(R"(The clip "Boat" on track V1 has a keyframed scale without a "value")"));
    }
}

TEST(motion, looks_at_the_first_key_frame_of_a_rotation)
{
    EXPECT_THAT(motion_of(basic(parameter("rotation", "Rotation", keyframe("0") + keyframe("90")))),
                IsEmpty());
    EXPECT_THAT(motion_of(basic(parameter("rotation", "Rotation", keyframe("90") + keyframe("0")))),
                ElementsAre("Rotation"));
}

TEST(motion, lists_a_crop_with_any_value)
{
    const auto crop = [](std::string_view left, std::string_view right) {
        return motion("crop", "Crop",
                      parameter("left", "left", value(left)) + parameter("right", "right", value(right)));
    };
    EXPECT_THAT(motion_of(crop("0", "0")), IsEmpty());
    EXPECT_THAT(motion_of(crop("0", "10")), ElementsAre("Crop"));
    EXPECT_THAT(motion_of(motion("crop", "Crop", "")), IsEmpty());
}

TEST(motion, lists_a_distortion_with_any_corner_or_aspect)
{
    const auto distort = [](std::string_view parameters) {
        return motion_of(motion("deformation", "Distort", parameters));
    };
    const std::string neutral = parameter("ulcorner", "Upper Left", point("-0.5", "-0.5"))
        + parameter("urcorner", "Upper Right", point("0.5", "-0.5"))
        + parameter("lrcorner", "Lower Right", point("0.5", "0.5"))
        + parameter("llcorner", "Lower Left", point("-0.5", "0.5"))
        + parameter("aspect", "Aspect", value("0"));
    EXPECT_THAT(distort(neutral), IsEmpty());
    EXPECT_THAT(distort(""), IsEmpty());
    EXPECT_THAT(distort(parameter("aspect", "Aspect", value("20"))), ElementsAre("Distort"));
    EXPECT_THAT(distort(parameter("ulcorner", "", point("-0.4", "-0.5"))), ElementsAre("Distort"));
    EXPECT_THAT(distort(parameter("urcorner", "", point("0.5", "0.5"))), ElementsAre("Distort"));
    EXPECT_THAT(distort(parameter("lrcorner", "", point("0.50", "0.5"))), ElementsAre("Distort"));
    EXPECT_THAT(distort(parameter("llcorner", "", point("-0.5", "-0.5"))), ElementsAre("Distort"));
}

TEST(motion, lists_an_opacity_other_than_100)
{
    const auto opacity = [](std::string_view markup) {
        return motion_of(motion("opacity", "Opacity", parameter("opacity", "opacity", markup)));
    };
    EXPECT_THAT(opacity(value("100")), IsEmpty());
    EXPECT_THAT(opacity(""), IsEmpty());
    EXPECT_THAT(opacity(value("40")), ElementsAre("Opacity"));
}

TEST(motion, always_lists_a_time_remap_with_its_speed)
{
    const auto remap = [](const clip& item) {
        return names_of(analysis_of(xmeml().sequence("Reel 1").video_track({item})).video_clip_motion_array);
    };
    EXPECT_THAT(remap(clip("A").duration(2000).speed("50")), ElementsAre("Time Remap (50%)"));
    EXPECT_THAT(remap(clip("A").duration(2000).speed("50").reversed()), ElementsAre("Time Remap (-50%)"));
    EXPECT_THAT(remap(clip("A").duration(2000).speed("33.5")), ElementsAre("Time Remap (34%)"));
    EXPECT_THAT(remap(clip("A").duration(2000).speed("0").reversed()), ElementsAre("Time Remap (0%)"));
    EXPECT_THAT(remap(clip("A").speed("50")), ElementsAre("Time Remap (100%)")) << "as long as its media";
    EXPECT_THAT(remap(clip("A").without_file().speed("50")), ElementsAre("Time Remap (100%)"));
}

TEST(motion, heeds_the_switch_of_other_effects_only_on_purpose)
{
    EXPECT_THAT(motion_of(motion("dropshadow", "Drop Shadow", "", "False")
                          + motion("motionblur", "Motion Blur", "", "TRUE") + motion("", "Odd", "")),
                ElementsAre("Motion Blur", "Odd"));
    EXPECT_THAT(motion_of(motion("opacity", "Opacity", parameter("o", "o", value("5")), "FALSE")),
                ElementsAre("Opacity"));
    EXPECT_THAT(motion_of(motion("crop", "Crop", parameter("o", "o", value("5")), "FALSE")),
                ElementsAre("Crop"));
}

TEST(motion, carries_place_and_state_of_its_clip)
{
    const analysis_result result = analysis_of(
        xmeml()
            .sequence("Reel 1", {.start_frame = 1000})
            .video_track({clip("Boat").at(10, 30).enabled("FALSE").with(motion("x", "Glow", ""))}));
    ASSERT_EQ(result.video_clip_motion_array.size(), 1U);
    const motion_record& record = result.video_clip_motion_array[0];
    EXPECT_EQ(record.clip_name, "Boat");
    EXPECT_EQ(record.enabled, "FALSE");
    EXPECT_EQ(record.place.seq_start_frame, 1010);
    EXPECT_EQ(record.place.seq_end_frame, 1029);
    EXPECT_EQ(record.place.track, "V1");
}

} // namespace

} // namespace tallyframe
