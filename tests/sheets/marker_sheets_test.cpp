// SPDX-License-Identifier: MIT
#include "sheets/made_report.h"
#include "sheets/marker_sheets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;

marker_record marker(const std::string& name)
{
    marker_record record = test::sequence_marker(name, 100);
    record.type = "Chapter";
    record.comment = "a comment";
    record.out_frame = 149;
    record.duration = 50;
    record.color = "Red";
    return record;
}

test::shown_sheet sequence_markers(test::made_report& report)
{
    return report.make({add_sequence_markers_sheet}).sheet("Sequence Markers");
}

test::shown_sheet clip_markers(test::made_report& report)
{
    return report.make({add_clip_markers_sheet}).sheet("Clip Markers");
}

TEST(sequence_markers_sheet, lists_markers_in_the_format_of_markers)
{
    test::made_report report;
    report.analysis.seq_markers_data_array = {marker("Act 1"), marker("Act 2")};
    const auto sheet = sequence_markers(report);
    EXPECT_THAT(sheet.row(0),
                ElementsAre("Marker Name", "Type", "Comment", "Start", "End", "Duration", "Color"));
    EXPECT_THAT(
        sheet.row(1),
        ElementsAre("Act 1", "Chapter", "a comment", "00:00:04:00", "00:00:05:24", "00:00:02:00", "Red"));
    EXPECT_EQ(sheet.cell(2, 0).text, "Act 2");
    EXPECT_THAT(sheet.looks(0), ElementsAre(test::header_look));
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::marker_text));
    EXPECT_EQ(report.steps, 2U);
}

TEST(sequence_markers_sheet, has_no_duration_cell_for_a_marker_on_a_single_frame)
{
    test::made_report report;
    report.analysis.seq_markers_data_array = {test::sequence_marker("Note", 100)};
    const auto sheet = sequence_markers(report);
    EXPECT_THAT(sheet.row(1), ElementsAre("Note", "", "", "00:00:04:00", "00:00:04:00", "-", ""));
    EXPECT_EQ(sheet.cell(1, 2).kind, "blank");
}

TEST(sequence_markers_sheet, of_no_markers_is_its_header_in_the_first_widths_and_one)
{
    test::made_report report;
    const auto sheet = sequence_markers(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_THAT(sheet.widths, ElementsAre(12, 5, 9, 12, 12, 12, 6));
}

TEST(sequence_markers_sheet, is_as_wide_as_its_names_up_to_a_limit)
{
    const auto first_width_for = [](std::size_t length) {
        test::made_report report;
        report.analysis.seq_markers_data_array = {test::sequence_marker(std::string(length, 'n'), 0)};
        return sequence_markers(report).widths.at(0);
    };
    EXPECT_DOUBLE_EQ(first_width_for(40), 40);
    EXPECT_DOUBLE_EQ(first_width_for(100), 85);
    EXPECT_DOUBLE_EQ(first_width_for(300), 170);
}

TEST(sequence_markers_sheet, shows_drop_frame_timecode_with_a_semicolon)
{
    test::made_report report;
    report.analysis.seq_fcp_rate = frame_rate{29.97, true};
    report.analysis.seq_displayformat = display_format::drop_frame;
    report.analysis.seq_markers_data_array = {marker("Act 1")};
    EXPECT_THAT(
        sequence_markers(report).row(1),
        ElementsAre("Act 1", "Chapter", "a comment", "00:00:03;10", "00:00:04;29", "00:00:01;20", "Red"));
}

TEST(clip_markers_sheet, lists_markers_with_their_clips_in_the_order_of_the_timeline)
{
    test::made_report report;
    auto late = test::clip_marker("Look", "V1", 100);
    late.place.track_name = " Interview";
    late.clip_name = "Shot";
    late.comment = "grade";
    late.color = "Green";
    late.out_frame = 149;
    late.duration = 50;
    late.src_in_frame = 25;
    late.src_out_frame = 74;
    report.analysis.video_clip_marker_array = {late, test::clip_marker("Early", "V1", 0)};
    const auto sheet = clip_markers(report);
    EXPECT_THAT(sheet.row(0),
                ElementsAre("Track", "Marker Name", "Clip Name", "Comment", "Color", "Sequence In",
                            "Sequence Out", "Duration", "Source In", "Source Out"));
    EXPECT_EQ(sheet.cell(1, 1).text, "Early");
    EXPECT_THAT(sheet.row(2),
                ElementsAre("V1 Interview", "Look", "Shot", "grade", "Green", "00:00:04:00", "00:00:05:24",
                            "00:00:02:00", "00:00:01:00", "00:00:02:24"));
    EXPECT_THAT(sheet.looks(2), ElementsAre(test::marker_text));
}

TEST(clip_markers_sheet, shows_source_positions_on_the_sequences_clock_on_purpose)
{
    test::made_report report;
    auto marker = test::clip_marker("Note", "V1", 0);
    marker.src_in_frame = 50; // of media at whatever rate
    marker.src_out_frame = 50;
    report.analysis.video_clip_marker_array = {marker};
    EXPECT_EQ(clip_markers(report).cell(1, 8).text, "00:00:02:00");
}

TEST(clip_markers_sheet, shows_source_positions_on_the_clock_of_the_media_where_a_marker_tells_it)
{
    test::made_report report;
    auto marker = test::clip_marker("Note", "V1", 0);
    marker.src_in_frame = 3596;
    marker.src_out_frame = 3600;
    marker.source_clock = media_clock{60, display_format::drop_frame};
    report.analysis.video_clip_marker_array = {marker};
    EXPECT_THAT(clip_markers(report).row(1),
                ElementsAre("V1", "Note", "", "", "", "00:00:00:00", "00:00:00:00", "-", "00:01:00;00",
                            "00:01:00;04"));
}

TEST(clip_markers_sheet, shows_blank_cells_for_what_a_marker_lacks)
{
    test::made_report report;
    report.analysis.audio_clip_marker_array = {test::clip_marker("Note", "A1", 0)};
    EXPECT_THAT(clip_markers(report).row(1),
                ElementsAre("A1", "Note", "", "", "", "00:00:00:00", "00:00:00:00", "-", "", ""));
}

TEST(clip_markers_sheet, of_no_markers_is_its_header_in_the_first_widths_and_one)
{
    test::made_report report;
    const auto sheet = clip_markers(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_THAT(sheet.widths, ElementsAre(6, 12, 10, 9, 6, 12, 13, 12, 12, 12));
}

TEST(clip_markers_sheet, widens_with_its_texts_and_not_with_its_times)
{
    test::made_report report;
    auto marker = test::clip_marker("A marker with a name", "V1", 0);
    marker.place.track_name = " Main";
    marker.clip_name = "A clip with a name";
    marker.comment = "A comment on the marker";
    marker.color = "Light Blue";
    marker.in_frame = 25LL * 3600 * 1000; // 1000 hours: one more character than others
    report.analysis.video_clip_marker_array = {marker};
    EXPECT_THAT(clip_markers(report).widths, ElementsAre(7, 20, 18, 23, 10, 12, 13, 12, 12, 12));
}

} // namespace
} // namespace tallyframe
