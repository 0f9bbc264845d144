// SPDX-License-Identifier: MIT
#include "report/row_assembly.h"
#include "support/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;
using testing::IsEmpty;

/// "V1 Name" of each clip or generator row.
std::vector<std::string> named(const auto& records)
{
    std::vector<std::string> names;
    names.reserve(records.size());
    for (const auto* record : records)
        names.push_back(record->place.track + " " + *record->name);
    return names;
}

std::vector<std::string> tracks_of(const auto& records)
{
    std::vector<std::string> tracks;
    tracks.reserve(records.size());
    for (const auto* record : records)
        tracks.push_back(record->place.track);
    return tracks;
}

template <class Record>
Record disabled(Record record)
{
    record.enabled = "FALSE";
    return record;
}

/// One record of each kind on V1, V2, A1 and A2, as far as there are such.
analysis_result one_of_each()
{
    auto analysis = test::sequence_at_25();
    for (const std::string track : {"V1", "V2"}) {
        analysis.video_clip_data_array.push_back(test::clip("Shot", track, 0, 9));
        analysis.video_clip_marker_array.push_back(test::clip_marker("Note", track, 0));
        analysis.generatoritem_array.push_back(test::generator("Slug", track, 10, 19));
        analysis.video_clip_filter_array.push_back(test::filter("Blur", true, track));
        analysis.video_clip_motion_array.push_back(test::motion("Scale (50%)", track));
        analysis.video_transition_array.push_back(test::transition("Dissolve", true, track));
    }
    for (const std::string track : {"A1", "A2"}) {
        analysis.audio_clip_data_array.push_back(test::clip("Sound", track, 0, 9));
        analysis.audio_clip_marker_array.push_back(test::clip_marker("Note", track, 0));
        analysis.audio_clip_filter_array.push_back(test::filter("EQ", true, track));
        analysis.audio_transition_array.push_back(test::transition("Cross Fade", true, track));
    }
    return analysis;
}

TEST(assemble_rows, takes_the_ticked_tracks_alone)
{
    const auto analysis = one_of_each();
    const auto rows = assemble_rows(analysis, {{0, 1}, {1, 0}}, false, false);
    EXPECT_THAT(named(rows.clip_data_array), ElementsAre("A1 Sound", "V2 Shot", "V2 Slug"));
    EXPECT_THAT(tracks_of(rows.clip_markers), ElementsAre("A1", "V2"));
    EXPECT_THAT(tracks_of(rows.generators), ElementsAre("V2"));
    EXPECT_THAT(tracks_of(rows.filters), ElementsAre("A1", "V2"));
    EXPECT_THAT(tracks_of(rows.motion), ElementsAre("V2"));
    EXPECT_THAT(tracks_of(rows.transitions), ElementsAre("A1", "V2"));
}

TEST(assemble_rows, gives_nothing_without_ticked_tracks)
{
    const auto analysis = one_of_each();
    for (const track_ticks& ticks :
         {track_ticks{}, track_ticks{{0, 0}, {0, 0}}, track_ticks{{-1, 2}, {2, -1}}}) { // 1 alone is a tick
        const auto rows = assemble_rows(analysis, ticks, false, false);
        EXPECT_THAT(rows.clip_data_array, IsEmpty());
        EXPECT_THAT(rows.clip_markers, IsEmpty());
        EXPECT_THAT(rows.generators, IsEmpty());
        EXPECT_THAT(rows.filters, IsEmpty());
        EXPECT_THAT(rows.motion, IsEmpty());
        EXPECT_THAT(rows.transitions, IsEmpty());
    }
}

