// SPDX-License-Identifier: MIT
#include "sheets/effect_sheets.h"
#include "sheets/generators_sheet.h"
#include "sheets/made_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;

/// The sheet as it is after "Graphics & Titles", which sets the formats of its first rows.
test::shown_sheet transitions(test::made_report& report)
{
    return report.make({add_generators_sheet, add_transitions_sheet}).sheet("Transitions");
}

test::shown_sheet filters(test::made_report& report)
{
    return report.make({add_generators_sheet, add_filters_sheet}).sheet("Filters");
}

test::shown_sheet motions(test::made_report& report)
{
    return report.make({add_motion_sheet}).sheet("Motion Effects");
}

constexpr bool built_in = true;
constexpr bool third_party = false;

TEST(transitions_sheet, lists_the_distinct_ones_above_the_table)
{
    test::made_report report;
    report.analysis.video_transition_array = {test::transition("Wipe", built_in, "V1", 0, 15),
                                              test::transition("Sparkle", third_party, "V1", 100, 115),
                                              test::transition("Dissolve", built_in, "V2", 200, 215)};
    const auto sheet = transitions(report);
    EXPECT_THAT(sheet.column(0),
                ElementsAre("Built-in Transitions", "-", "-", "-", "Third-Party Transitions", "-", "-",
                            "Track", "V1", "V1", "V2"));
    EXPECT_THAT(sheet.column(1),
                ElementsAre("-", "Dissolve", "Wipe", "-", "-", "Sparkle", "-", "Transition", "Wipe",
                            "Sparkle", "Dissolve"));
    EXPECT_THAT(sheet.row(7), ElementsAre("Track", "Transition", "Sequence In", "Sequence Out", "Duration"));
    EXPECT_THAT(sheet.looks(0), ElementsAre(test::header_look));
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::video_text));
    EXPECT_THAT(sheet.looks(5), ElementsAre(test::red_text));
    EXPECT_THAT(sheet.looks(7), ElementsAre(test::header_look));
    EXPECT_EQ(sheet.frozen_rows, 1U);
    EXPECT_EQ(report.steps, 3U);
}

TEST(transitions_sheet, shows_the_difference_of_its_frames_as_the_duration)
{
    test::made_report report;
    report.analysis.video_transition_array = {test::transition("Wipe", built_in, "V1", 100, 115)};
    EXPECT_THAT(transitions(report).row(4),
                ElementsAre("V1", "Wipe", "00:00:04:00", "00:00:04:15", "00:00:00:15"));
}

TEST(transitions_sheet, shows_one_frame_less_than_the_length_on_purpose)
{
    test::made_report report;
    const auto fifteen_frames = test::transition("Wipe", built_in, "V1", 0, 14);
    EXPECT_EQ(fifteen_frames.place.seq_length, 15);
    report.analysis.video_transition_array = {fifteen_frames};
    EXPECT_EQ(transitions(report).cell(4, 4).text, "00:00:00:14");
}

