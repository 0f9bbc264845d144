// SPDX-License-Identifier: MIT
#include "cli/arguments.h"
#include "cli/parsed_report.h"

#include <gtest/gtest.h>

namespace tallyframe::cli {

TEST(parse_arguments, leaves_every_option_at_its_default_without_flags)
{
    const report_request request = parsed({});
    EXPECT_EQ(request.document, "cut.xml");
    EXPECT_FALSE(request.output);
    EXPECT_EQ(request.item.by, item_choice::kind::only_one);
    EXPECT_EQ(request.scope, report_scope::video_audio);
    EXPECT_EQ(request.figures, figure_style::comparable);
    EXPECT_FALSE(request.tracks);
    EXPECT_EQ(request.options.video_row_color, "blue");
    EXPECT_EQ(request.options.audio_row_color, "green");
    EXPECT_EQ(request.options.marker_row_color, "gray");
    EXPECT_EQ(request.options.timeline_time_columns, std::vector{time_format::timecode});
    EXPECT_EQ(request.options.source_time_columns, std::vector{time_format::timecode});
    EXPECT_TRUE(request.options.markers_sheets && request.options.generators_sheet
                && request.options.transitions_sheet && request.options.filters_sheet
                && request.options.motion_sheet && request.options.summary_sheet
                && request.options.reel_sheets);
    EXPECT_FALSE(request.options.layout);
    EXPECT_FALSE(request.options.report_enabled_only);
    EXPECT_FALSE(request.options.skip_video_clip_audio);
    EXPECT_FALSE(request.options.inpoint_thumbnail_jpegs);
}

TEST(parse_arguments, takes_either_style_of_figures)
{
    EXPECT_EQ(parsed({"--figures", "exact"}).figures, figure_style::exact);
    EXPECT_EQ(parsed({"--figures=comparable"}).figures, figure_style::comparable);
    try {
        parsed({"--figures", "Exact"});
        FAIL() << "taken";
    } catch (const usage_error& error) {
        EXPECT_STREQ(error.what(), "--figures: there are no figures \"Exact\". Write comparable or exact.");
    }
}

TEST(parse_arguments, keeps_order_and_repeats_of_time_columns)
{
    const report_request request =
        parsed({"--timeline-columns", "Seconds,Timecode,Seconds", "--source-columns", "Feet+Frames, Clock"});
    EXPECT_EQ(request.options.timeline_time_columns,
              (std::vector{time_format::seconds, time_format::timecode, time_format::seconds}));
    EXPECT_EQ(request.options.source_time_columns,
              (std::vector{time_format::feet_and_frames, time_format::clock}));
}

TEST(parse_arguments, allows_an_empty_list_of_time_columns)
{
    EXPECT_TRUE(parsed({"--timeline-columns", ""}).options.timeline_time_columns.empty());
    EXPECT_TRUE(parsed({"--source-columns="}).options.source_time_columns.empty());
}

TEST(parse_arguments, reads_adjustments_with_either_sign)
{
    const time_adjustments adjustments =
        parsed({"--adjust", "Timecode=+1", "--adjust", "Clock=-2", "--adjust", "Frames=3", "--adjust",
                "Feet+Frames = +4", "--adjust=Seconds=-5"})
            .options.adjustments;
    EXPECT_EQ(adjustments.hhmmssff_adj, 1);
    EXPECT_EQ(adjustments.clock_adj, -2);
    EXPECT_EQ(adjustments.frames_adj, 3);
    EXPECT_EQ(adjustments.feetframes_adj, 4);
    EXPECT_EQ(adjustments.seconds_adj, -5);
}

TEST(parse_arguments, refuses_adjustments_without_a_number_in_range)
{
    for (const char* text :
         {"Timecode", "Timecode=", "Timecode=1x", "Timecode=+-1", "Timecode=99999999999", "=1"})
        EXPECT_THROW(parsed({"--adjust", text}), usage_error) << text;
}

TEST(parse_arguments, makes_a_layout_of_exactly_the_columns_given)
{
    const report_options options = parsed({"--columns", "Track, Sequence In"}).options;
    ASSERT_EQ(options.layouts_array.size(), 1U);
    EXPECT_EQ(options.layout, options.layouts_array[0].name);
    ASSERT_EQ(options.layouts_array[0].checkboxes.size(), 2U);
    EXPECT_EQ(options.layouts_array[0].checkboxes[0].title, "Track");
    EXPECT_EQ(options.layouts_array[0].checkboxes[1].title, "Sequence In");
    EXPECT_EQ(options.layouts_array[0].checkboxes[1].state, 1);
}

TEST(parse_arguments, switches_each_sheet_off_by_its_own_flag)
{
    EXPECT_FALSE(parsed({"--no-markers"}).options.markers_sheets);
    EXPECT_FALSE(parsed({"--no-generators"}).options.generators_sheet);
    EXPECT_FALSE(parsed({"--no-transitions"}).options.transitions_sheet);
    EXPECT_FALSE(parsed({"--no-filters"}).options.filters_sheet);
    EXPECT_FALSE(parsed({"--no-motion"}).options.motion_sheet);
    EXPECT_FALSE(parsed({"--no-files-summary"}).options.summary_sheet);
    EXPECT_FALSE(parsed({"--no-reels"}).options.reel_sheets);
    EXPECT_TRUE(parsed({"--no-reels"}).options.summary_sheet);
}

TEST(parse_arguments, reads_the_tracks_and_none_of_them)
{
    EXPECT_EQ(parsed({"--tracks", "V1, A2"}).tracks, (std::vector<std::string>{"V1", "A2"}));
    EXPECT_EQ(parsed({"--tracks", "none"}).tracks, std::vector<std::string>());
    EXPECT_EQ(parsed({"--tracks", " "}).tracks, std::vector<std::string>());
    EXPECT_EQ(parsed({"--tracks", " V1 ,A2,"}).tracks, (std::vector<std::string>{"V1", "A2"}));
    EXPECT_EQ(parsed({"--tracks", "V1,,A2"}).tracks, (std::vector<std::string>{"V1", "", "A2"}));
}

TEST(parse_arguments, accepts_colours_by_name_or_number)
{
    EXPECT_EQ(parsed({"--video-color", "navy"}).options.video_row_color, "navy");
    EXPECT_EQ(parsed({"--marker-color", "#12AB9F"}).options.marker_row_color, "#12AB9F");
    EXPECT_THROW(parsed({"--audio-color", "#12"}), usage_error);
}

} // namespace tallyframe::cli
