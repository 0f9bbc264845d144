// SPDX-License-Identifier: MIT
#include "sheets/clip_rows.h"
#include "sheets/made_report.h"
#include "sheets/reel_sheets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;
using testing::IsEmpty;

clip_record of_reel(const std::string& reel, const std::string& name, const std::string& track,
                    std::int64_t start, std::int64_t end)
{
    auto clip = test::clip(name, track, start, end);
    clip.reel_name = reel;
    return clip;
}

/// A report with the reel "A001" alone and these columns.
test::made_report report_with(const std::vector<std::string>& titles, const std::vector<clip_record>& clips)
{
    test::made_report report;
    report.show_only(titles);
    report.analysis.reels_array = {"A001"};
    for (const clip_record& clip : clips)
        (clip.place.track.front() == 'V' ? report.analysis.video_clip_data_array
                                         : report.analysis.audio_clip_data_array)
            .push_back(clip);
    return report;
}

test::shown_sheet reel_sheet(test::made_report& report)
{
    return report.make({add_reel_sheets}).sheet("#1 A001");
}

TEST(reel_sheet, lists_the_clips_of_its_reel)
{
    auto report = report_with({"Track", "Enabled", "Source Reel Name"},
                              {of_reel("A001", "One", "V1", 0, 9), of_reel("B002", "Two", "V1", 10, 19),
                               test::clip("No reel", "V1", 20, 29), of_reel("A001", "Three", "A1", 30, 39)});
    const auto sheet = reel_sheet(report);
    EXPECT_THAT(sheet.row(0), ElementsAre("Track", "Clip Name", "Enabled", "Source Reel Name"));
    EXPECT_THAT(sheet.row(1), ElementsAre("V1", "One", "✓", "A001"));
    EXPECT_THAT(sheet.row(2), ElementsAre("A1", "Three", "✓", "A001"));
    EXPECT_EQ(sheet.row_count(), 3U);
    EXPECT_THAT(sheet.looks(0), ElementsAre(test::header_look));
    EXPECT_THAT(sheet.looks(1), ElementsAre(test::video_text, test::video_center));
    EXPECT_THAT(sheet.looks(2), ElementsAre(test::audio_text, test::audio_center));
    EXPECT_EQ(sheet.frozen_rows, 1U);
}

TEST(reel_sheet, is_not_made_for_a_reel_without_clips_which_keeps_its_number)
{
    auto report = report_with({}, {of_reel("B002", "Two", "V1", 0, 9)});
    report.analysis.reels_array = {"A001", "B002"};
    EXPECT_THAT(report.make({add_clips_sheet, add_reel_sheets}).names(), ElementsAre("All Reels", "#2 B002"));
    ASSERT_EQ(report.reels_summary.size(), 1U);
    EXPECT_EQ(report.reels_summary.front().name, "B002");
    EXPECT_EQ(report.steps, 1U + 2U);
}

TEST(reel_sheet, has_neither_row_numbers_nor_pictures)
{
    auto report = report_with({"Row Numbers", "Track"}, {of_reel("A001", "One", "V1", 0, 9)});
    report.options.inpoint_thumbnail_jpegs = true;
    EXPECT_THAT(reel_sheet(report).row(1), ElementsAre("V1", "One"));
}

TEST(reel_sheet, joins_two_channels_of_one_clip_by_name_though_their_files_differ_on_purpose)
{
    auto left = of_reel("A001", "Song", "A1", 0, 9);
    auto right = of_reel("A001", "Song", "A2", 0, 9);
    left.path = "/left.wav";
    right.path = "/right.wav";
    auto report = report_with({"Track"}, {left, right, of_reel("A001", "Other", "A3", 0, 9)});
    const auto book = report.make({add_clips_sheet, add_reel_sheets});
    EXPECT_THAT(book.sheet("#1 A001").column(0), ElementsAre("Track", "A1", "A3"));
    EXPECT_THAT(book.sheet("All Reels").column(0), ElementsAre("Track", "A1", "A2", "A3"));
}

TEST(reel_sheet, joins_two_video_clips_of_one_name_too_on_purpose)
{
    auto report =
        report_with({"Track"}, {of_reel("A001", "Shot", "V1", 0, 9), of_reel("A001", "Shot", "V2", 0, 9)});
    EXPECT_THAT(reel_sheet(report).column(0), ElementsAre("Track", "V1"));
}

TEST(reel_sheet, counts_picture_and_sound_of_a_clip_once_in_its_total)
{
    auto report = report_with({"Track", "Source Duration"},
                              {of_reel("A001", "Shot", "V1", 0, 49), of_reel("A001", "Shot", "A1", 0, 49),
                               of_reel("A001", "Shot", "V1", 50, 74)});
    const auto sheet = reel_sheet(report);
    EXPECT_THAT(sheet.column(0), ElementsAre("Track", "A1", "V1", "V1", "-", "-"));
    EXPECT_EQ(sheet.cell(5, 2).text, "00:00:03:00");
    EXPECT_EQ(report.reels_summary.front().estimated_total, 75);
}

