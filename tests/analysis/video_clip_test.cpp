// SPDX-License-Identifier: MIT
#include "analysis/link_xml.h"
#include "analysis/video_clip.h"
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

constexpr const char* overlap_diagnostic =
    "\"sanity check for clips progressing in a track, progressing_track_clips = false\"\n";

analysis_result video_track_of(const std::vector<track_item>& items, const sequence_options& options = {},
                               const track_options& track = {})
{
    return analysis_of(xmeml().sequence("Reel 1", options).video_track(items, track));
}

clip_record only_video_clip(const std::vector<track_item>& items, const sequence_options& options = {},
                            const track_options& track = {})
{
    const analysis_result result = video_track_of(items, options, track);
    EXPECT_EQ(result.video_clip_data_array.size(), 1U);
    return result.video_clip_data_array.at(0);
}

std::string message_of_track(const std::vector<track_item>& items)
{
    try {
        video_track_of(items);
    } catch (const analysis_error& error) {
        return error.what();
    }
    return {};
}

TEST(video_clip, stands_on_the_clock_of_the_sequence)
{
    const clip_record record = only_video_clip({clip("A").at(0, 1)}, {.start_frame = 86400});
    EXPECT_EQ(record.place.seq_start_frame, 86400);
    EXPECT_EQ(record.place.seq_end_frame, 86400) << "inclusive";
    EXPECT_EQ(record.place.seq_length, 1);
}

TEST(video_clip, carries_what_its_file_says)
{
    const clip_record record = only_video_clip({clip("A").in_out(10, 60).file(
        {.path = "/Media/a.mov",
         .timebase = 25,
         .timecode_frame = 90000,
         .displayformat = "NDF",
         .reel = "A001",
         .with = "<media><video><samplecharacteristics><width>1920</width>"
                 "<height>1080</height></samplecharacteristics></video></media>"})});
    EXPECT_EQ(record.src_start_frame, 90010);
    EXPECT_EQ(record.src_end_frame, 90059);
    EXPECT_EQ(record.src_length, 50);
    EXPECT_EQ(record.fcp_rate, (frame_rate{25, false}));
    EXPECT_EQ(record.type, "PAL (25 fps)");
    EXPECT_EQ(record.frame_size, "1920 × 1080");
    EXPECT_EQ(record.displayformat, display_format::non_drop_frame);
    EXPECT_EQ(record.video_format, "");
    EXPECT_EQ(record.audio_format, std::nullopt) << "only audio clips have one";
    EXPECT_EQ(record.samplerate, std::nullopt);
    EXPECT_EQ(link_xml(record), std::nullopt);
    EXPECT_EQ(record.reel_name, "A001");
    EXPECT_EQ(record.path, "/Media/a.mov");
    EXPECT_EQ(record.bin, std::nullopt);
    EXPECT_FALSE(record.isImage);
}

TEST(video_clip, has_the_sound_roll_of_its_file)
{
    const std::string timecodes =
        "<timecode><source>source</source></timecode><timecode><source>sound</source>"
        "<reel><name>SR1</name></reel></timecode>";
    EXPECT_EQ(only_video_clip({clip("A").file({.with = timecodes})}).roll_name, "SR1");
}

TEST(video_clip, takes_the_start_of_the_transition_that_hides_it)
{
    EXPECT_EQ(only_video_clip({transition(40, 60, "Dissolve", "x"), clip("A").at(-1, 90).in_out(0, 50)})
                  .place.seq_start_frame,
              40);
}

TEST(video_clip, takes_the_end_of_the_transition_that_hides_it)
{
    const clip_record record =
        only_video_clip({clip("A").at(10, -1).in_out(0, 50), transition(40, 60, "Dissolve", "x")});
    EXPECT_EQ(record.place.seq_start_frame, 10);
    EXPECT_EQ(record.place.seq_end_frame, 59);
}

TEST(video_clip, counts_its_start_back_from_the_end_without_a_neighbour)
{
    const clip_record record = only_video_clip({clip("A").at(-1, 90).in_out(20, 50)});
    EXPECT_EQ(record.place.seq_start_frame, 60);
    EXPECT_EQ(record.place.seq_length, 30);
}

TEST(video_clip, counts_its_end_from_the_start_without_a_neighbour)
{
    const clip_record record = only_video_clip({clip("A").at(10, -1).in_out(20, 50)});
    EXPECT_EQ(record.place.seq_end_frame, 39);
}

