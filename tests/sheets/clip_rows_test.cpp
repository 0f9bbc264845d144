// SPDX-License-Identifier: MIT
#include "sheets/clip_rows.h"
#include "sheets/made_report.h"
#include "sheets/reel_sheets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;
using testing::IsEmpty;

clip_record stereo(const std::string& track, std::int64_t start = 0)
{
    return test::clip_of_file("/song.wav", track, start, start + 49);
}

test::shown_sheet clips_sheet(test::made_report& report)
{
    return report.make({add_clips_sheet}).sheet("All Reels");
}

class every_file_is_there final : public media_locator {
public:
    std::optional<std::filesystem::path> locate(const std::string& path) override { return path; }
};

/// Reads from every file a title, an album, a year and two authors.
class reader_without_track_numbers final : public audio_tag_reader {
public:
    std::optional<audio_tags> tags_of(const std::filesystem::path&) override
    {
        audio_tags tags;
        tags.song_title = "A title that widens its column";
        tags.album = "Weather";
        tags.year = 1999;
        tags.authors = "Ann,, Bo";
        return tags;
    }
};

TEST(clips_sheet, has_its_header_frozen_though_there_are_no_clips)
{
    test::made_report report;
    const auto sheet = clips_sheet(report);
    EXPECT_EQ(sheet.row_count(), 1U);
    EXPECT_EQ(sheet.cell(0, 0).text, "Track");
    EXPECT_EQ(sheet.cell(0, 32).text, "Producer");
    EXPECT_THAT(sheet.looks(0), ElementsAre(test::header_look));
    EXPECT_EQ(sheet.frozen_rows, 1U);
}

TEST(clips_sheet, writes_a_clip_with_its_formats)
{
    test::made_report report;
    report.options.timeline_time_columns = {time_format::timecode, time_format::frames, time_format::seconds};
    report.show_only({"Track", "Enabled", "Sequence In", "Description"});
    report.analysis.video_clip_data_array = {test::full_clip()};
    const auto sheet = clips_sheet(report);
    EXPECT_THAT(sheet.row(1),
                ElementsAre("V1 Main", "Interview", "✓", "01:00:00:00", "90000", "3600", "description"));
    EXPECT_EQ(sheet.cell(1, 0).look, test::video_text);
    EXPECT_EQ(sheet.cell(1, 2).look, test::video_center);
    EXPECT_EQ(sheet.cell(1, 4).look, test::video_integer);
    EXPECT_EQ(sheet.cell(1, 4).kind, "number");
    EXPECT_EQ(sheet.cell(1, 5).look, test::video_decimal);
}

TEST(clips_sheet, writes_audio_rows_in_their_colour)
{
    test::made_report report;
    report.analysis.audio_clip_data_array = {stereo("A1")};
    EXPECT_THAT(clips_sheet(report).looks(1), ElementsAre(test::audio_text, test::audio_center));
}

TEST(clips_sheet, shows_blank_cells_for_what_a_clip_lacks)
{
    test::made_report report;
    report.show_only({"Source Reel Name", "Source In"});
    report.analysis.generatoritem_array = {test::generator("Title", "V1", 0, 9)};
    const auto sheet = clips_sheet(report);
    EXPECT_THAT(sheet.row(1), ElementsAre("Title", "", ""));
    EXPECT_EQ(sheet.cell(1, 1).kind, "blank");
    EXPECT_EQ(sheet.cell(1, 1).look, test::video_text);
}

TEST(clips_sheet, shows_no_label_for_generators_not_even_none)
{
    test::made_report report;
    report.show_only({"Labels"});
    report.analysis.generatoritem_array = {test::generator("Title", "V1", 0, 9)};
    report.analysis.video_clip_data_array = {test::clip("Shot", "V1", 10, 19)};
    EXPECT_THAT(clips_sheet(report).column(1), ElementsAre("Label", "", "None"));
}

TEST(clips_sheet, shows_a_disabled_clip_with_a_blank_check_mark)
{
    test::made_report report;
    report.show_only({"Enabled"});
    report.analysis.video_clip_data_array = {test::clip("Shot", "V1", 10, 19)};
    report.analysis.video_clip_data_array.front().enabled = "FALSE";
    const auto sheet = clips_sheet(report);
    EXPECT_EQ(sheet.cell(1, 1).kind, "blank");
    EXPECT_EQ(sheet.cell(1, 1).look, test::video_center);
}

TEST(clips_sheet, leaves_the_source_times_of_stills_without_cells)
{
    test::made_report report;
    report.show_only({"Source In", "Frame Size"});
    report.analysis.video_clip_data_array = {test::full_clip()};
    report.analysis.video_clip_data_array.front().isImage = true;
    EXPECT_THAT(clips_sheet(report).row(1), ElementsAre("Interview", "-", "1920 × 1080"));
}

TEST(clips_sheet, joins_the_channels_of_a_stereo_clip_and_numbers_rows_without_gaps)
{
    test::made_report report;
    report.show_only({"Row Numbers", "Track"});
    report.analysis.audio_clip_data_array = {stereo("A1"), stereo("A2"), stereo("A3"), stereo("A1", 50)};
    report.analysis.video_clip_data_array = {test::clip("Shot", "V1", 100, 149)};
    const auto sheet = clips_sheet(report);
    EXPECT_THAT(sheet.column(0), ElementsAre("-", "1", "2", "3"));
    EXPECT_THAT(sheet.column(1), ElementsAre("Track", "A1", "A1", "V1"));
    EXPECT_EQ(sheet.cell(1, 0).look, test::audio_text);
}

