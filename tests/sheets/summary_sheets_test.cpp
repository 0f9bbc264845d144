// SPDX-License-Identifier: MIT
#include "sheets/clip_rows.h"
#include "sheets/made_report.h"
#include "sheets/reel_sheets.h"
#include "sheets/summary_sheets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;

test::shown_sheet files_summary(test::made_report& report)
{
    return report.make({add_clips_sheet, add_files_summary}).sheet("Files Summary");
}

test::shown_report with_reels(test::made_report& report)
{
    return report.make({add_reels_summary, add_reel_sheets});
}

clip_record of_reel(const std::string& reel, const std::string& track, std::int64_t start, std::int64_t end)
{
    auto clip = test::clip("Clip", track, start, end);
    clip.reel_name = reel;
    return clip;
}

TEST(totals_of_files, count_a_path_once_and_in_the_order_met)
{
    const auto song = test::clip_of_file("/media/song.wav", "A1", 0, 9);
    const auto nothing = test::clip("Title", "V1", 0, 4);
    const auto totals = totals_of_files({&song, &nothing, &song});
    ASSERT_EQ(totals.size(), 2U);
    EXPECT_EQ(totals[0].name, "song.wav");
    EXPECT_EQ(totals[0].path, "/media/song.wav");
    EXPECT_EQ(totals[0].estimated_total, 20);
    EXPECT_EQ(totals[1].name, "");
    EXPECT_EQ(totals[1].estimated_total, 5);
}

TEST(files_summary, shows_each_files_total_and_share)
{
    test::made_report report;
    report.analysis.video_clip_data_array = {test::clip_of_file("/media/b.mov", "V1", 0, 49),
                                             test::clip_of_file("/media/a.mov", "V1", 50, 74),
                                             test::clip_of_file("/media/b.mov", "V1", 75, 99)};
    const auto sheet = files_summary(report);
    EXPECT_THAT(sheet.row(0), ElementsAre("File Name", "Estimated Total", "% of Total", "File Path"));
    EXPECT_THAT(sheet.row(1), ElementsAre("a.mov", "00:00:01:00", "0.25", "/media/a.mov"));
    EXPECT_THAT(sheet.row(2), ElementsAre("b.mov", "00:00:03:00", "0.75", "/media/b.mov"));
    EXPECT_EQ(sheet.row_count(), 3U);
    EXPECT_EQ(sheet.frozen_rows, 1U);
}

TEST(files_summary, has_the_drop_frame_labels_of_its_figures)
{
    test::made_report report;
    report.analysis.seq_fcp_rate = frame_rate{29.97, true};
    report.analysis.seq_displayformat = display_format::drop_frame;
    report.analysis.video_clip_data_array = {test::clip_of_file("/media/b.mov", "V1", 0, 1798)};
    EXPECT_EQ(files_summary(report).cell(1, 1).text, "00:01:00;01");
    report.analysis.figures = figure_style::exact;
    EXPECT_EQ(files_summary(report).cell(1, 1).text, "00:00:59;29");
}

TEST(files_summary, counts_every_use_of_a_file_on_purpose)
{
    test::made_report report;
    report.analysis.video_clip_data_array = {test::clip_of_file("/media/a.mov", "V1", 0, 49),
                                             test::clip_of_file("/media/b.mov", "V1", 50, 99)};
    report.analysis.audio_clip_data_array = {test::clip_of_file("/media/a.mov", "A1", 0, 49)};
    const auto sheet = files_summary(report);
    EXPECT_EQ(sheet.cell(1, 1).text, "00:00:04:00");
    EXPECT_EQ(sheet.cell(2, 1).text, "00:00:02:00");
}

TEST(files_summary, of_exact_figures_counts_each_frame_of_the_sequence_once_a_file)
{
    test::made_report report;
    report.analysis.figures = figure_style::exact;
    report.analysis.video_clip_data_array = {test::clip_of_file("/media/a.mov", "V1", 0, 49),
                                             test::clip_of_file("/media/a.mov", "V2", 10, 19),
                                             test::clip_of_file("/media/b.mov", "V1", 50, 149),
                                             test::clip_of_file("/media/a.mov", "V1", 200, 224)};
    report.analysis.audio_clip_data_array = {test::clip_of_file("/media/a.mov", "A1", 0, 49),
                                             test::clip_of_file("/media/a.mov", "A2", 40, 74)};
    const auto sheet = files_summary(report);
    EXPECT_THAT(sheet.row(1), ElementsAre("a.mov", "00:00:04:00", "0.5", "/media/a.mov"))
        << "0 to 74 and 200 to 224";
    EXPECT_THAT(sheet.row(2), ElementsAre("b.mov", "00:00:04:00", "0.5", "/media/b.mov"));
}

TEST(files_summary, formats_totals_and_shares_and_leaves_names_and_paths_plain)
{
    test::made_report report;
    report.analysis.video_clip_data_array = {test::clip_of_file("/media/b.mov", "V1", 0, 49)};
    const auto sheet = files_summary(report);
    EXPECT_THAT(sheet.looks(0), ElementsAre(test::header_look));
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::no_look, test::black_text, test::black_share));
    EXPECT_EQ(sheet.cell(1, 3).look, test::no_look);
    EXPECT_EQ(sheet.cell(1, 2).kind, "number");
}

TEST(files_summary, formats_empty_cells_by_their_columns)
{
    test::made_report report;
    const auto sheet = files_summary(report);
    EXPECT_THAT(sheet.empty_looks,
                ElementsAre(test::header_look, test::no_look, test::black_share, test::header_look));
}

