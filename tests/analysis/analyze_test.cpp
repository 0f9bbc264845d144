// SPDX-License-Identifier: MIT
#include "analysis/analyze.h"
#include "run/failures.h"
#include "support/analyzed_document.h"
#include "support/counting_progress.h"
#include "support/names_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

xmeml one_clip_each()
{
    return xmeml()
        .sequence("Reel 1")
        .video_track({clip("Picture"), transition(40, 60, "Dissolve", "Cross Dissolve")})
        .audio_track({clip("Sound"), transition(40, 60, "", "Cross Fade (+3dB)")})
        .with_marker(marker("Cue", 10));
}

xmeml two_bins()
{
    return xmeml()
        .bin_clip("Day 1", bin_clip("m1", 200, "video", {clip("Harbour")}))
        .bin_clip("Day 2", bin_clip("m2", 300, "audio", {clip("Waves")}));
}

TEST(analyze, walks_video_then_audio)
{
    const analysis_result result = analysis_of(one_clip_each());
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("Picture"));
    EXPECT_THAT(names_of(result.video_transition_array), ElementsAre("Dissolve ▸ Cross Dissolve"));
    EXPECT_THAT(names_of(result.audio_clip_data_array), ElementsAre("Sound"));
    EXPECT_THAT(names_of(result.audio_transition_array), ElementsAre("Cross Fade (+3dB)"));
    EXPECT_EQ(result.video_clip_data_array[0].place.track, "V1");
    EXPECT_EQ(result.audio_clip_data_array[0].place.track, "A1");
}

TEST(analyze, walks_a_track_by_kind_of_item)
{
    const std::string title =
        around("generatoritem", element("name", "Title") + "<start>50</start><end>60</end>");
    const analyzed_document document(
        xmeml().sequence("Reel 1").video_track({transition(40, 60, "", "Wipe"), title, clip("A"),
                                                transition(90, 110, "", "Zoom"), clip("B").at(60, 90)}));
    EXPECT_THAT(document.display.step_messages,
                ElementsAre("Analyzing Media Files\n", "Analyzing Media Files\n",
                            "Analyzing Clips in Track V1\n", "Analyzing Clips in Track V1\n",
                            "Analyzing Titles in Track V1\n", "Analyzing Transitions in Track V1\n",
                            "Analyzing Transitions in Track V1\n"));
    EXPECT_EQ(document.display.length, 7);
}

TEST(analyze, tells_each_step_in_order)
{
    const analyzed_document document(one_clip_each());
    EXPECT_THAT(document.display.step_messages,
                ElementsAre("Analyzing Media Files\n", "Analyzing Media Files\n",
                            "Analyzing Sequence Markers\n", "Analyzing Clips in Track V1\n",
                            "Analyzing Transitions in Track V1\n", "Analyzing Clips in Track A1\n",
                            "Analyzing Transitions in Track A1\n"));
    EXPECT_EQ(document.display.length, 7);
}

TEST(analyze, writes_a_diagnostic_for_each_clip)
{
    const analyzed_document document(xmeml()
                                         .sequence("Reel 1")
                                         .video_track({clip("A"), clip("B").at(50, 90)})
                                         .audio_track({})
                                         .audio_track({clip("C")}));
    const std::string rule = "\n-----------------------------------------------\n";
    EXPECT_THAT(document.out.writes,
                ElementsAre(rule + " Analyzing Clips in Track V1 - working on item 1 clipitem\n",
                            rule + " Analyzing Clips in Track V1 - working on item 2 clipitem\n",
                            rule + " Analyzing Clips in Track A2 - working on item 1 clipitem\n"));
}