TEST(video_clip, takes_a_neighbour_without_a_position_for_none)
{
    EXPECT_EQ(
        only_video_clip({std::string("<note/>"), clip("A").at(-1, 90).in_out(20, 50)}).place.seq_start_frame,
        60);
    EXPECT_EQ(only_video_clip({clip("A").at(10, -1).in_out(20, 50), std::string("<enabled>TRUE</enabled>")})
                  .place.seq_end_frame,
              39);
}

TEST(video_clip, resolves_only_the_start_when_both_ends_stay_hidden)
{
    const clip_record record = only_video_clip({clip("A").at(-1, -1).in_out(20, 50)});
    EXPECT_EQ(record.place.seq_start_frame, -31);
    EXPECT_EQ(record.place.seq_end_frame, -2);
}

TEST(video_clip, escapes_double_quotes_in_its_name_everywhere)
{
    const analysis_result result = video_track_of(
        {clip(R"(the "A" cam)").marker("m", 5).with(filter{"Blur", "Blur"}.text()).reversed()});
    constexpr const char* name = "the &quot;A&quot; cam";
    EXPECT_EQ(result.video_clip_data_array.at(0).name, name);
    EXPECT_EQ(result.video_clip_filter_array.at(0).clip_name, name);
    EXPECT_EQ(result.video_clip_motion_array.at(0).clip_name, name);
}

TEST(video_clip, needs_no_name)
{
    const clip_record record = only_video_clip(
        {std::string("<clipitem><duration>50</duration><start>0</start><end>50</end><in>0</in><out>50</out>"
                     + media_file().text() + "</clipitem>")});
    EXPECT_EQ(record.name, std::nullopt);
}

TEST(video_clip, has_no_notes_but_a_label_without_logging)
{
    clip_notes notes;
    notes.label = "None";
    EXPECT_EQ(only_video_clip({clip("A")}).notes, notes);
}

TEST(video_clip, reads_its_notes_trimmed)
{
    const std::string logging =
        "<logginginfo><description> \n wide\t</description><scene>5</scene><shottake>3</shottake>"
        "<lognote>a</lognote><scenenote>b</scenenote><shotnote>c</shotnote><takenote/></logginginfo>"
        "<filmdata><cameraroll>A1</cameraroll><dailyroll>D1</dailyroll><labroll>L1</labroll></filmdata>"
        "<comments><mastercomment1>m1</mastercomment1><mastercomment2>m2</mastercomment2><mastercomment3>m3"
        "</mastercomment3><mastercomment4>m4</mastercomment4><clipcommenta>ca</clipcommenta><clipcommentb>cb"
        "</clipcommentb></comments>";
    const clip_notes notes = only_video_clip({clip("A").with(logging)}).notes;
    EXPECT_EQ(notes.description, "wide");
    EXPECT_EQ(notes.scene, "5");
    EXPECT_EQ(notes.shottake, "3");
    EXPECT_EQ(notes.lognote, "a");
    EXPECT_EQ(notes.scenenote, "b");
    EXPECT_EQ(notes.shotnote, "c");
    EXPECT_EQ(notes.takenote, "") << "empty is not absent";
    EXPECT_EQ(notes.cameraroll, "A1");
    EXPECT_EQ(notes.dailyroll, "D1");
    EXPECT_EQ(notes.labroll, "L1");
    EXPECT_EQ(notes.mastercomment1, "m1");
    EXPECT_EQ(notes.mastercomment2, "m2");
    EXPECT_EQ(notes.mastercomment3, "m3");
    EXPECT_EQ(notes.mastercomment4, "m4");
    EXPECT_EQ(notes.clipcommenta, "ca");
    EXPECT_EQ(notes.clipcommentb, "cb");
}

TEST(video_clip, takes_the_first_of_several_notes)
{
    const clip_notes notes =
        only_video_clip({clip("A").with("<logginginfo><scene>1</scene><scene>2</scene></logginginfo>"
                                        "<logginginfo><scene>3</scene><lognote>x</lognote></logginginfo>")})
            .notes;
    EXPECT_EQ(notes.scene, "1");
    EXPECT_EQ(notes.lognote, "x");
}

TEST(video_clip, takes_its_label_from_either_element)
{
    const auto label = [](std::string_view markup) {
        return only_video_clip({clip("A").with(markup)}).notes.label;
    };
    EXPECT_EQ(label("<labels><label2>Iris</label2><label> Good Take </label></labels>"), "Good Take");
    EXPECT_EQ(label("<labels><label2>Iris</label2></labels>"), "Iris");
    EXPECT_EQ(label("<labels><label>  </label></labels>"), "");
    EXPECT_EQ(label("<labels/>"), "None");
}