TEST(files_summary, is_sorted_by_name_in_character_code)
{
    test::made_report report;
    report.analysis.video_clip_data_array = {
        test::clip_of_file("/1/b.mov", "V1", 0, 9), test::clip_of_file("/2/A.mov", "V1", 10, 19),
        test::clip_of_file("/3/a.mov", "V1", 20, 29), test::clip_of_file("/0/a.mov", "V1", 30, 39)};
    const auto sheet = files_summary(report);
    EXPECT_THAT(sheet.column(0), ElementsAre("File Name", "A.mov", "a.mov", "a.mov", "b.mov"));
    EXPECT_THAT(sheet.column(3), ElementsAre("File Path", "/2/A.mov", "/3/a.mov", "/0/a.mov", "/1/b.mov"));
}

TEST(files_summary, keeps_files_of_one_name_in_the_order_met)
{
    test::made_report report;
    std::vector<std::string> paths = {"File Path"};
    for (int i = 0; i < 40; ++i) {
        paths.push_back("/" + std::to_string(i * 7 % 40) + "/clip.mov");
        report.analysis.video_clip_data_array.push_back(test::clip_of_file(paths.back(), "V1", i, i));
    }
    EXPECT_THAT(files_summary(report).column(3), testing::ElementsAreArray(paths));
}

TEST(files_summary, counts_generators_under_the_empty_path)
{
    test::made_report report;
    report.analysis.generatoritem_array = {test::generator("Title", "V1", 0, 24),
                                           test::generator("Slug", "V1", 25, 49)};
    EXPECT_THAT(files_summary(report).row(1), ElementsAre("", "00:00:02:00", "1", ""));
}

TEST(files_summary, shows_an_error_for_the_share_of_nothing)
{
    test::made_report report;
    auto clip = test::clip_of_file("/media/b.mov", "V1", 0, 9);
    clip.place.seq_length = 0;
    report.analysis.video_clip_data_array = {clip};
    const auto sheet = files_summary(report);
    EXPECT_EQ(sheet.cell(1, 2).kind, "error");
    EXPECT_EQ(sheet.cell(1, 2).text, "#NUM!");
    EXPECT_EQ(sheet.cell(1, 2).look, test::black_share);
    EXPECT_EQ(sheet.cell(1, 1).text, "00:00:00:00");
}

TEST(files_summary, is_as_wide_as_its_names_and_paths_without_a_margin)
{
    test::made_report report;
    const std::string path = "/" + std::string(300, 'p');
    report.analysis.video_clip_data_array = {
        test::clip_of_file("/media/a file name of 30 characters!.mov", "V1", 0, 9)};
    const auto narrow = files_summary(report);
    EXPECT_THAT(narrow.widths, ElementsAre(33, 15, 10, 40));
    report.analysis.video_clip_data_array.push_back(test::clip_of_file(path, "V1", 10, 19));
    const auto wide = files_summary(report);
    EXPECT_DOUBLE_EQ(wide.widths.at(0), 170);
    EXPECT_DOUBLE_EQ(wide.widths.at(3), 170);
}

TEST(files_summary, of_no_files_is_its_header)
{
    test::made_report report;
    const auto sheet = files_summary(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_DOUBLE_EQ(sheet.widths.at(0), 10);
    EXPECT_DOUBLE_EQ(sheet.widths.at(3), 10);
}

TEST(files_summary, has_shares_that_add_up_to_one)
{
    test::made_report report;
    for (std::int64_t i = 0; i < 7; ++i)
        report.analysis.video_clip_data_array.push_back(
            test::clip_of_file("/" + std::to_string(i), "V1", i * 100, i * 101));
    const auto sheet = files_summary(report);
    double sum = 0;
    for (std::size_t row = 1; row < sheet.row_count(); ++row)
        sum += std::stod(sheet.cell(row, 2).text);
    EXPECT_NEAR(sum, 1, 1e-9);
}

TEST(reels_summary, stands_before_the_reel_sheets_and_lists_their_totals_in_order)
{
    test::made_report report;
    report.analysis.reels_array = {"B002", "A001", "Unused"};
    report.analysis.video_clip_data_array = {of_reel("A001", "V1", 0, 24), of_reel("B002", "V1", 25, 99)};
    const auto book = with_reels(report);
    EXPECT_THAT(book.names(), ElementsAre("Reels Summary", "#1 B002", "#2 A001"));
    const auto& sheet = book.sheet("Reels Summary");
    EXPECT_THAT(sheet.row(0), ElementsAre("Source Reel Name", "Estimated Total", "% of Total"));
    EXPECT_THAT(sheet.row(1), ElementsAre("B002", "00:00:03:00", "0.75"));
    EXPECT_THAT(sheet.row(2), ElementsAre("A001", "00:00:01:00", "0.25"));
    EXPECT_EQ(sheet.row_count(), 3U);
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::no_look, test::black_text, test::black_share));
}

TEST(reels_summary, has_widths_that_do_not_follow_its_names)
{
    test::made_report report;
    const std::string reel(60, 'r');
    report.analysis.reels_array = {reel};
    report.analysis.video_clip_data_array = {of_reel(reel, "V1", 0, 24)};
    const auto book = with_reels(report);
    const auto& sheet = book.sheet("Reels Summary");
    EXPECT_THAT(sheet.widths, ElementsAre(17, 15, 10));
    EXPECT_THAT(sheet.empty_looks, ElementsAre(test::no_look, test::no_look, test::black_share));
}

TEST(reels_summary, of_no_reels_is_its_header)
{
    test::made_report report;
    EXPECT_EQ(with_reels(report).sheet("Reels Summary").row_count(), 1U);
}

} // namespace
} // namespace tallyframe