TEST(analyze, leaves_kinds_out_of_scope_without_records)
{
    const analyzed_document video(one_clip_each(), "uuid-1", report_scope::video);
    EXPECT_THAT(names_of(video.result.video_clip_data_array), ElementsAre("Picture"));
    EXPECT_THAT(video.result.audio_clip_data_array, IsEmpty());
    EXPECT_THAT(video.result.audio_transition_array, IsEmpty());
    EXPECT_EQ(video.display.length, 3 + 2) << "two files and a marker; a clip and a transition";

    const analyzed_document audio(one_clip_each(), "uuid-1", report_scope::audio);
    EXPECT_THAT(audio.result.video_clip_data_array, IsEmpty());
    EXPECT_THAT(names_of(audio.result.audio_clip_data_array), ElementsAre("Sound"));
    EXPECT_EQ(audio.display.length, 3 + 2);
}

TEST(analyze, describes_every_track_whatever_the_scope)
{
    const analysis_result result = analysis_of(
        one_clip_each().video_track({}, {.attributes = R"(MZ.TrackName="Titles")", .enabled = "False"}),
        "uuid-1", report_scope::audio);
    ASSERT_EQ(result.video_tracks.size(), 2U);
    EXPECT_EQ(result.video_tracks[0].label, "V1");
    EXPECT_EQ(result.video_tracks[0].name, "");
    EXPECT_EQ(result.video_tracks[0].enabled, "TRUE");
    EXPECT_EQ(result.video_tracks[0].item_count, 2);
    EXPECT_EQ(result.video_tracks[1].label, "V2");
    EXPECT_EQ(result.video_tracks[1].name, " Titles");
    EXPECT_EQ(result.video_tracks[1].enabled, "FALSE");
    EXPECT_EQ(result.video_tracks[1].item_count, 0);
    ASSERT_EQ(result.audio_tracks.size(), 1U);
    EXPECT_EQ(result.audio_tracks[0].label, "A1");
}

TEST(analyze, joins_a_track_name_with_a_blank_even_an_empty_one)
{
    const analysis_result result = analysis_of(
        xmeml().sequence("Reel 1").audio_track({clip("A")}, {.attributes = R"(MZ.TrackName="")"}));
    EXPECT_EQ(result.audio_clip_data_array.at(0).place.track_name, " ");
}

TEST(analyze, keeps_one_audio_track_of_an_exploded_group)
{
    const analysis_result result =
        analysis_of(xmeml()
                        .sequence("Reel 1")
                        .audio_track({clip("left")}, {.attributes = R"(currentExplodedTrackIndex="0")"})
                        .audio_track({clip("right")}, {.attributes = R"(currentExplodedTrackIndex="1")"})
                        .audio_track({clip("rear")}, {.attributes = R"(currentExplodedTrackIndex="2")"})
                        .audio_track({clip("mono")}));
    EXPECT_THAT(names_of(result.audio_clip_data_array), ElementsAre("left", "mono"));
    EXPECT_EQ(result.audio_clip_data_array[1].place.track, "A2") << "numbers count what is kept";
    EXPECT_EQ(result.audio_tracks.size(), 2U);
}

TEST(analyze, keeps_every_exploded_video_track)
{
    const analysis_result result = analysis_of(xmeml().sequence("Reel 1").video_track(
        {clip("A")}, {.attributes = R"(currentExplodedTrackIndex="1")"}));
    EXPECT_EQ(result.video_clip_data_array.size(), 1U);
}

TEST(analyze, reads_markers_of_the_sequence_from_its_first_timecode)
{
    const analysis_result result =
        analysis_of(xmeml().sequence("Reel 1", {.start_frame = 90000}).with_marker(marker("Cue", 10, 20)));
    ASSERT_EQ(result.seq_markers_data_array.size(), 1U);
    EXPECT_EQ(result.seq_markers_data_array[0].in_frame, 90010);
    EXPECT_EQ(result.seq_markers_data_array[0].out_frame, 90019);
}