TEST(video_clip, inherits_each_group_of_notes_that_it_lacks)
{
    const std::string master =
        "<logginginfo><scene>5</scene><lognote>from master</lognote></logginginfo>"
        "<labels><label>B Roll</label></labels><comments><mastercomment1>old</mastercomment1>"
        "</comments><filmdata><labroll>L</labroll></filmdata>";
    analyzed_document document(
        xmeml()
            .sequence("Reel 1")
            .video_track({clip("A").with(
                "<masterclipid>m1</masterclipid><logginginfo><scene>7</scene></logginginfo>")})
            .bin_clip("Bin", bin_clip("m1", 100, "video", {}, master)));
    const clip_notes notes = document.result.video_clip_data_array.at(0).notes;
    EXPECT_EQ(notes.scene, "7");
    EXPECT_EQ(notes.lognote, std::nullopt) << "it has a group of its own";
    EXPECT_EQ(notes.label, "B Roll");
    EXPECT_EQ(notes.mastercomment1, "old");
    EXPECT_EQ(notes.labroll, "L");
    document.analyze_again();
    EXPECT_EQ(document.result.video_clip_data_array.at(0).notes, notes);
}

TEST(video_clip, shares_the_notes_of_its_master_clip)
{
    const std::string master =
        "<logginginfo><scene>5</scene></logginginfo><labels><label2>Iris</label2></labels>";
    const std::string inherits = "<masterclipid>m1</masterclipid>";
    const analyzed_document document(xmeml()
                                         .sequence("Reel 1")
                                         .video_track({clip("A").at(0, 50).with(inherits),
                                                       clip("B").at(50, 99).with(inherits + "<labels/>")})
                                         .bin_clip("Bin", bin_clip("m1", 100, "video", {}, master)));
    const auto& records = document.result.video_clip_data_array;
    EXPECT_EQ(records.at(0).notes.scene, "5");
    EXPECT_EQ(records.at(1).notes.scene, "5");
    EXPECT_EQ(records.at(0).notes.label, "Iris");
    EXPECT_EQ(records.at(1).notes.label, "None") << "it has a group of its own";

    const xml_node item = document.parsed.document.root().first("sequence/media/video/track/clipitem");
    EXPECT_FALSE(item.child("logginginfo")) << "a thousand clips would repeat them a thousand times";
}

TEST(video_clip, inherits_nothing_from_an_unknown_master_clip)
{
    EXPECT_EQ(only_video_clip({clip("A").with("<masterclipid>nobody</masterclipid>")}).notes.label, "None");
}

TEST(video_clip, is_disabled_with_its_track)
{
    EXPECT_EQ(only_video_clip({clip("A").enabled("TRUE")}, {}, {.enabled = "False"}).enabled, "FALSE");
    EXPECT_EQ(only_video_clip({clip("A").enabled("False")}, {}, {.enabled = "TRUE"}).enabled, "FALSE");
    EXPECT_EQ(only_video_clip({clip("A").enabled("True")}).enabled, "TRUE");
    EXPECT_EQ(only_video_clip({clip("A")}).enabled, "TRUE");
    EXPECT_EQ(only_video_clip({clip("A").enabled("maybe")}).enabled, "MAYBE");
}

TEST(video_clip, joins_the_track_name_with_a_blank)
{
    EXPECT_EQ(only_video_clip({clip("A")}, {}, {.attributes = R"(MZ.TrackName="Main")"}).place.track_name,
              " Main");
    EXPECT_EQ(only_video_clip({clip("A")}).place.track_name, "");
}

TEST(video_clip, gives_no_record_without_a_known_file)
{
    const std::string blur = filter{"Blur", "Blur"}.text();
    const analysis_result result = video_track_of({clip("nested").without_file().with(blur),
                                                   clip("lost").at(50, 60).same_file("nowhere").with(blur),
                                                   clip("empty").at(60, 70).duration(0).with(blur)});
    EXPECT_THAT(result.video_clip_data_array, IsEmpty());
    EXPECT_EQ(result.video_clip_filter_array.size(), 3U) << "their effects count all the same";
}

TEST(video_clip, uses_the_file_that_an_earlier_clip_defines)
{
    const analysis_result result = video_track_of(
        {clip("A").file({.path = "/a.mov", .id = "file-1"}), clip("B").at(50, 60).same_file("file-1")});
    ASSERT_EQ(result.video_clip_data_array.size(), 2U);
    EXPECT_EQ(result.video_clip_data_array[1].path, "/a.mov");
}

