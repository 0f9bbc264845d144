// SPDX-License-Identifier: MIT
#include "report/sheet_set.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace tallyframe {
namespace {

using testing::ElementsAre;

report_options nothing_but_clips()
{
    report_options options;
    options.markers_sheets = options.generators_sheet = options.transitions_sheet = false;
    options.filters_sheet = options.motion_sheet = options.summary_sheet = options.reel_sheets = false;
    return options;
}

TEST(sheet_set, is_everything_in_order_by_default)
{
    EXPECT_THAT(sheet_set({}, true),
                ElementsAre(report_sheet::all_reels, report_sheet::sequence_markers,
                            report_sheet::clip_markers, report_sheet::graphics_and_titles,
                            report_sheet::transitions, report_sheet::filters, report_sheet::motion_effects,
                            report_sheet::files_summary, report_sheet::reels_summary,
                            report_sheet::reel_sheets));
}

TEST(sheet_set, lacks_for_bins_what_needs_a_timeline)
{
    EXPECT_THAT(sheet_set({}, false),
                ElementsAre(report_sheet::all_reels, report_sheet::clip_markers,
                            report_sheet::graphics_and_titles, report_sheet::transitions,
                            report_sheet::filters, report_sheet::motion_effects, report_sheet::reel_sheets));
}

TEST(sheet_set, is_the_clips_sheet_alone_with_every_option_off)
{
    EXPECT_THAT(sheet_set(nothing_but_clips(), true), ElementsAre(report_sheet::all_reels));
    EXPECT_EQ(sheet_name(report_sheet::all_reels), "All Reels");
}

TEST(sheet_set, has_both_marker_sheets_under_one_option)
{
    auto options = nothing_but_clips();
    options.markers_sheets = true;
    EXPECT_THAT(
        sheet_set(options, true),
        ElementsAre(report_sheet::all_reels, report_sheet::sequence_markers, report_sheet::clip_markers));
    EXPECT_THAT(sheet_set(options, false), ElementsAre(report_sheet::all_reels, report_sheet::clip_markers));
}

TEST(sheet_set, has_titles_and_effects_under_an_option_each)
{
    const std::pair<bool report_options::*, report_sheet> sheets[] = {
        {&report_options::generators_sheet, report_sheet::graphics_and_titles},
        {&report_options::transitions_sheet, report_sheet::transitions},
        {&report_options::filters_sheet, report_sheet::filters},
        {&report_options::motion_sheet, report_sheet::motion_effects},
    };
    for (const auto& [option, sheet] : sheets) {
        auto options = nothing_but_clips();
        options.*option = true;
        for (const bool is_sequence : {true, false})
            EXPECT_THAT(sheet_set(options, is_sequence), ElementsAre(report_sheet::all_reels, sheet));
    }
}

TEST(sheet_set, has_the_reels_summary_under_the_option_of_the_reel_sheets)
{
    auto options = nothing_but_clips();
    options.reel_sheets = true;
    EXPECT_THAT(sheet_set(options, true),
                ElementsAre(report_sheet::all_reels, report_sheet::reels_summary, report_sheet::reel_sheets));
}

TEST(sheet_set, has_the_files_summary_under_its_own_option)
{
    auto options = nothing_but_clips();
    options.summary_sheet = true;
    EXPECT_THAT(sheet_set(options, true), ElementsAre(report_sheet::all_reels, report_sheet::files_summary));
}

} // namespace
} // namespace tallyframe