TEST(analyze, keeps_the_quotes_of_names_where_figures_are_exact)
{
    const xmeml document = xmeml()
                               .sequence("Reel 1")
                               .with_marker(marker("\"Act\"", 3))
                               .video_track({clip("12\" vinyl").marker("\"Look\"", 5)});
    const analysis_result comparable = analysis_of(document);
    EXPECT_EQ(comparable.video_clip_data_array.at(0).name, "12&quot; vinyl");
    EXPECT_EQ(comparable.video_clip_marker_array.at(0).name, "&quot;Look&quot;");
    EXPECT_EQ(comparable.seq_markers_data_array.at(0).name, "&quot;Act&quot;");
    const analysis_result exact = exact_analysis_of(document);
    EXPECT_EQ(exact.video_clip_data_array.at(0).name, "12\" vinyl");
    EXPECT_EQ(exact.video_clip_marker_array.at(0).name, "\"Look\"");
    EXPECT_EQ(exact.video_clip_marker_array.at(0).clip_name, "12\" vinyl");
    EXPECT_EQ(exact.seq_markers_data_array.at(0).name, "\"Act\"");
}

TEST(analyze, lists_each_reel_once_in_order)
{
    const analysis_result result = analysis_of(
        xmeml().sequence("Reel 1").video_track({clip("A").file({.path = "/a", .reel = "B002"}),
                                                clip("B").at(50, 60).file({.path = "/b", .reel = "A001"}),
                                                clip("C").at(60, 70).file({.path = "/c", .reel = "B002"})}));
    EXPECT_THAT(result.reels_array, ElementsAre("A001", "B002"));
}

TEST(analyze, takes_an_empty_reel_name_for_no_reel_where_figures_are_exact)
{
    const std::string nameless = "<timecode><reel><name></name></reel></timecode>";
    const xmeml document =
        xmeml().sequence("Reel 1").video_track({clip("A").file({.path = "/a", .with = nameless}),
                                                clip("B").at(50, 60).file({.path = "/b", .reel = "A001"})});
    EXPECT_THAT(analysis_of(document).reels_array, ElementsAre("", "A001"));
    EXPECT_THAT(exact_analysis_of(document).reels_array, ElementsAre("A001"));
}

TEST(analyze, restores_the_check_boxes_of_the_walked_tracks)
{
    analyzed_document document(xmeml()
                                   .sequence("Reel 1")
                                   .video_track({clip("A")})
                                   .video_track({})
                                   .video_track({})
                                   .audio_track({clip("B")}));
    EXPECT_THAT(*document.video_checkboxes.current, ElementsAre(1, 1, 1));
    EXPECT_THAT(*document.audio_checkboxes.current, ElementsAre(1));
    (*document.video_checkboxes.current)[1] = 0;
    document.analyze_again();
    EXPECT_THAT(*document.video_checkboxes.current, ElementsAre(1, 0, 1));
    document.analyze_again("uuid-1", report_scope::audio);
    EXPECT_THAT(*document.video_checkboxes.current, IsEmpty());
    document.analyze_again();
    EXPECT_THAT(*document.video_checkboxes.current, ElementsAre(1, 0, 1));
}

TEST(analyze, walks_tracks_whatever_their_check_box)
{
    analyzed_document document(one_clip_each());
    (*document.video_checkboxes.current)[0] = 0;
    document.analyze_again();
    EXPECT_THAT(names_of(document.result.video_clip_data_array), ElementsAre("Picture"));
}

TEST(analyze, takes_the_clips_of_the_bins_when_no_sequence_has_the_identifier)
{
    const analyzed_document document(two_bins(), "");
    const analysis_result& result = document.result;
    EXPECT_FALSE(result.is_sequence);
    EXPECT_EQ(result.seq_fcp_rate, std::nullopt);
    EXPECT_THAT(result.seq_markers_data_array, IsEmpty());
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("Harbour"));
    EXPECT_THAT(names_of(result.audio_clip_data_array), ElementsAre("Waves"));
    EXPECT_EQ(result.video_clip_data_array[0].bin, "Day 1");
    EXPECT_EQ(result.audio_clip_data_array[0].bin, "Day 2");
    EXPECT_EQ(document.display.length, 2 + 2) << "two files, two tracks";
    EXPECT_THAT(document.display.step_messages, Contains("Analyzing Clips in Day 1\n"));
    EXPECT_THAT(document.out.writes[0], testing::HasSubstr("Track V1 - working on item 1"));
}