TEST(video_clip, replaces_the_clip_that_it_overlaps)
{
    analyzed_document document(
        xmeml().sequence("Reel 1").video_track({clip("A").at(0, 50), clip("B").at(49, 90)}));
    EXPECT_THAT(names_of(document.result.video_clip_data_array), ElementsAre("B"));
    EXPECT_THAT(document.out.writes,
                ElementsAre(HasSubstr("item 1"), HasSubstr("item 2"), overlap_diagnostic));
}

TEST(video_clip, replaces_all_clips_that_it_overlaps)
{
    analyzed_document document(xmeml().sequence("Reel 1").video_track(
        {clip("A").at(0, 50), clip("B").at(50, 60), clip("C").at(60, 70), clip("D").at(55, 90)}));
    EXPECT_THAT(names_of(document.result.video_clip_data_array), ElementsAre("A", "D"));
    EXPECT_EQ(std::count(document.out.writes.begin(), document.out.writes.end(), overlap_diagnostic), 2);
}

TEST(video_clip, leaves_neighbours_and_other_tracks_alone)
{
    const analysis_result result = analysis_of(xmeml()
                                                   .sequence("Reel 1")
                                                   .video_track({clip("A").at(0, 50), clip("B").at(50, 90)})
                                                   .video_track({clip("C").at(0, 50)}));
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("A", "B", "C"));
}

TEST(video_clip, may_overlap_under_a_transition)
{
    const analysis_result result =
        video_track_of({clip("A").at(0, 60), transition(40, 60, "Dissolve", "x"), clip("B").at(40, 90)});
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("A", "B"));
}

TEST(video_clip, on_generated_media_is_a_generated_item)
{
    const analysis_result result =
        video_track_of({clip("Black").at(10, 20).enabled("FALSE").file({.media_source = "Slug"}),
                        clip("Bars").at(20, 30).file({.media_source = "BarsAndTone"})},
                       {.start_frame = 100});
    EXPECT_THAT(result.video_clip_data_array, IsEmpty());
    ASSERT_EQ(result.generatoritem_array.size(), 2U);
    const generator_record& slug = result.generatoritem_array[0];
    EXPECT_EQ(slug.place.track, "V1");
    EXPECT_EQ(slug.name, "Black");
    EXPECT_EQ(slug.type, "Slug");
    EXPECT_EQ(slug.place.seq_start_frame, 110);
    EXPECT_EQ(slug.place.seq_end_frame, 119);
    EXPECT_EQ(slug.place.seq_length, 10);
    EXPECT_EQ(slug.font, "");
    EXPECT_EQ(slug.text, "");
    EXPECT_EQ(slug.enabled, "FALSE");
    EXPECT_EQ(result.generatoritem_array[1].type, "BarsAndTone");
}

TEST(video_clip, of_another_media_source_stays_a_clip)
{
    EXPECT_EQ(only_video_clip({clip("A").file({.media_source = "ColorMatte"})}).path, "ColorMatte");
}

TEST(video_clip, says_what_is_missing_where)
{
    const std::string rest = "<in>0</in><out>50</out><duration>50</duration></clipitem>";
    EXPECT_THAT(message_of_track({"<clipitem><name>Boat</name><end>50</end>" + rest}),
                HasSubstr(R"(The clip "Boat" on track V1 has no "start" element.)"));
    EXPECT_THAT(message_of_track({"<clipitem><start>0</start>" + rest}),
                HasSubstr(R"(A clip without a name on track V1 has no "end" element.)"));
    for (const std::string missing : {"in", "out", "duration"}) {
        std::string item = "<clipitem><start>0</start><end>50</end>";
        for (const std::string present : {"in", "out", "duration"}) {
            if (present != missing)
                item += element(present, 5);
        }
        EXPECT_THAT(message_of_track({item + "</clipitem>"}), HasSubstr("has no \"" + missing + "\" element"))
            << missing;
    }
}

TEST(video_clip, of_a_bin_needs_the_duration_of_its_owner)
{
    const xmeml document = xmeml().bin_clip("Day 1",
                                            "<clip id=\"m\"><name>Boat</name><media><video><track>"
                                                + clip("A").text() + "</track></video></media></clip>");
    EXPECT_THROW(analysis_of(document, ""), analysis_error);
}

TEST(video_clip, of_a_bin_needs_no_position_of_its_own)
{
    const std::string item = "<clipitem><name>A</name>" + media_file().text() + "</clipitem>";
    EXPECT_EQ(analysis_of(xmeml().bin_clip("Day 1", bin_clip("m", 80, "video", {item})), "")
                  .video_clip_data_array.at(0)
                  .src_end_frame,
              79);
}

} // namespace

} // namespace tallyframe