TEST(assemble_rows, leaves_out_disabled_records_of_every_kind_on_request)
{
    auto analysis = one_of_each();
    analysis.video_clip_data_array.push_back(disabled(test::clip("Off", "V1", 0, 9)));
    analysis.video_clip_marker_array.push_back(disabled(test::clip_marker("Off", "V1", 0)));
    analysis.generatoritem_array.push_back(disabled(test::generator("Off", "V1", 0, 9)));
    analysis.video_clip_filter_array.push_back(disabled(test::filter("Off", true, "V1")));
    analysis.video_clip_motion_array.push_back(disabled(test::motion("Off", "V1")));
    analysis.video_transition_array.push_back(disabled(test::transition("Off", true, "V1")));
    analysis.audio_clip_data_array.push_back(disabled(test::clip("Off", "A1", 0, 9)));
    analysis.audio_clip_marker_array.push_back(disabled(test::clip_marker("Off", "A1", 0)));
    analysis.audio_clip_filter_array.push_back(disabled(test::filter("Off", true, "A1")));
    analysis.audio_transition_array.push_back(disabled(test::transition("Off", true, "A1")));
    const track_ticks ticks = {{1}, {1}};
    const auto all = assemble_rows(analysis, ticks, false, false);
    const auto enabled = assemble_rows(analysis, ticks, true, false);
    EXPECT_EQ(all.clip_data_array.size(), 6U);
    EXPECT_THAT(named(enabled.clip_data_array), ElementsAre("A1 Sound", "V1 Shot", "V1 Slug"));
    EXPECT_THAT(tracks_of(enabled.clip_markers), ElementsAre("A1", "V1"));
    EXPECT_THAT(tracks_of(enabled.generators), ElementsAre("V1"));
    EXPECT_THAT(tracks_of(enabled.filters), ElementsAre("A1", "V1"));
    EXPECT_THAT(tracks_of(enabled.motion), ElementsAre("V1"));
    EXPECT_THAT(tracks_of(enabled.transitions), ElementsAre("A1", "V1"));
}

TEST(assemble_rows, counts_as_enabled_only_what_says_exactly_so)
{
    auto analysis = test::sequence_at_25();
    for (const std::string enabled : {"TRUE", "True", "true", "", "FALSE"}) {
        analysis.video_clip_data_array.push_back(test::clip(enabled, "V1", 0, 9));
        analysis.video_clip_data_array.back().enabled = enabled;
    }
    EXPECT_THAT(named(assemble_rows(analysis, {{1}, {}}, true, false).clip_data_array),
                ElementsAre("V1 TRUE"));
}

TEST(assemble_rows, lists_a_generator_among_the_clips_and_among_the_generators)
{
    auto analysis = test::sequence_at_25();
    analysis.generatoritem_array.push_back(disabled(test::generator("Title", "V1", 10, 19)));
    const auto rows = assemble_rows(analysis, {{1}, {}}, false, false);
    EXPECT_THAT(named(rows.generators), ElementsAre("V1 Title"));
    ASSERT_THAT(named(rows.clip_data_array), ElementsAre("V1 Title"));
    const clip_record& row = *rows.clip_data_array.front();
    EXPECT_EQ(row.place.seq_start_frame, 10);
    EXPECT_EQ(row.place.seq_end_frame, 19);
    EXPECT_EQ(row.place.seq_length, 10);
    EXPECT_EQ(row.type, "Slug");
    EXPECT_EQ(row.enabled, "FALSE");
    EXPECT_EQ(row.notes.label, std::nullopt);
}

TEST(assemble_rows, leaves_out_generators_on_audio_tracks)
{
    auto analysis = test::sequence_at_25();
    analysis.generatoritem_array = {test::generator("Tone", "A1", 0, 9)};
    const auto rows = assemble_rows(analysis, {{1}, {1}}, false, false);
    EXPECT_THAT(rows.generators, IsEmpty());
    EXPECT_THAT(rows.clip_data_array, IsEmpty());
}

TEST(assemble_rows, keeps_the_rows_of_generators_when_it_is_moved)
{
    auto analysis = test::sequence_at_25();
    analysis.generatoritem_array.push_back(test::generator("Title", "V1", 10, 19));
    auto rows = assemble_rows(analysis, {{1}, {}}, false, false);
    const report_rows moved = std::move(rows);
    EXPECT_THAT(named(moved.clip_data_array), ElementsAre("V1 Title"));
}

TEST(assemble_rows, leaves_out_the_audio_of_video_clips_on_request_though_their_track_is_not_ticked)
{
    auto analysis = test::sequence_at_25();
    analysis.video_clip_data_array.push_back(test::clip_of_file("/shot.mov", "V2", 0, 9));
    analysis.audio_clip_data_array.push_back(test::clip_of_file("/shot.mov", "A1", 0, 9));
    analysis.audio_clip_data_array.push_back(test::clip_of_file("/song.wav", "A1", 10, 19));
    analysis.audio_clip_marker_array.push_back(test::clip_marker("Note", "A1", 0));
    analysis.audio_clip_filter_array.push_back(test::filter("EQ", true, "A1"));
    const auto rows = assemble_rows(analysis, {{1, 0}, {1}}, false, true);
    ASSERT_EQ(rows.clip_data_array.size(), 1U);
    EXPECT_EQ(rows.clip_data_array.front()->path, "/song.wav");
    EXPECT_EQ(rows.clip_markers.size(), 1U);
    EXPECT_EQ(rows.filters.size(), 1U);
}