TEST(analyze, ignores_sequences_and_their_markers_for_bins)
{
    const analysis_result result =
        analysis_of(one_clip_each().bin_clip("Day 1", bin_clip("m1", 200, "video", {})), "");
    EXPECT_THAT(result.video_clip_data_array, IsEmpty());
    EXPECT_THAT(result.seq_markers_data_array, IsEmpty());
}

TEST(analyze, takes_one_track_of_each_bin_clip_video_first)
{
    const std::string both = R"(<clip id="m"><duration>100</duration><media><video><track>)"
        + clip("picture").text() + "</track><track>" + clip("picture 2").text()
        + "</track></video><audio><track>" + clip("sound").text() + "</track></audio></media></clip>";
    const std::string without_track = R"(<clip id="n"><media><video/><audio><track>)" + clip("sound").text()
        + "</track></audio></media></clip>";
    const analysis_result result = analysis_of(xmeml().bin_clip("Day 1", both + without_track), "");
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("picture"));
    EXPECT_THAT(result.audio_clip_data_array, IsEmpty());
}

TEST(analyze, puts_all_bin_clips_on_track_1)
{
    analyzed_document document(xmeml().bin_clip("Day 1",
                                                bin_clip("m1", 200, "video", {clip("A")})
                                                    + bin_clip("m2", 200, "video", {clip("B")})),
                               "");
    ASSERT_EQ(document.result.video_clip_data_array.size(), 2U) << "they do not overlap";
    for (const clip_record& record : document.result.video_clip_data_array) {
        EXPECT_EQ(record.place.track, "V1");
        EXPECT_EQ(record.place.seq_start_frame, 0);
        EXPECT_EQ(record.place.seq_end_frame, 0);
        EXPECT_EQ(record.place.seq_length, 1);
        EXPECT_EQ(record.src_start_frame, 0);
        EXPECT_EQ(record.src_end_frame, 199);
    }
    ASSERT_EQ(document.result.video_tracks.size(), 1U);
    EXPECT_EQ(document.result.video_tracks[0].label, "V1");
    EXPECT_EQ(document.result.video_tracks[0].item_count, 2);
    EXPECT_THAT(document.result.audio_tracks, IsEmpty());
    EXPECT_THAT(*document.video_checkboxes.current, ElementsAre(1));
}

TEST(analyze, puts_all_sounds_of_bins_on_track_1)
{
    analyzed_document document(xmeml().bin_clip("Day 1",
                                                bin_clip("m1", 200, "audio", {clip("A")})
                                                    + bin_clip("m2", 200, "audio", {clip("B")})),
                               "");
    ASSERT_EQ(document.result.audio_clip_data_array.size(), 2U);
    EXPECT_EQ(document.result.audio_clip_data_array[1].place.track, "A1");
    EXPECT_THAT(*document.audio_checkboxes.current, ElementsAre(1));
}

TEST(analyze, knows_no_bin_above_a_clip_that_lies_in_none)
{
    const analysis_result result =
        analysis_of(xmeml().with("<project><children>" + bin_clip("m1", 200, "video", {clip("A")})
                                 + "</children></project>"),
                    "");
    EXPECT_EQ(result.video_clip_data_array.at(0).bin, std::nullopt);
}

TEST(analyze, recognizes_premiere_pro_by_its_exploded_tracks)
{
    EXPECT_FALSE(analysis_of(one_clip_each()).ppro);
    EXPECT_TRUE(analysis_of(xmeml().sequence("Reel 1", {.attributes = R"(explodedTracks="true")"})).ppro);
    EXPECT_FALSE(analysis_of(two_bins(), "").ppro);
    EXPECT_TRUE(
        analysis_of(
            xmeml().bin_clip("Day 1", bin_clip("m1", 200, "audio", {}, "", R"(explodedTracks="true")")), "")
            .ppro);
}

