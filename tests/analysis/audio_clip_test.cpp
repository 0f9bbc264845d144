// SPDX-License-Identifier: MIT
#include "analysis/audio_clip.h"
#include "analysis/link_xml.h"
#include "support/analyzed_document.h"
#include "support/names_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

analysis_result track_of(const std::vector<track_item>& items)
{
    return analysis_of(xmeml().sequence("Reel 1").audio_track(items));
}

clip_record only_clip(const std::vector<track_item>& items)
{
    return track_of(items).audio_clip_data_array.at(0);
}

constexpr const char* audio_media = "<media><audio><samplecharacteristics><samplerate>48000</samplerate></"
                                    "samplecharacteristics></audio></media>";

TEST(audio_clip, carries_what_its_file_says_of_sound)
{
    const clip_record record =
        only_clip({clip("Song").file({.path = "/song.wav", .reel = "S1", .with = audio_media})});
    EXPECT_EQ(record.place.track, "A1");
    EXPECT_EQ(record.samplerate, "48000");
    EXPECT_EQ(record.audio_format, "");
    EXPECT_EQ(record.reel_name, "S1");
    EXPECT_EQ(record.path, "/song.wav");
    EXPECT_EQ(record.displayformat, display_format::non_drop_frame);
    EXPECT_EQ(record.fcp_rate, (frame_rate{25, false}));
}

TEST(audio_clip, has_nothing_of_a_picture)
{
    const clip_record record = only_clip({clip("Song").file({.duration = {}})});
    EXPECT_FALSE(record.isImage);
    EXPECT_EQ(record.type, std::nullopt);
    EXPECT_EQ(record.frame_size, std::nullopt);
    EXPECT_EQ(record.video_format, std::nullopt);
    EXPECT_EQ(record.image_time, std::nullopt);
}

TEST(audio_clip, never_has_a_roll_name_on_purpose)
{
    const std::string timecodes =
        "<timecode><source>source</source></timecode><timecode><source>sound</source>"
        "<reel><name>SR1</name></reel></timecode>";
    EXPECT_EQ(only_clip({clip("Song").file({.with = timecodes})}).roll_name, std::nullopt);
}

TEST(audio_clip, joins_the_markup_of_its_links)
{
    const std::string links =
        "<link><linkclipref>a</linkclipref></link><x/><link><linkclipref>b</linkclipref></link>";
    const analyzed_document document(
        xmeml().sequence("Reel 1").audio_track({clip("linked").with(links), clip("alone").at(50, 60)}));
    const auto& records = document.result.audio_clip_data_array;
    EXPECT_EQ(link_xml(records.at(0)),
              "<link><linkclipref>a</linkclipref></link><link><linkclipref>b</linkclipref></link>");
    EXPECT_EQ(link_xml(records.at(1)), "");
}

TEST(audio_clip, on_generated_media_is_a_generated_item_without_text)
{
    const std::string title =
        filter{
            "Title", "GraphicAndType", "filter", {}, parameter("1", "Source Text", value("QXJpYWwtQm9sZA=="))}
            .text();
    const analysis_result result =
        track_of({clip("Black").at(0, 10).file({.media_source = "Slug"}),
                  clip("Bars").at(10, 20).file({.media_source = "BarsAndTone"}),
                  clip("Graphic").at(20, 30).file({.media_source = "GraphicAndType"}).with(title)});
    EXPECT_THAT(result.audio_clip_data_array, IsEmpty());
    ASSERT_THAT(names_of(result.generatoritem_array), ElementsAre("Black", "Bars", "Graphic"));
    for (const generator_record& record : result.generatoritem_array) {
        EXPECT_EQ(record.place.track, "A1");
        EXPECT_EQ(record.font, "");
        EXPECT_EQ(record.text, "");
    }
    EXPECT_EQ(result.generatoritem_array[2].type, "GraphicAndType");
}

TEST(audio_clip, replaces_the_clip_that_it_overlaps)
{
    analyzed_document document(
        xmeml().sequence("Reel 1").audio_track({clip("A").at(0, 50), clip("B").at(10, 90)}));
    EXPECT_THAT(names_of(document.result.audio_clip_data_array), ElementsAre("B"));
    EXPECT_EQ(document.out.writes.back(),
              "\"sanity check for clips progressing in a track, progressing_track_clips = false\"\n");
}

TEST(audio_clip, gives_filters_but_no_motion)
{
    const analysis_result result = track_of({clip("A")
                                                 .with(filter{"Gain", "{61756678, 4761696e, 4b657947}"}.text()
                                                       + filter{"Levels", "audiolevels", "audiolevels"}.text()
                                                       + filter{"Basic", "basic", "motion"}.text())
                                                 .speed("50")});
    EXPECT_THAT(names_of(result.audio_clip_filter_array), ElementsAre("Gain"));
    EXPECT_TRUE(result.audio_clip_filter_array[0].apple);
    EXPECT_EQ(result.audio_clip_filter_array[0].place.track, "A1");
    EXPECT_THAT(result.video_clip_filter_array, IsEmpty());
    EXPECT_THAT(result.video_clip_motion_array, IsEmpty());
}

TEST(audio_clip, has_no_generator_items_beside_it)
{
    const analysis_result result = track_of({around("generatoritem", element("name", "Tone"))});
    EXPECT_THAT(result.generatoritem_array, IsEmpty());
}

} // namespace

} // namespace tallyframe
