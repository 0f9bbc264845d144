// SPDX-License-Identifier: MIT
#include "run/failures.h"
#include "sequence_to_spreadsheet/save_excel.h"
#include "support/absent_media.h"
#include "support/counting_progress.h"
#include "support/records.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"
#include "support/workbook_content.h"
#include "writers/writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::ElementsAre;
using testing::ThrowsMessage;

track_checkboxes all_ticked(std::size_t count)
{
    track_checkboxes checkboxes;
    checkboxes.current = std::vector<int>(count, 1);
    return checkboxes;
}

struct report_run {
    test::temporary_folder folder;
    std::filesystem::path path = folder.path() / "report.xls";
    analysis_result analysis = test::sequence_for_every_sheet();
    report_options options;
    track_checkboxes video = all_ticked(1);
    track_checkboxes audio = all_ticked(1);
    no_diagnostics out;
    test::counting_progress display;

    account save(const media_services* media = nullptr)
    {
        return save_excel(analysis, video, audio, options, path, {out, display, nullptr, media});
    }

    test::workbook_content saved()
    {
        save();
        return test::read_workbook(path);
    }
};

report_options without_extra_sheets()
{
    report_options options;
    options.markers_sheets = options.generators_sheet = options.transitions_sheet = false;
    options.filters_sheet = options.motion_sheet = options.summary_sheet = options.reel_sheets = false;
    return options;
}

/// The colours of a sheet's rows, sorted; headers and cells without a format have none.
std::set<std::string> row_colors(const test::sheet_content& sheet)
{
    std::set<std::string> colors;
    for (const auto& [place, cell] : sheet.cells) {
        std::istringstream look(cell.look);
        std::string color;
        look >> color >> color >> color >> color; // the fourth word, after font, size and weight
        if (color != "auto")
            colors.insert(color);
    }
    return colors;
}

TEST(save_excel, writes_every_sheet_in_order)
{
    report_run run;
    EXPECT_THAT(run.saved().names(),
                ElementsAre("All Reels", "Sequence Markers", "Clip Markers", "Graphics & Titles",
                            "Transitions", "Filters", "Motion Effects", "Files Summary", "Reels Summary",
                            "#1 A001"));
}

TEST(save_excel, freezes_the_first_row_of_every_sheet)
{
    report_run run;
    for (const auto& sheet : run.saved().sheets)
        EXPECT_EQ(sheet.frozen, std::pair(1, 0)) << sheet.name;
}

TEST(save_excel, writes_the_rows_of_every_sheet_in_the_chosen_colours)
{
    report_run run;
    run.options.video_row_color = "purple";
    run.options.audio_row_color = "yellow";
    run.options.marker_row_color = "red";
    const auto book = run.saved();
    EXPECT_THAT(row_colors(book.sheet("All Reels")), ElementsAre("purple", "yellow"));
    EXPECT_THAT(row_colors(book.sheet("Sequence Markers")), ElementsAre("red"));
    EXPECT_THAT(row_colors(book.sheet("Clip Markers")), ElementsAre("red"));
    EXPECT_THAT(row_colors(book.sheet("Graphics & Titles")), ElementsAre("purple"));
    EXPECT_THAT(row_colors(book.sheet("Transitions")), ElementsAre("purple", "yellow"));
    EXPECT_THAT(row_colors(book.sheet("Motion Effects")), ElementsAre("purple"));
    EXPECT_THAT(row_colors(book.sheet("Files Summary")), ElementsAre("black"));
    EXPECT_THAT(row_colors(book.sheet("Reels Summary")), ElementsAre("black"));
    EXPECT_THAT(row_colors(book.sheet("#1 A001")), ElementsAre("black", "purple"));
}

TEST(save_excel, writes_for_bins_what_bins_have)
{
    report_run run;
    run.analysis.is_sequence = false;
    run.analysis.seq_fcp_rate = std::nullopt;
    run.analysis.seq_markers_data_array.clear();
    EXPECT_THAT(run.saved().names(),
                ElementsAre("All Reels", "Clip Markers", "Graphics & Titles", "Transitions", "Filters",
                            "Motion Effects", "#1 A001"));
}

TEST(save_excel, writes_the_clips_sheet_alone_with_every_option_off)
{
    report_run run;
    run.options = without_extra_sheets();
    EXPECT_THAT(run.saved().names(), ElementsAre("All Reels"));
}

TEST(save_excel, writes_header_rows_when_no_track_is_ticked)
{
    report_run run;
    run.video.current = {0};
    run.audio.current = {0};
    const auto book = run.saved();
    EXPECT_THAT(book.names(),
                ElementsAre("All Reels", "Sequence Markers", "Clip Markers", "Graphics & Titles",
                            "Transitions", "Filters", "Motion Effects", "Files Summary", "Reels Summary"));
    EXPECT_EQ(book.sheet("All Reels").row_count(), 1U);
}

TEST(save_excel, reports_nothing_of_track_tables_that_were_never_filled)
{
    report_run run;
    run.video.current = std::nullopt;
    run.audio.current = std::nullopt;
    EXPECT_EQ(run.saved().sheet("All Reels").row_count(), 1U);
}