class nested_sequences : public testing::Test {
protected:
    static std::string nested(std::string_view id, const std::string& inner)
    {
        return R"(<sequence id=")" + std::string(id) + R"(">)" + inner + "</sequence>";
    }
    static std::string in_video_track(const std::string& item)
    {
        return around("media", around("video", around("track", item)));
    }
    static xmeml premiere()
    {
        return xmeml().sequence("Master", {.attributes = R"(id="sequence-1" explodedTracks="true")"});
    }
};

TEST_F(nested_sequences, take_the_file_of_the_first_clip_inside)
{
    const std::string inner =
        nested("sequence-2", in_video_track(clip("inner").file({.path = "/inner.mov"}).text()));
    const analyzed_document document(premiere().video_track({clip("Scene 5").without_file().with(inner)}));
    ASSERT_THAT(names_of(document.result.video_clip_data_array), ElementsAre("Scene 5"));
    EXPECT_EQ(document.result.video_clip_data_array[0].path, "/inner.mov");
}

TEST_F(nested_sequences, stand_behind_the_file_that_they_bring)
{
    const std::string inner =
        nested("sequence-2", in_video_track(clip("inner").file({.path = "/inner.mov"}).text()));
    const std::string own = media_file{.path = "/own.mov"}.text();
    const analysis_result result =
        analysis_of(premiere().video_track({clip("before").without_file().with(own + inner),
                                            clip("behind").at(50, 60).without_file().with(inner + own)}));
    ASSERT_THAT(names_of(result.video_clip_data_array), ElementsAre("before", "behind"));
    EXPECT_EQ(result.video_clip_data_array[0].path, "/own.mov");
    EXPECT_EQ(result.video_clip_data_array[1].path, "/inner.mov");
}

TEST_F(nested_sequences, find_a_file_one_sequence_deeper)
{
    const std::string inmost =
        nested("sequence-3", in_video_track(clip("inner").file({.path = "/inner.mov"}).text()));
    const std::string inner =
        nested("sequence-2", in_video_track(clip("middle").without_file().with(inmost).text()));
    const analysis_result result =
        analysis_of(premiere().video_track({clip("Scene 5").without_file().with(inner)}));
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("Scene 5"));
}

TEST_F(nested_sequences, are_found_by_a_reference_to_their_id)
{
    const std::string inner =
        nested("sequence-2", in_video_track(clip("inner").file({.path = "/inner.mov"}).text()));
    const analysis_result result = analysis_of(
        premiere().video_track({clip("first").without_file().with(inner),
                                clip("again").at(50, 90).without_file().with(nested("sequence-2", ""))}));
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("first", "again"));
}

TEST_F(nested_sequences, without_a_file_give_no_clip_but_their_effects)
{
    const std::string blur = filter{"Blur", "Gaussian Blur"}.text();
    const analysis_result result = analysis_of(
        premiere().video_track({clip("Scene 5").without_file().with(nested("sequence-9", "") + blur)}));
    EXPECT_THAT(result.video_clip_data_array, IsEmpty());
    EXPECT_THAT(names_of(result.video_clip_filter_array), ElementsAre("Blur"));
}

TEST_F(nested_sequences, that_hold_themselves_end)
{
    const std::string cycle = nested("sequence-1", "");
    const analysis_result result = analysis_of(
        premiere().video_track({clip("me").without_file().with(cycle), clip("other").at(50, 60)}));
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("me", "other"));
}

