// SPDX-License-Identifier: MIT
#include "sheets/generators_sheet.h"
#include "sheets/made_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;
using enum time_format;

const std::vector<time_format> all_formats = {timecode, clock, frames, feet_and_frames, seconds};

test::made_report with_title()
{
    test::made_report report;
    auto title = test::generator("Lower Third", "V2", 100, 149);
    title.type = "GraphicAndType";
    title.place.track_name = " Titles";
    title.font = "Futura";
    title.text = "Jane Doe";
    report.analysis.generatoritem_array = {title};
    return report;
}

test::shown_sheet generators(test::made_report& report)
{
    return report.make({add_generators_sheet}).sheet("Graphics & Titles");
}

column_widths widths_for(std::vector<time_format> formats)
{
    report_options options;
    options.timeline_time_columns = std::move(formats);
    return generator_columns(options, chosen_columns(options, true)).widths;
}

TEST(generators_sheet, lists_a_title)
{
    auto report = with_title();
    const auto sheet = generators(report);
    EXPECT_THAT(sheet.row(0),
                ElementsAre("Track", "Clip Name", "Generator", "Sequence In", "Sequence Out", "Duration",
                            "Font", "Text"));
    EXPECT_THAT(sheet.looks(0), ElementsAre(test::header_look));
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::video_text));
    EXPECT_EQ(sheet.frozen_rows, 1U);
    EXPECT_EQ(report.steps, 1U);
}

TEST(generators_sheet, shows_one_frame_less_than_the_length_on_purpose)
{
    auto report = with_title();
    EXPECT_THAT(generators(report).row(1),
                ElementsAre("V2 Titles", "Lower Third", "GraphicAndType", "00:00:04:00", "00:00:05:24",
                            "00:00:01:24", "Futura", "Jane Doe"));
}

TEST(generators_sheet, moves_the_timecode_of_the_out_point_alone_on_purpose)
{
    auto report = with_title();
    report.options.adjustments.hhmmssff_adj = 2;
    const auto sheet = generators(report);
    EXPECT_EQ(sheet.cell(0, 3).text, "Sequence In +2");
    EXPECT_EQ(sheet.cell(0, 4).text, "Sequence Out +2");
    EXPECT_EQ(sheet.cell(1, 3).text, "00:00:04:00");
    EXPECT_EQ(sheet.cell(1, 4).text, "00:00:06:01");
    EXPECT_EQ(sheet.cell(1, 5).text, "00:00:01:24");
}

TEST(generators_sheet, has_its_own_rule_of_adjustments_on_purpose)
{
    auto report = with_title();
    report.options.timeline_time_columns = all_formats;
    report.options.adjustments = {
        .hhmmssff_adj = 1, .clock_adj = 2500, .frames_adj = 3, .feetframes_adj = 16, .seconds_adj = 50};
    const auto sheet = generators(report);
    const auto headers = sheet.row(0);
    EXPECT_THAT(std::vector(headers.begin() + 3, headers.begin() + 8),
                ElementsAre("Sequence In +1", "Sequence In +2500", "Sequence In +3", "Sequence In +16",
                            "Sequence In +50"));
    const auto cells = sheet.row(1);
    EXPECT_THAT(std::vector(cells.begin() + 3, cells.begin() + 8),
                ElementsAre("00:00:04:00", "00:00:06", "100", "0007+04", "6"));
    EXPECT_THAT(std::vector(cells.begin() + 8, cells.begin() + 13),
                ElementsAre("00:00:06:00", "00:00:07", "152", "0010+05", "7.96"));
    EXPECT_THAT(std::vector(cells.begin() + 13, cells.begin() + 18),
                ElementsAre("00:00:01:24", "00:00:01", "49", "0003+01", "1.96"));
}

TEST(generators_sheet, of_exact_figures_moves_its_cells_as_the_headers_say_and_shows_the_frames_covered)
{
    auto report = with_title();
    report.analysis.figures = figure_style::exact;
    report.options.timeline_time_columns = all_formats;
    report.options.adjustments = {
        .hhmmssff_adj = 1, .clock_adj = 2500, .frames_adj = 3, .feetframes_adj = 16, .seconds_adj = 50};
    const auto sheet = generators(report);
    const auto headers = sheet.row(0);
    EXPECT_THAT(std::vector(headers.begin() + 3, headers.begin() + 8),
                ElementsAre("Sequence In +1", "Sequence In +2500", "Sequence In +3", "Sequence In +16",
                            "Sequence In +50"));
    const auto cells = sheet.row(1);
    EXPECT_THAT(std::vector(cells.begin() + 3, cells.begin() + 8),
                ElementsAre("00:00:04:01", "00:01:44", "103", "0007+04", "6"));
    EXPECT_THAT(std::vector(cells.begin() + 8, cells.begin() + 13),
                ElementsAre("00:00:06:00", "00:01:45", "152", "0010+05", "7.96"));
    EXPECT_THAT(std::vector(cells.begin() + 13, cells.begin() + 18),
                ElementsAre("00:00:02:00", "00:00:02", "50", "0003+02", "2"));
}

