// SPDX-License-Identifier: MIT
#include "report/clip_columns.h"
#include "support/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace tallyframe {
namespace {

namespace test = testing_support;

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using enum time_format;

const sequence_clock clock_at_25 = {25, display_format::non_drop_frame};
const std::vector<time_format> all_formats = {timecode, clock, frames, feet_and_frames, seconds};

/// Exactly these columns on.
report_options only(const std::vector<std::string>& titles)
{
    report_options options;
    options.layout = "Test";
    options.layouts_array = {{"Test", {}}};
    for (const std::string& title : titles)
        options.layouts_array.front().checkboxes.push_back({title, 1});
    return options;
}

clip_sheet_columns columns_for(const report_options& options, bool is_sequence = true,
                               clip_sheet sheet = clip_sheet::all_reels)
{
    return expand_clip_columns(sheet, options, chosen_columns(options, is_sequence), is_sequence);
}

std::string shown(const cell_value& value)
{
    if (const auto* number = std::get_if<double>(&value))
        return "number " + std::to_string(*number).substr(0, 6);
    if (const auto* made = std::get_if<std::string>(&value))
        return *made;
    if (const auto* text = std::get_if<std::string_view>(&value))
        return std::string(*text);
    return "no cell";
}

std::vector<std::string> row_of(const clip_sheet_columns& columns, const clip_record& clip)
{
    std::vector<std::string> cells;
    for (const auto& column : columns.cells)
        cells.push_back(shown(column.value(clip, {7, clock_at_25})));
    return cells;
}

report_options with_times(std::vector<time_format> timeline, std::vector<time_format> source)
{
    report_options options =
        only({"Sequence In", "Sequence Out", "Clip Duration", "Source In", "Source Out", "Source Duration"});
    options.timeline_time_columns = std::move(timeline);
    options.source_time_columns = std::move(source);
    return options;
}

TEST(clip_columns, stand_in_their_order_by_default)
{
    EXPECT_THAT(columns_for({}).headers,
                ElementsAre("Track", "Clip Name", "Enabled", "Sequence In", "Sequence Out", "Clip Duration",
                            "Source Reel Name", "Source In", "Source Out", "Source Duration", "Description",
                            "Scene", "Shot/Take", "Log Note", "Scene Note", "Shot Note", "Take Note",
                            "Camera Roll", "Daily Roll", "Lab Roll", "Label", "Frame Rate/Sample Rate",
                            "Frame Size", "Source File Name", "Source File Path", "Song Title", "Album",
                            "Track #", "Year", "Musical Genre", "Authors", "Composer", "Producer"));
}

TEST(clip_columns, of_bins_start_with_the_bin_and_have_no_timeline)
{
    const auto headers = columns_for({}, false).headers;
    EXPECT_EQ(headers.front(), "Bin");
    for (const std::string timeline : {"Track", "Enabled", "Sequence In", "Sequence Out", "Clip Duration"})
        EXPECT_THAT(headers, Not(Contains(timeline)));
}

TEST(clip_columns, are_the_clip_name_alone_with_every_switch_off)
{
    const auto columns = columns_for(only({}));
    EXPECT_THAT(columns.headers, ElementsAre("Clip Name"));
    EXPECT_THAT(columns.widths, ElementsAre(9U));
    EXPECT_THAT(row_of(columns, test::full_clip()), ElementsAre("Interview"));
}

TEST(clip_columns, stand_under_the_switch_of_their_header_and_notes_under_that_of_scene_or_shot)
{
    const std::map<std::string, std::vector<std::string>> others = {
        {"Row Numbers", {""}},
        {"Scene", {"Scene", "Scene Note"}},
        {"Shot/Take", {"Shot/Take", "Shot Note", "Take Note"}},
        {"Labels", {"Label"}},
        {"Comments",
         {"Master Comment 1", "Master Comment 2", "Master Comment 3", "Master Comment 4", "Comment A",
          "Comment B"}},
        {"ID3 Metadata",
         {"Song Title", "Album", "Track #", "Year", "Musical Genre", "Authors", "Composer", "Producer"}},
    };
    for (const column_switch_entry& entry : all_column_switches) {
        const std::string title(entry.title);
        const auto other = others.find(title);
        auto headers = columns_for(only({title})).headers;
        std::erase(headers, "Clip Name");
        EXPECT_EQ(headers, other != others.end() ? other->second : std::vector{title}) << title;
    }
}

TEST(clip_columns, show_every_field_of_a_clip)
{
    std::vector<std::string> titles;
    titles.reserve(all_column_switches.size());
    for (const column_switch_entry& entry : all_column_switches)
        titles.emplace_back(entry.title);
    const auto columns = columns_for(only(titles));
    EXPECT_THAT(row_of(columns, test::full_clip()),
                ElementsAre("number 7.0000", "V1 Main", "Interview", "✓", "01:00:00:00", "01:00:01:24",
                            "00:00:02:00", "A001", "00:00:10:00", "00:00:11:24", "00:00:02:00", "S12",
                            "description", "scene", "shottake", "lognote", "scenenote", "shotnote",
                            "takenote", "cameraroll", "dailyroll", "labroll", "Best Take", "mastercomment1",
                            "mastercomment2", "mastercomment3", "mastercomment4", "clipcommenta",
                            "clipcommentb", "PAL (25 fps)", "1920 × 1080", "Interview.mov",
                            "/Volumes/Media/Interview.mov"));
    EXPECT_EQ(columns.cells.size() + 8, columns.headers.size()); // the tags come from the media file
    EXPECT_TRUE(columns.has_audio_tags);
}

TEST(clip_columns, show_an_empty_text_for_every_field_that_a_clip_lacks)
{
    auto options = only({"Track", "Source Reel Name", "Scene", "Labels", "Frame Rate/Sample Rate",
                         "Frame Size", "Source File Name", "Source File Path"});
    const auto nothing = test::placed<clip_record>("V1", 0, 9);
    EXPECT_THAT(row_of(columns_for(options), nothing), ElementsAre("V1", "", "", "", "", "", "", "", "", ""));
}

TEST(clip_columns, widen_with_texts_but_not_with_times_or_check_marks)
{
    const auto columns =
        columns_for(only({"Track", "Enabled", "Sequence In", "Source Reel Name", "Source In"}));
    std::vector<bool> widens;
    for (const auto& column : columns.cells)
        widens.push_back(column.widens);
    EXPECT_THAT(widens, ElementsAre(true, true, false, false, true, false));
}

TEST(clip_columns, put_positions_in_the_order_of_formats_whatever_the_list_says)
{
    auto options = only({"Sequence In"});
    options.timeline_time_columns = {seconds, timecode};
    options.adjustments.hhmmssff_adj = 1;
    EXPECT_THAT(columns_for(options).headers, ElementsAre("Clip Name", "Sequence In +1", "Sequence In"));
}

TEST(clip_columns, name_each_adjustment_in_the_header_of_its_format)
{
    auto options = only({"Sequence In", "Sequence Out"});
    options.timeline_time_columns = all_formats;
    options.adjustments = {1, -2, 3, -4, 5};
    EXPECT_THAT(columns_for(options).headers,
                ElementsAre("Clip Name", "Sequence In +1", "Sequence In -2", "Sequence In +3",
                            "Sequence In -4", "Sequence In +5", "Sequence Out +1", "Sequence Out -2",
                            "Sequence Out +3", "Sequence Out -4", "Sequence Out +5"));
}

TEST(clip_columns, have_a_plain_duration_header_for_each_format)
{
    auto options = only({"Clip Duration", "Source In"});
    options.timeline_time_columns = {timecode, clock, frames};
    options.source_time_columns = {timecode, seconds};
    options.adjustments = {1, 1, 1, 1, 1};
    EXPECT_THAT(columns_for(options).headers,
                ElementsAre("Clip Name", "Clip Duration", "Clip Duration", "Clip Duration", "Source In",
                            "Source In"));
}

TEST(clip_columns, move_positions_by_the_adjustment_of_their_format_and_durations_not)
{
    auto options = only({"Sequence In", "Sequence Out", "Clip Duration"});
    options.timeline_time_columns = all_formats;
    options.adjustments = {1, 25, 3, 16, 50};
    const auto clip = test::clip("Clip", "V1", 0, 24);
    EXPECT_THAT(row_of(columns_for(options), clip),
                ElementsAre("Clip", "00:00:00:01", "00:00:01", "number 3.0000", "0001+00", "number 2.0000",
                            "00:00:01:00", "00:00:01", "number 27.000", "0002+08", "number 2.9600",
                            "00:00:01:00", "00:00:01", "number 25.000", "0001+09", "number 1.0000"));
}

TEST(clip_columns, of_a_reel_run_the_clock_with_the_adjustment_of_the_seconds_on_purpose)
{
    auto options = only({"Sequence In", "Clip Duration"});
    options.timeline_time_columns = {clock, seconds};
    options.adjustments.clock_adj = 25;
    const auto columns = columns_for(options, true, clip_sheet::one_reel);
    EXPECT_THAT(columns.headers,
                ElementsAre("Clip Name", "Sequence In +25", "Sequence In", "Clip Duration", "Clip Duration"));
    const auto clip = test::clip("Clip", "V1", 0, 24);
    EXPECT_THAT(row_of(columns, clip),
                ElementsAre("Clip", "00:00:00", "number 0.0000", "00:00:01", "number 1.0000"));
    options.adjustments.seconds_adj = 50;
    EXPECT_THAT(row_of(columns_for(options, true, clip_sheet::one_reel), clip),
                ElementsAre("Clip", "00:00:02", "number 2.0000", "00:00:01", "number 1.0000"));
}

TEST(clip_columns, show_source_times_at_the_rate_of_the_media)
{
    auto options = only({"Source In"});
    options.source_time_columns = all_formats;
    auto clip = test::clip("Clip", "V1", 0, 24);
    clip.src_start_frame = 1800;
    clip.fcp_rate = frame_rate{29.97, true};
    clip.displayformat = display_format::drop_frame;
    EXPECT_THAT(row_of(columns_for(options), clip),
                ElementsAre("Clip", "00:01:00;02", "00:01:00", "number 1800.0", "0112+08", "number 60.060"));
}

TEST(clip_columns, leave_the_source_times_of_a_still_empty)
{
    const auto options = with_times({timecode}, all_formats);
    auto still = test::full_clip();
    still.isImage = true;
    const auto cells = row_of(columns_for(options), still);
    EXPECT_EQ(cells[1], "01:00:00:00");
    EXPECT_EQ(cells[3], "00:00:02:00");
    EXPECT_EQ(std::count(cells.begin() + 4, cells.end(), "no cell"), 15);
    EXPECT_EQ(cells.size(), 4U + 15U);
}

TEST(clip_columns, leave_numbers_of_missing_source_times_empty_and_write_empty_texts)
{
    auto options = only({"Source In"});
    options.source_time_columns = all_formats;
    EXPECT_THAT(row_of(columns_for(options), test::clip("Slug", "V1", 0, 24)),
                ElementsAre("Slug", "", "", "no cell", "", "no cell"));
}

TEST(clip_columns, leave_source_times_empty_at_a_rate_of_nothing)
{
    auto options = only({"Source In"});
    options.source_time_columns = {timecode, clock, seconds};
    auto clip = test::full_clip();
    clip.fcp_rate = frame_rate{0, false};
    EXPECT_THAT(row_of(columns_for(options), clip), ElementsAre("Interview", "", "", "no cell"));
}

TEST(clip_columns, show_a_fraction_of_a_source_frame)
{
    auto options = only({"Source In"});
    options.source_time_columns = {frames};
    auto clip = test::full_clip();
    clip.src_start_frame = 10.5;
    EXPECT_THAT(row_of(columns_for(options), clip), ElementsAre("Interview", "number 10.500"));
}

TEST(clip_columns, survive_the_largest_frame_numbers)
{
    auto options = with_times(all_formats, {});
    options.adjustments = {INT64_MAX, INT64_MAX, INT64_MAX, INT64_MAX, INT64_MAX};
    const auto clip = test::clip("Clip", "V1", INT64_MAX, INT64_MAX);
    EXPECT_EQ(row_of(columns_for(options), clip).size(), 16U);
}

TEST(clip_columns, show_the_check_mark_for_exactly_enabled)
{
    auto clip = test::clip("Clip", "V1", 0, 9);
    const auto columns = columns_for(only({"Enabled"}));
    EXPECT_THAT(row_of(columns, clip), ElementsAre("Clip", "✓"));
    EXPECT_EQ(columns.cells[1].kind, cell_kind::centered);
    clip.enabled = "FALSE";
    EXPECT_THAT(row_of(columns, clip), ElementsAre("Clip", ""));
    clip.enabled = "true";
    EXPECT_THAT(row_of(columns, clip), ElementsAre("Clip", ""));
}

TEST(clip_columns, show_the_sample_rate_of_audio_in_kilohertz)
{
    const auto columns = columns_for(only({"Frame Rate/Sample Rate"}));
    auto clip = test::clip("Song", "A1", 0, 9);
    const auto shown_for = [&](std::optional<std::string> samplerate) {
        clip.samplerate = std::move(samplerate);
        return row_of(columns, clip).back();
    };
    EXPECT_EQ(shown_for("48000"), "48 kHz");
    EXPECT_EQ(shown_for("44100"), "44.1 kHz");
    EXPECT_EQ(shown_for("32000"), "32 kHz");
    EXPECT_EQ(shown_for("22050"), "22.05 kHz");
    EXPECT_EQ(shown_for(" 96000.0\n"), "96 kHz");
    EXPECT_EQ(shown_for("100000000"), "100000 kHz");
    EXPECT_EQ(shown_for("0.5"), "0.0005 kHz");
    EXPECT_EQ(shown_for(std::nullopt), "0 kHz");
    EXPECT_EQ(shown_for("unknown"), "0 kHz");
    EXPECT_EQ(shown_for("nan"), "0 kHz");
}

TEST(clip_columns, show_the_last_component_of_a_path)
{
    const auto columns = columns_for(only({"Source File Name"}));
    EXPECT_THAT(row_of(columns, test::clip_of_file("/Volumes/Media/", "V1", 0, 9)),
                ElementsAre("Clip", "Media"));
}

TEST(clip_columns, of_bins_show_the_bin)
{
    EXPECT_THAT(row_of(columns_for(only({"Track"}), false), test::full_clip()),
                ElementsAre("Day 1", "Interview"));
}

TEST(clip_columns, number_rows_in_the_text_format)
{
    const auto columns = columns_for(only({"Row Numbers"}));
    EXPECT_THAT(columns.headers, ElementsAre("", "Clip Name"));
    EXPECT_THAT(columns.widths, ElementsAre(4U, 9U));
    EXPECT_EQ(columns.cells[0].kind, cell_kind::plain_number);
    EXPECT_THAT(row_of(columns, test::full_clip()), ElementsAre("number 7.0000", "Interview"));
}

TEST(clip_columns, leave_a_place_for_pictures_after_the_row_number)
{
    auto options = only({"Row Numbers", "Track"});
    options.inpoint_thumbnail_jpegs = true;
    const auto columns = columns_for(options);
    EXPECT_THAT(columns.headers, ElementsAre("", "", "Track", "Clip Name"));
    EXPECT_THAT(columns.widths, ElementsAre(4U, 45U, 5U, 9U)); // 320 pixels
    EXPECT_EQ(columns.picture_column, 1U);
    EXPECT_EQ(row_of(columns, test::full_clip())[1], "no cell");
}

TEST(clip_columns, are_as_wide_as_the_pictures)
{
    auto options = only({});
    options.inpoint_thumbnail_jpegs = true;
    const auto width_for = [&](std::int64_t pixels) {
        options.thumbnail_width = pixels;
        return columns_for(options).widths.front();
    };
    EXPECT_EQ(width_for(640), 108U);
    EXPECT_EQ(width_for(320), 45U);
    EXPECT_EQ(width_for(160), 22U);
    EXPECT_EQ(width_for(16), 1U);
    EXPECT_EQ(width_for(0), 0U);
}

TEST(clip_columns, of_a_reel_have_neither_row_numbers_nor_pictures)
{
    auto options = only({"Row Numbers", "Track"});
    options.inpoint_thumbnail_jpegs = true;
    const auto columns = columns_for(options, true, clip_sheet::one_reel);
    EXPECT_THAT(columns.headers, ElementsAre("Track", "Clip Name"));
    EXPECT_THAT(columns.widths, ElementsAre(5U, 9U));
    EXPECT_EQ(columns.picture_column, std::nullopt);
}

TEST(clip_columns, start_as_wide_as_their_texts_with_room_for_an_adjustment)
{
    EXPECT_THAT(columns_for(with_times({timecode}, {timecode})).widths,
                ElementsAre(9U, 14U, 15U, 13U, 9U, 10U, 15U));
}

TEST(clip_columns, of_bins_start_as_wide_as_the_track_column)
{
    EXPECT_THAT(columns_for(only({"Track"}), false).widths, ElementsAre(5U, 9U));
}

TEST(clip_columns, repeat_the_first_width_for_each_format)
{
    EXPECT_THAT(columns_for(with_times({timecode, frames}, {seconds, clock, timecode})).widths,
                ElementsAre(9U, 14U, 14U, 15U, 15U, 13U, 13U, 9U, 9U, 9U, 10U, 10U, 10U, 15U, 15U, 15U));
}

TEST(clip_columns, keep_a_width_without_a_column_when_no_format_is_chosen_on_purpose)
{
    const auto columns = columns_for(with_times({}, {}));
    EXPECT_THAT(columns.headers, ElementsAre("Clip Name"));
    EXPECT_THAT(columns.widths, ElementsAre(9U, 14U, 15U, 13U, 9U, 10U, 15U));
    EXPECT_EQ(columns.cells.size(), 1U);
    EXPECT_EQ(columns.first_source_duration, std::nullopt);
}

TEST(clip_columns, repeat_plain_headers_for_a_format_chosen_twice_but_not_its_cells_on_purpose)
{
    auto options = only({"Sequence In", "Clip Duration"});
    options.timeline_time_columns = {timecode, timecode};
    const auto columns = columns_for(options);
    EXPECT_THAT(columns.headers, ElementsAre("Clip Name", "Sequence In", "Clip Duration", "Clip Duration"));
    EXPECT_EQ(columns.cells.size(), 3U);
    EXPECT_THAT(columns.widths, ElementsAre(9U, 14U, 14U, 13U, 13U));
}

TEST(clip_columns, tell_where_the_source_durations_start)
{
    EXPECT_EQ(columns_for(with_times({timecode, clock}, {timecode, clock})).first_source_duration, 11U);
    EXPECT_EQ(columns_for(only({"Source Duration"})).first_source_duration, 1U);
    EXPECT_EQ(columns_for(only({"Source In"})).first_source_duration, std::nullopt);
}

} // namespace
} // namespace tallyframe