TEST_F(nested_sequences, that_hold_the_whole_take_the_file_that_its_first_clip_has_taken)
{
    const std::string inner =
        nested("sequence-2", in_video_track(clip("inner").file({.path = "/inner.mov"}).text()));
    const analysis_result result = analysis_of(premiere().video_track(
        {clip("Scene 5").without_file().with(inner), clip("other").at(50, 60).file({.path = "/other.mov"}),
         clip("me").at(60, 90).without_file().with(nested("sequence-1", ""))}));
    ASSERT_THAT(names_of(result.video_clip_data_array), ElementsAre("Scene 5", "other", "me"));
    EXPECT_EQ(result.video_clip_data_array[2].path, "/inner.mov");
}

TEST_F(nested_sequences, with_a_double_quote_in_their_id_are_never_found)
{
    const std::string inner =
        R"(<sequence id='sequence "2"'>)" + in_video_track(clip("inner").text()) + "</sequence>";
    const analysis_result result =
        analysis_of(premiere().video_track({clip("Scene 5").without_file().with(inner)}));
    EXPECT_THAT(result.video_clip_data_array, IsEmpty());
}

TEST_F(nested_sequences, take_no_file_in_final_cut_pro)
{
    const std::string inner = nested("sequence-2", in_video_track(clip("inner").text()));
    const analysis_result result =
        analysis_of(xmeml().sequence("Master").video_track({clip("Scene 5").without_file().with(inner)}));
    EXPECT_THAT(result.video_clip_data_array, IsEmpty());
}

TEST_F(nested_sequences, count_no_file_twice_as_media)
{
    const std::string inner =
        nested("sequence-2", in_video_track(clip("inner").file({.path = "/i", .reel = "A"}).text()));
    analyzed_document document(premiere().video_track({clip("Scene 5").without_file().with(inner)}));
    EXPECT_EQ(document.display.length, 1 + 1);
    document.analyze_again();
    EXPECT_THAT(names_of(document.result.video_clip_data_array), ElementsAre("Scene 5"));
    EXPECT_EQ(document.result.reels_array.size(), 1U);
}

TEST(analyze, gives_the_same_records_again)
{
    analyzed_document document(
        one_clip_each().video_track({clip("X").marker("m", 5).with("<masterclipid>none</masterclipid>")}));
    const auto first = names_of(document.result.video_clip_data_array);
    const auto markers = document.result.video_clip_marker_array;
    document.analyze_again();
    EXPECT_EQ(names_of(document.result.video_clip_data_array), first);
    EXPECT_EQ(document.result.video_clip_marker_array, markers);
}

TEST(analyze, leaves_the_document_as_it_is)
{
    const std::string scale = parameter("scale", "Scale", value("100") + around("keyframe", value("50")));
    analyzed_document document(
        xmeml()
            .sequence("Master", {.attributes = R"(id="1" explodedTracks="true")"})
            .video_track({clip("Zoom").with(filter{"Basic Motion", "basic", "motion", "", scale}.text()
                                            + "<masterclipid>m</masterclipid>"),
                          clip("me").at(50, 60).without_file().with(R"(<sequence id="1"/>)")})
            .with(R"(<clip id="m"><labels><label>Best Take</label></labels></clip>)"));
    ASSERT_THAT(names_of(document.result.video_clip_data_array), ElementsAre("Zoom", "me"));
    const std::string before = document.parsed.document.root().markup();
    document.analyze_again();
    EXPECT_EQ(document.parsed.document.root().markup(), before);
    EXPECT_THAT(before, testing::Not(testing::HasSubstr("100%")));
    EXPECT_THAT(before, testing::HasSubstr("<value>100</value>"));
}

TEST(analyze, lets_a_stop_through)
{
    counting_progress display;
    display.stop_at = 1;
    analyzed_document document(one_clip_each());
    media_catalogues catalogues;
    const analysis_subject subject{.sequence = document.parsed.index.sequence_with_uuid("uuid-1")};
    EXPECT_THROW(analyze(document.parsed.index, subject, document.additions, catalogues,
                         document.video_checkboxes, document.audio_checkboxes, document.out, display),
                 run_cancelled);
}

} // namespace

} // namespace tallyframe