TEST(reel_sheet, shows_its_total_two_rows_below_the_last_under_the_first_source_duration)
{
    auto report = report_with({"Source Duration"}, {of_reel("A001", "Shot", "V1", 0, 49)});
    report.options.source_time_columns = {time_format::timecode, time_format::clock};
    const auto sheet = reel_sheet(report);
    EXPECT_THAT(sheet.row(0), ElementsAre("Clip Name", "Source Duration", "Source Duration"));
    EXPECT_THAT(sheet.row(2), IsEmpty());
    EXPECT_THAT(sheet.row(3), ElementsAre("Total:", "00:00:02:00"));
    EXPECT_EQ(sheet.cell(3, 0).look, test::header_look);
    EXPECT_EQ(sheet.cell(3, 1).look, test::black_text);
}

TEST(reel_sheet, has_no_total_without_a_source_duration)
{
    auto report = report_with({"Track"}, {of_reel("A001", "Shot", "V1", 0, 49)});
    EXPECT_EQ(reel_sheet(report).row_count(), 2U);
}

TEST(reel_sheet, has_no_total_when_no_source_time_format_is_chosen)
{
    auto report = report_with({"Source Duration"}, {of_reel("A001", "Shot", "V1", 0, 49)});
    report.options.source_time_columns = {};
    EXPECT_EQ(reel_sheet(report).row_count(), 2U);
}

TEST(reel_sheet, of_bins_has_no_total)
{
    auto report = report_with({"Track", "Source Duration"}, {of_reel("A001", "Shot", "V1", 0, 49)});
    report.analysis.is_sequence = false;
    const auto sheet = reel_sheet(report);
    EXPECT_THAT(sheet.row(0), ElementsAre("Bin", "Clip Name", "Source Duration"));
    EXPECT_EQ(sheet.row_count(), 2U);
}

TEST(reel_sheet, runs_the_clock_with_the_adjustment_of_the_seconds_on_purpose)
{
    auto report = report_with({"Sequence In"}, {of_reel("A001", "Shot", "V1", 0, 49)});
    report.options.timeline_time_columns = {time_format::clock, time_format::seconds};
    report.options.adjustments.clock_adj = 25;
    const auto book = report.make({add_clips_sheet, add_reel_sheets});
    EXPECT_THAT(book.sheet("#1 A001").row(0), ElementsAre("Clip Name", "Sequence In +25", "Sequence In"));
    EXPECT_THAT(book.sheet("#1 A001").row(1), ElementsAre("Shot", "00:00:00", "0"));
    EXPECT_THAT(book.sheet("All Reels").row(1), ElementsAre("Shot", "00:00:01", "0"));
}

TEST(reel_sheet, of_exact_figures_runs_the_clock_with_its_own_adjustment)
{
    auto report = report_with({"Sequence In"}, {of_reel("A001", "Shot", "V1", 0, 49)});
    report.analysis.figures = figure_style::exact;
    report.options.timeline_time_columns = {time_format::clock, time_format::seconds};
    report.options.adjustments.clock_adj = 25;
    const auto book = report.make({add_clips_sheet, add_reel_sheets});
    EXPECT_THAT(book.sheet("#1 A001").row(0), ElementsAre("Clip Name", "Sequence In +25", "Sequence In"));
    EXPECT_THAT(book.sheet("#1 A001").row(1), ElementsAre("Shot", "00:00:01", "0"));
    EXPECT_THAT(book.sheet("All Reels").row(1), ElementsAre("Shot", "00:00:01", "0"));
}

TEST(reel_sheet, shows_the_sample_rate_of_audio_too)
{
    auto song = of_reel("A001", "Song", "A1", 0, 9);
    song.samplerate = "44100";
    auto report = report_with({"Frame Rate/Sample Rate"}, {song});
    EXPECT_THAT(reel_sheet(report).row(1), ElementsAre("Song", "44.1 kHz"));
}

TEST(reel_sheet, does_not_count_its_files_again)
{
    auto report = report_with({}, {of_reel("A001", "Shot", "V1", 0, 49)});
    report.make({add_clips_sheet, add_reel_sheets});
    EXPECT_EQ(report.files_summary.front().estimated_total, 50);
}

TEST(reel_sheet, has_widths_of_its_own)
{
    auto report = report_with({"Track", "Description"}, {of_reel("A001", "Shot", "V1", 0, 9)});
    report.analysis.reels_array = {"A001", "B002"};
    report.analysis.video_clip_data_array.push_back(of_reel("B002", "A clip with a long name", "V1", 10, 19));
    const auto book = report.make({add_reel_sheets});
    EXPECT_DOUBLE_EQ(book.sheet("#1 A001").widths.at(0), 6);
    EXPECT_DOUBLE_EQ(book.sheet("#1 A001").widths.at(1), 10);
    EXPECT_DOUBLE_EQ(book.sheet("#2 B002").widths.at(1), 23);
    EXPECT_DOUBLE_EQ(book.sheet("#2 B002").widths.at(2), 12);
}

TEST(reel_sheet, is_one_for_each_of_200_reels)
{
    test::made_report report;
    for (std::int64_t i = 0; i < 200; ++i) {
        const std::string reel = "A very long reel name, the same up to its number " + std::to_string(i);
        report.analysis.reels_array.push_back(reel);
        report.analysis.video_clip_data_array.push_back(of_reel(reel, "Shot", "V1", i * 10, i * 10 + 9));
    }
    const auto names = report.make({add_reel_sheets}).names();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 200U);
    for (const std::string& name : names)
        EXPECT_EQ(name.size(), 31U);
}

} // namespace
} // namespace tallyframe