TEST(transitions_sheet, of_none_is_the_table_header)
{
    test::made_report report;
    const auto sheet = transitions(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_EQ(sheet.cell(0, 1).text, "Transition");
    EXPECT_THAT(sheet.widths, ElementsAre(6, 11, 12, 13, 12));
}

TEST(transitions_sheet, starts_with_those_of_other_makers_when_there_are_no_built_in_ones)
{
    test::made_report report;
    report.analysis.video_transition_array = {test::transition("Sparkle", third_party, "V1")};
    EXPECT_THAT(transitions(report).column(0),
                ElementsAre("Third-Party Transitions", "-", "-", "Track", "V1"));
}

TEST(transitions_sheet, lists_one_on_picture_and_sound_twice_in_the_order_of_first_use)
{
    test::made_report report;
    report.analysis.audio_transition_array = {test::transition("Fade", built_in, "A1", 0, 5)};
    report.analysis.video_transition_array = {test::transition("Fade", built_in, "V1", 10, 15),
                                              test::transition("Fade", built_in, "V2", 20, 25)};
    const auto sheet = transitions(report);
    EXPECT_THAT(sheet.column(1), ElementsAre("-", "Fade", "Fade", "-", "Transition", "Fade", "Fade", "Fade"));
    EXPECT_EQ(sheet.cell(1, 1).look, test::audio_text);
    EXPECT_EQ(sheet.cell(2, 1).look, test::video_text);
}

TEST(transitions_sheet, sorts_its_catalogues_by_character_code)
{
    test::made_report report;
    for (const std::string name : {"b", "\u00e9", "a", "B"})
        report.analysis.video_transition_array.push_back(test::transition(name, third_party, "V1"));
    const auto column = transitions(report).column(1);
    EXPECT_THAT(std::vector(column.begin() + 1, column.begin() + 5), ElementsAre("B", "a", "b", "\u00e9"));
}

TEST(transitions_sheet, keeps_the_colour_of_the_row_before_on_purpose)
{
    test::made_report report;
    report.analysis.video_transition_array = {test::transition("Wipe", built_in, "V1", 0, 1),
                                              test::transition("Sparkle", third_party, "V1", 2, 3),
                                              test::transition("Wipe", built_in, "V1", 4, 5)};
    report.analysis.audio_transition_array = {test::transition("Fade", built_in, "A1", 6, 7)};
    report.analysis.video_transition_array.push_back(test::transition("Wipe", built_in, "V1", 8, 9));
    const auto sheet = transitions(report);
    const std::size_t first = 8;
    EXPECT_THAT(sheet.looks(first), ElementsAre(test::video_text));
    EXPECT_THAT(sheet.looks(first + 1), ElementsAre(test::red_text));
    EXPECT_THAT(sheet.looks(first + 2), ElementsAre(test::red_text));
    EXPECT_THAT(sheet.looks(first + 3), ElementsAre(test::audio_text));
    EXPECT_THAT(sheet.looks(first + 4), ElementsAre(test::audio_text));
}

TEST(transitions_sheet, has_no_format_in_its_first_rows_without_the_sheet_of_generators)
{
    test::made_report report;
    report.analysis.video_transition_array = {test::transition("Wipe", built_in, "V1")};
    const auto sheet = report.make({add_transitions_sheet}).sheet("Transitions");
    EXPECT_THAT(sheet.looks(4), ElementsAre(test::no_look));
    EXPECT_EQ(sheet.cell(1, 1).look, test::video_text);
}

TEST(transitions_sheet, does_not_widen_with_its_catalogues_alone)
{
    test::made_report report;
    const std::string name = "Dissolve \u25b8 Cross Dissolve";
    report.analysis.video_transition_array = {test::transition(name, built_in, "V1")};
    const auto sheet = transitions(report);
    EXPECT_DOUBLE_EQ(sheet.widths.at(0), 6); // not of "Built-in Transitions"
    EXPECT_DOUBLE_EQ(sheet.widths.at(1), 25);
}

TEST(filters_sheet, lists_the_distinct_ones_above_the_table)
{
    test::made_report report;
    report.analysis.video_clip_filter_array = {test::filter("Blur", built_in, "V1"),
                                               test::filter("Glow", third_party, "V1", 100)};
    report.analysis.audio_clip_filter_array = {test::filter("Blur", built_in, "A1", 200)};
    const auto sheet = filters(report);
    EXPECT_THAT(sheet.column(0),
                ElementsAre("Built-in Filters", "-", "-", "-", "Third-Party Filters", "-", "-", "Track", "V1",
                            "V1", "A1"));
    EXPECT_THAT(sheet.column(1),
                ElementsAre("-", "Blur", "Blur", "-", "-", "Glow", "-", "Filter", "Blur", "Glow", "Blur"));
    EXPECT_EQ(sheet.cell(1, 1).look, test::video_text);
    EXPECT_EQ(sheet.cell(2, 1).look, test::audio_text);
    EXPECT_THAT(
        sheet.row(7),
        ElementsAre("Track", "Filter", "Enabled", "Clip Name", "Sequence In", "Sequence Out", "Duration"));
    EXPECT_THAT(sheet.row(8),
                ElementsAre("V1", "Blur", "✓", "Clip", "00:00:00:00", "00:00:00:15", "00:00:00:15"));
}

TEST(filters_sheet, has_no_cell_for_the_check_mark_of_a_disabled_clip)
{
    test::made_report report;
    report.analysis.video_clip_filter_array = {test::filter("Blur", built_in, "V1")};
    report.analysis.video_clip_filter_array.front().enabled = "FALSE";
    EXPECT_EQ(filters(report).row(4)[2], "-");
}

TEST(filters_sheet, keeps_the_colour_of_the_row_before_but_not_for_check_marks_on_purpose)
{
    test::made_report report;
    report.analysis.video_clip_filter_array = {test::filter("Blur", built_in, "V1", 0),
                                               test::filter("Glow", third_party, "V1", 1),
                                               test::filter("Blur", built_in, "V1", 2)};
    const auto sheet = filters(report);
    EXPECT_EQ(sheet.cell(7, 0).look, test::video_text);
    EXPECT_EQ(sheet.cell(8, 0).look, test::red_text);
    EXPECT_EQ(sheet.cell(9, 0).look, test::red_text);
    EXPECT_EQ(sheet.cell(9, 2).look, test::video_center);
}

TEST(filters_sheet, starts_in_the_colour_in_which_transitions_ended_on_purpose)
{
    test::made_report report;
    report.analysis.audio_transition_array = {test::transition("Fade", built_in, "A1")};
    report.analysis.video_clip_filter_array = {test::filter("Blur", built_in, "V1")};
    const auto sheet =
        report.make({add_generators_sheet, add_transitions_sheet, add_filters_sheet}).sheet("Filters");
    EXPECT_EQ(sheet.cell(4, 0).look, test::audio_text);
    EXPECT_EQ(sheet.cell(4, 2).look, test::video_center);
}

TEST(filters_sheet, has_no_format_in_its_first_rows_without_the_sheet_of_generators)
{
    test::made_report report;
    report.analysis.video_clip_filter_array = {test::filter("Blur", built_in, "V1")};
    const auto sheet = report.make({add_filters_sheet}).sheet("Filters");
    EXPECT_THAT(sheet.looks(4), ElementsAre(test::no_look));
}

TEST(filters_sheet, of_none_is_the_table_header)
{
    test::made_report report;
    const auto sheet = filters(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_THAT(sheet.widths, ElementsAre(6, 7, 8, 10, 12, 13, 12));
}

TEST(exact_effect_sheets, show_the_frames_that_an_item_covers_as_its_duration)
{
    test::made_report report;
    report.analysis.figures = figure_style::exact;
    report.analysis.video_transition_array = {test::transition("Wipe", built_in, "V1", 0, 14)};
    report.analysis.video_clip_filter_array = {test::filter("Blur", built_in, "V1", 0, 24)};
    report.analysis.video_clip_motion_array = {test::motion("Scale (50%)", "V1", 0, 0)};
    EXPECT_EQ(transitions(report).cell(4, 4).text, "00:00:00:15");
    EXPECT_EQ(filters(report).cell(4, 6).text, "00:00:01:00");
    EXPECT_EQ(motions(report).cell(4, 5).text, "00:00:00:01");
}

TEST(exact_effect_sheets, show_each_row_in_the_colour_of_its_own_track)
{
    test::made_report report;
    report.analysis.figures = figure_style::exact;
    report.analysis.video_transition_array = {test::transition("Sparkle", third_party, "V1", 0, 1),
                                              test::transition("Wipe", built_in, "V1", 2, 3)};
    report.analysis.audio_transition_array = {test::transition("Fade", built_in, "A1", 4, 5),
                                              test::transition("Boom", third_party, "A1", 6, 7)};
    const auto sheet = report.make({add_transitions_sheet}).sheet("Transitions");
    const std::size_t first = 9;
    EXPECT_THAT(sheet.looks(first), ElementsAre(test::red_text));
    EXPECT_THAT(sheet.looks(first + 1), ElementsAre(test::video_text));
    EXPECT_THAT(sheet.looks(first + 2), ElementsAre(test::audio_text));
    EXPECT_THAT(sheet.looks(first + 3), ElementsAre(test::red_text));
}

TEST(exact_effect_sheets, show_check_marks_in_the_colour_of_their_row)
{
    test::made_report report;
    report.analysis.figures = figure_style::exact;
    report.analysis.video_clip_filter_array = {test::filter("Sparkle", third_party, "V1"),
                                               test::filter("Blur", built_in, "V1", 20, 30)};
    const auto sheet = report.make({add_filters_sheet}).sheet("Filters");
    const std::size_t first = 7;
    EXPECT_EQ(sheet.cell(first, 2).look, (cell_look{text_color::red, cell_form::centered}));
    EXPECT_EQ(sheet.cell(first + 1, 1).look, test::video_text);
    EXPECT_EQ(sheet.cell(first + 1, 2).look, (cell_look{text_color::video, cell_form::centered}));
}

TEST(motion_sheet, lists_the_distinct_ones_above_the_table)
{
    test::made_report report;
    report.analysis.video_clip_motion_array = {test::motion("Scale (50%)", "V1", 100),
                                               test::motion("Crop", "V1", 0), test::motion("Crop", "V2", 0)};
    const auto sheet = motions(report);
    EXPECT_THAT(sheet.column(0), ElementsAre("Motion Applied", "-", "-", "-", "Track", "V1", "V1", "V2"));
    EXPECT_THAT(sheet.column(1),
                ElementsAre("-", "Crop", "Scale (50%)", "-", "Motion", "Scale (50%)", "Crop", "Crop"));
    EXPECT_THAT(sheet.row(4),
                ElementsAre("Track", "Motion", "Clip Name", "Sequence In", "Sequence Out", "Duration"));
    EXPECT_THAT(sheet.row(6), ElementsAre("V1", "Crop", "Clip", "00:00:00:00", "00:00:00:15", "00:00:00:15"));
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::video_text));
    EXPECT_THAT(sheet.looks(6), ElementsAre(test::video_text));
    EXPECT_EQ(report.steps, 3U);
}

TEST(motion_sheet, of_none_is_the_table_header)
{
    test::made_report report;
    const auto sheet = motions(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_THAT(sheet.widths, ElementsAre(6, 7, 10, 12, 13, 12));
}

TEST(motion_sheet, leaves_the_format_of_video_whatever_ran_before)
{
    test::made_report report;
    report.analysis.video_clip_filter_array = {test::filter("Glow", third_party, "V1")};
    report.analysis.video_clip_motion_array = {test::motion("Crop", "V1")};
    const auto book = report.make({add_filters_sheet, add_motion_sheet});
    EXPECT_EQ(report.running_look.text, text_color::video);
    EXPECT_THAT(book.sheet("Motion Effects").looks(4), ElementsAre(test::video_text));
}

} // namespace
} // namespace tallyframe