TEST(clips_sheet, does_not_join_sound_and_picture)
{
    test::made_report report;
    report.analysis.audio_clip_data_array = {stereo("A1")};
    report.analysis.video_clip_data_array = {stereo("V1")};
    EXPECT_EQ(clips_sheet(report).row_count(), 3U);
}

TEST(clips_sheet, makes_a_step_for_each_clip_though_it_shares_a_row)
{
    test::made_report report;
    report.analysis.audio_clip_data_array = {stereo("A1"), stereo("A2")};
    clips_sheet(report);
    EXPECT_EQ(report.steps, 2U);
}

TEST(clips_sheet, sums_up_the_files_of_the_rows_that_it_writes)
{
    test::made_report report;
    report.analysis.audio_clip_data_array = {stereo("A1"), stereo("A2"), stereo("A1", 50)};
    report.analysis.generatoritem_array = {test::generator("Title", "V1", 200, 209)};
    clips_sheet(report);
    const auto& files = report.files_summary;
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].path, "/song.wav");
    EXPECT_EQ(files[0].estimated_total, 100);
    EXPECT_EQ(files[1].path, "");
    EXPECT_EQ(files[1].estimated_total, 10);
}

TEST(clips_sheet, is_as_wide_as_its_longest_texts)
{
    test::made_report report;
    report.show_only({"Description"});
    auto clip = test::clip(std::string(100, 'n'), "V1", 0, 9);
    clip.notes.description = std::string(300, 'd');
    report.analysis.video_clip_data_array = {clip};
    const auto widths = clips_sheet(report).widths;
    EXPECT_DOUBLE_EQ(widths.at(0), 85);
    EXPECT_DOUBLE_EQ(widths.at(1), 170);
}

TEST(clips_sheet, has_one_character_more_than_its_header_texts)
{
    test::made_report report;
    report.show_only({"Sequence In", "Description"});
    const auto widths = clips_sheet(report).widths;
    EXPECT_DOUBLE_EQ(widths.at(0), 10);
    EXPECT_DOUBLE_EQ(widths.at(1), 15);
    EXPECT_DOUBLE_EQ(widths.at(2), 12);
}

TEST(clips_sheet, of_bins_lists_the_clips_by_bin)
{
    test::made_report report;
    report.analysis.is_sequence = false;
    report.analysis.seq_fcp_rate = std::nullopt;
    report.show_only({"Track", "Enabled", "Sequence In", "Source In"});
    report.analysis.video_clip_data_array = {test::full_clip()};
    const auto sheet = clips_sheet(report);
    EXPECT_THAT(sheet.row(0), ElementsAre("Bin", "Clip Name", "Source In"));
    EXPECT_THAT(sheet.row(1), ElementsAre("Day 1", "Interview", "00:00:10:00"));
}

TEST(clip_rows, of_audio_end_with_the_tags_of_their_files)
{
    every_file_is_there locator;
    reader_without_track_numbers reader;
    audio_tag_catalogue tags(locator, reader);
    test::made_report report;
    report.tags = &tags;
    report.show_only({"ID3 Metadata"});
    report.analysis.audio_clip_data_array = {stereo("A1")};
    report.analysis.video_clip_data_array = {stereo("V1")};
    report.analysis.audio_clip_data_array.front().reel_name = "A001";
    report.analysis.video_clip_data_array.front().reel_name = "A001";
    report.analysis.reels_array = {"A001"};
    const auto book = report.make({add_clips_sheet, add_reel_sheets});
    for (const std::string name : {"All Reels", "#1 A001"}) {
        const auto& sheet = book.sheet(name);
        EXPECT_THAT(sheet.row(0),
                    ElementsAre("Clip Name", "Song Title", "Album", "Track #", "Year", "Musical Genre",
                                "Authors", "Composer", "Producer"));
        EXPECT_THAT(sheet.row(1),
                    ElementsAre("Clip", "A title that widens its column", "Weather", "-", "1999", "",
                                "Ann,, Bo", "", ""))
            << "without a track number there is no cell, but its place is kept";
        EXPECT_THAT(sheet.looks(1), ElementsAre(test::audio_text)) << "numbers, too";
        EXPECT_EQ(sheet.cell(1, 4).kind, "number");
        EXPECT_THAT(sheet.row(2), ElementsAre("Clip")) << "a video row of the same file";
        EXPECT_DOUBLE_EQ(sheet.widths.at(1), 30);
        EXPECT_DOUBLE_EQ(sheet.widths.at(2), 7);
    }
}

TEST(clips_sheet, keeps_a_place_for_pictures)
{
    test::made_report report;
    report.options.inpoint_thumbnail_jpegs = true;
    report.options.thumbnail_width = 640;
    report.show_only({"Track"});
    report.analysis.video_clip_data_array = {test::full_clip()};
    const auto sheet = clips_sheet(report);
    EXPECT_THAT(sheet.row(1), ElementsAre("-", "V1 Main", "Interview"));
    EXPECT_DOUBLE_EQ(sheet.widths.at(0), 92.65);
}

} // namespace
} // namespace tallyframe