TEST(assemble_rows, keeps_the_audio_of_video_clips_otherwise)
{
    auto analysis = test::sequence_at_25();
    analysis.video_clip_data_array.push_back(test::clip_of_file("/shot.mov", "V1", 0, 9));
    analysis.audio_clip_data_array.push_back(test::clip_of_file("/shot.mov", "A1", 0, 9));
    EXPECT_EQ(assemble_rows(analysis, {{1}, {1}}, false, false).clip_data_array.size(), 2U);
}

TEST(assemble_rows, does_not_take_a_generator_for_a_video_clip)
{
    auto analysis = test::sequence_at_25();
    analysis.generatoritem_array.push_back(test::generator("Title", "V1", 0, 9));
    analysis.audio_clip_data_array.push_back(test::clip("No file", "A1", 0, 9));
    EXPECT_EQ(assemble_rows(analysis, {{1}, {1}}, false, true).clip_data_array.size(), 2U);
}

TEST(assemble_rows, sorts_clips_by_start_and_then_by_the_text_of_the_track)
{
    auto analysis = test::sequence_at_25();
    for (const std::string track : {"V1", "V2", "V10"})
        analysis.video_clip_data_array.push_back(test::clip("Shot", track, 50, 99));
    analysis.video_clip_data_array.push_back(test::clip("Early", "V10", 0, 49));
    analysis.audio_clip_data_array.push_back(test::clip("Sound", "A1", 50, 99));
    const track_ticks ticks = {std::vector<int>(10, 1), {1}};
    EXPECT_THAT(named(assemble_rows(analysis, ticks, false, false).clip_data_array),
                ElementsAre("V10 Early", "A1 Sound", "V1 Shot", "V10 Shot", "V2 Shot"));
}

TEST(assemble_rows, sorts_filters_transitions_and_markers_likewise)
{
    auto analysis = test::sequence_at_25();
    for (const std::string track : {"V2", "V10"}) {
        analysis.video_clip_filter_array.push_back(test::filter("Blur", true, track, 5));
        analysis.video_transition_array.push_back(test::transition("Wipe", true, track, 5));
        analysis.video_clip_marker_array.push_back(test::clip_marker("Note", track, 5));
    }
    analysis.video_clip_filter_array.push_back(test::filter("Blur", true, "V3", 1));
    analysis.video_transition_array.push_back(test::transition("Wipe", true, "V3", 1));
    analysis.video_clip_marker_array.push_back(test::clip_marker("Note", "V3", 1));
    const auto rows = assemble_rows(analysis, {std::vector<int>(10, 1), {}}, false, false);
    EXPECT_THAT(tracks_of(rows.filters), ElementsAre("V3", "V10", "V2"));
    EXPECT_THAT(tracks_of(rows.transitions), ElementsAre("V3", "V10", "V2"));
    EXPECT_THAT(tracks_of(rows.clip_markers), ElementsAre("V3", "V10", "V2"));
}

TEST(assemble_rows, leaves_generators_and_motion_track_by_track)
{
    auto analysis = test::sequence_at_25();
    analysis.generatoritem_array = {test::generator("Late", "V1", 50, 99),
                                    test::generator("Early", "V1", 0, 9),
                                    test::generator("First", "V2", 0, 9)};
    analysis.video_clip_motion_array = {test::motion("Scale", "V2", 0), test::motion("Crop", "V1", 50),
                                        test::motion("Rotation", "V1", 0)};
    const auto rows = assemble_rows(analysis, {{1, 1}, {}}, false, false);
    EXPECT_THAT(named(rows.generators), ElementsAre("V1 Late", "V1 Early", "V2 First"));
    ASSERT_EQ(rows.motion.size(), 3U);
    EXPECT_EQ(rows.motion[0]->name, "Crop");
    EXPECT_EQ(rows.motion[1]->name, "Rotation");
    EXPECT_EQ(rows.motion[2]->name, "Scale");
}

TEST(assemble_rows, keeps_the_order_of_clips_that_start_together_on_one_track)
{
    auto analysis = test::sequence_at_25();
    for (int i = 0; i < 40; ++i)
        analysis.video_clip_data_array.push_back(test::clip(std::to_string(i), "V1", 0, 9));
    const auto rows = assemble_rows(analysis, {{1}, {}}, false, false);
    for (std::size_t i = 0; i < 40; ++i)
        EXPECT_EQ(rows.clip_data_array[i]->name, std::to_string(i));
}

} // namespace
} // namespace tallyframe