TEST(generators_sheet, writes_frames_whole_and_seconds_with_decimals)
{
    auto report = with_title();
    report.options.timeline_time_columns = {seconds, frames};
    const auto sheet = generators(report);
    EXPECT_EQ(sheet.cell(1, 3).look, test::video_integer);
    EXPECT_EQ(sheet.cell(1, 3).kind, "number");
    EXPECT_EQ(sheet.cell(1, 4).look, test::video_decimal);
}

TEST(generators_sheet, keeps_the_duration_cells_without_their_header_on_purpose)
{
    auto report = with_title();
    report.show_only({"Track"});
    const auto sheet = generators(report);
    EXPECT_THAT(
        sheet.row(0),
        ElementsAre("Track", "Clip Name", "Generator", "Sequence In", "Sequence Out", "Font", "Text"));
    EXPECT_THAT(sheet.row(1),
                ElementsAre("V2 Titles", "Lower Third", "GraphicAndType", "00:00:04:00", "00:00:05:24",
                            "00:00:01:24", "Futura", "Jane Doe"));
}

TEST(generators_sheet, has_eleven_columns_and_widths_for_two_formats)
{
    auto report = with_title();
    report.options.timeline_time_columns = {timecode, seconds};
    const auto sheet = generators(report);
    EXPECT_EQ(sheet.row(0).size(), 11U);
    EXPECT_EQ(sheet.row(1).size(), 11U);
    EXPECT_EQ(sheet.widths.size(), 11U);
}

TEST(generators_sheet, starts_as_wide_as_texts_that_are_not_its_headers_on_purpose)
{
    EXPECT_THAT(widths_for({timecode}), ElementsAre(5U, 9U, 9U, 15U, 16U, 11U, 4U, 50U));
    EXPECT_THAT(widths_for({timecode, seconds}),
                ElementsAre(5U, 9U, 9U, 14U, 15U, 15U, 16U, 11U, 11U, 4U, 50U));
    EXPECT_THAT(widths_for({}), ElementsAre(5U, 9U, 9U, 15U, 16U, 11U, 4U, 50U));
}

TEST(generators_sheet, adds_one_to_its_widths_after_the_rows_on_purpose)
{
    auto report = with_title();
    report.analysis.generatoritem_array.front().name = "A title with a longer name";
    const auto sheet = generators(report);
    EXPECT_DOUBLE_EQ(sheet.widths.at(1), 27);
    EXPECT_DOUBLE_EQ(sheet.widths.at(3), 16);
    EXPECT_DOUBLE_EQ(sheet.widths.at(7), 51 * 0.85);
}

TEST(generators_sheet, does_not_widen_with_the_text_of_titles)
{
    auto report = with_title();
    report.analysis.generatoritem_array.front().text = std::string(150, 't');
    report.analysis.generatoritem_array.front().font = std::string(30, 'f');
    const auto sheet = generators(report);
    EXPECT_DOUBLE_EQ(sheet.widths.at(6), 31);
    EXPECT_DOUBLE_EQ(sheet.widths.at(7), 51 * 0.85);
}

TEST(generators_sheet, shows_blank_font_and_text_for_a_slug)
{
    test::made_report report;
    report.analysis.generatoritem_array = {test::generator("Slug", "V1", 0, 9)};
    const auto sheet = generators(report);
    EXPECT_EQ(sheet.cell(1, 6).kind, "blank");
    EXPECT_EQ(sheet.cell(1, 7).kind, "blank");
}

TEST(generators_sheet, of_no_generators_is_its_header)
{
    test::made_report report;
    EXPECT_EQ(generators(report).row_count(), 1U);
}

TEST(generators_sheet, leaves_the_formats_of_video_to_the_sheets_after_it_though_it_has_no_rows)
{
    test::made_report report;
    report.analysis.video_transition_array = {test::transition("Wipe", true, "V1")};
    const auto book = report.make({add_generators_sheet});
    EXPECT_EQ(report.running_look, (row_look{text_color::video, text_color::video}));
    EXPECT_EQ(book.sheets.size(), 1U);
}

} // namespace
} // namespace tallyframe