TEST(save_excel, counts_a_step_for_every_row_and_reel_and_one_for_saving)
{
    report_run run;
    run.save();
    const std::int64_t clips = 2 + 2; // two of them generators
    const std::int64_t markers = 2 + 1;
    EXPECT_EQ(run.display.length, clips + 1 + markers + 2 + 1 + 1 + 2 + 2);
    EXPECT_EQ(run.display.steps, run.display.length - 1);
    EXPECT_THAT(run.display.messages, ElementsAre("Saving spreadsheet...\n"));
    EXPECT_TRUE(run.display.ended);
}

TEST(save_excel, counts_only_the_steps_of_the_sheets_that_it_writes)
{
    const auto length_with = [](bool report_options::*option) {
        report_run run;
        run.options = without_extra_sheets();
        run.options.*option = true;
        run.save();
        return run.display.length - 5;
    };
    EXPECT_EQ(length_with(&report_options::markers_sheets), 3);
    EXPECT_EQ(length_with(&report_options::generators_sheet), 2);
    EXPECT_EQ(length_with(&report_options::filters_sheet), 1);
    EXPECT_EQ(length_with(&report_options::motion_sheet), 1);
    EXPECT_EQ(length_with(&report_options::transitions_sheet), 2);
    EXPECT_EQ(length_with(&report_options::reel_sheets), 2);
    EXPECT_EQ(length_with(&report_options::summary_sheet), 0);
}

TEST(save_excel, leaves_nothing_behind_when_it_is_stopped)
{
    report_run run;
    run.display.stop_at = 5;
    EXPECT_THROW(run.save(), run_cancelled);
    EXPECT_TRUE(std::filesystem::is_empty(run.folder.path()));
    EXPECT_FALSE(run.display.ended);
}

TEST(save_excel, leaves_an_older_report_as_it_was_when_it_is_stopped)
{
    report_run run;
    test::write_file(run.path, "older");
    run.display.stop_at = 5;
    EXPECT_THROW(run.save(), run_cancelled);
    EXPECT_EQ(test::content_of(run.path), "older");
}

TEST(save_excel, passes_on_that_a_sheet_has_too_many_rows)
{
    report_run run;
    run.options = without_extra_sheets();
    run.analysis.video_clip_data_array.assign(66000, test::clip("Shot", "V1", 0, 9));
    try {
        run.save();
        FAIL() << "nothing thrown";
    } catch (const sheet_too_long& error) {
        EXPECT_EQ(error.sheet, "All Reels");
    }
    EXPECT_TRUE(std::filesystem::is_empty(run.folder.path()));
}

TEST(save_excel, refuses_a_row_colour_that_is_none)
{
    report_run run;
    run.options.audio_row_color = "octarine";
    EXPECT_THAT([&] { run.save(); },
                ThrowsMessage<failure>("The color \"octarine\" is not known. Give a color name or #RRGGBB."));
    EXPECT_TRUE(std::filesystem::is_empty(run.folder.path()));
}

TEST(save_excel, writes_the_same_bytes_each_time)
{
    report_run first;
    report_run second;
    first.save();
    second.save();
    EXPECT_EQ(test::content_of(first.path), test::content_of(second.path));
    EXPECT_GT(test::content_of(first.path).size(), 10000U);
}

TEST(save_excel, gives_an_empty_account_when_nothing_is_lost)
{
    report_run run;
    EXPECT_TRUE(run.save().is_empty());
}

TEST(save_excel, tells_which_texts_were_cut)
{
    report_run run;
    run.analysis.video_clip_data_array.front().notes.description = std::string(40'000, 'x');
    run.analysis.seq_markers_data_array.front().comment = std::string(32'768, 'y');
    run.analysis.seq_markers_data_array.back().comment = std::string(32'767, 'z');
    EXPECT_THAT(sentences_of(run.save()),
                ElementsAre("2 texts were cut at the 32,767 characters that a cell takes "
                            "(All Reels, row 5, Sequence Markers, row 2)."));
}

TEST(save_excel, tells_of_missing_media_only_when_media_is_asked_for)
{
    report_run run;
    test::no_media nowhere;
    test::no_audio_tags tags;
    media_services media{nowhere, tags};
    EXPECT_TRUE(run.save(&media).is_empty()) << "whoever makes lists need not have the media";
    media.is_asked_for = true;
    EXPECT_THAT(sentences_of(run.save(&media)), ElementsAre("1 media file was not found (/song.wav)."));
}

TEST(save_excel, leaves_out_disabled_clips_on_request)
{
    report_run run;
    run.analysis.video_clip_data_array.front().enabled = "FALSE";
    run.options.report_enabled_only = true;
    EXPECT_EQ(run.saved().sheet("All Reels").row_count(), 4U);
}

TEST(save_excel, leaves_out_the_audio_of_video_clips_on_request)
{
    report_run run;
    run.analysis.audio_clip_data_array.front().path = run.analysis.video_clip_data_array.front().path;
    run.options.skip_video_clip_audio = true;
    EXPECT_EQ(run.saved().sheet("All Reels").row_count(), 4U);
}

} // namespace
} // namespace tallyframe
