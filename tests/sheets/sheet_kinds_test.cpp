// SPDX-License-Identifier: MIT
#include "sheets/report.h"
#include "sheets/sheet_kinds.h"
#include "support/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing::ElementsAre;

std::vector<std::string> names_with(const report_options& options, bool is_sequence = true)
{
    analysis_result analysis = testing_support::sequence_at_25();
    analysis.is_sequence = is_sequence;
    std::vector<std::string> names;
    for (const sheet& made : make_report(analysis, {}, options).sheets)
        names.push_back(made.name);
    return names;
}

report_options nothing_but_clips()
{
    report_options options;
    for (const sheet_option& choice : sheet_options())
        options.*choice.option = false;
    return options;
}

TEST(sheets, are_all_there_in_order_by_default)
{
    EXPECT_THAT(names_with({}),
                ElementsAre("All Reels", "Sequence Markers", "Clip Markers", "Graphics & Titles",
                            "Transitions", "Filters", "Motion Effects", "Files Summary", "Reels Summary"));
}

TEST(sheets, lack_for_bins_what_needs_a_timeline)
{
    EXPECT_THAT(names_with({}, false),
                ElementsAre("All Reels", "Clip Markers", "Graphics & Titles", "Transitions", "Filters",
                            "Motion Effects"));
}

TEST(sheets, are_the_clips_alone_with_every_option_off)
{
    EXPECT_THAT(names_with(nothing_but_clips()), ElementsAre("All Reels"));
}

TEST(sheets, follow_the_option_that_leaves_them_out)
{
    for (const sheet_option& choice : sheet_options()) {
        report_options options = nothing_but_clips();
        options.*choice.option = true;
        std::vector<std::string> expected;
        for (const sheet_kind& kind : sheet_kinds()) {
            if (!kind.name.empty() && (kind.choice == nullptr || kind.choice->option == choice.option))
                expected.emplace_back(kind.name);
        }
        EXPECT_EQ(names_with(options), expected) << choice.flag;
        EXPECT_GT(expected.size(), 1U) << choice.flag;
    }
}

TEST(sheets, are_made_under_the_names_of_the_table)
{
    for (const sheet_kind& kind : sheet_kinds()) {
        const analysis_result analysis = testing_support::sequence_at_25();
        const report_options options;
        const report_rows rows;
        growing_report growing;
        kind.add({analysis, options, rows, chosen_columns(options, true), {}}, growing);
        ASSERT_EQ(growing.sheets.size(), kind.name.empty() ? 0U : 1U) << kind.name;
        if (!kind.name.empty()) {
            EXPECT_EQ(growing.sheets.front().name, kind.name);
        }
    }
}

TEST(sheets, are_left_out_or_added_by_their_flags)
{
    for (const sheet_option& choice : sheet_options())
        EXPECT_EQ(choice.is_default(), std::string_view(choice.flag).starts_with("--no-")) << choice.flag;
}

TEST(sheets, know_the_choice_that_leaves_them_out)
{
    EXPECT_EQ(choice_of_sheet("All Reels"), nullptr);
    EXPECT_STREQ(choice_of_sheet("Clip Markers")->flag, "--no-markers");
    EXPECT_STREQ(choice_of_sheet("Files Summary")->flag, "--no-files-summary");
    EXPECT_STREQ(choice_of_sheet("#3 A001")->flag, "--no-reels");
}

TEST(progress_of_a_report, counts_rows_and_reels)
{
    analysis_result analysis = testing_support::sequence_at_25();
    analysis.seq_markers_data_array.resize(3);
    analysis.reels_array = {"A001", "B002"};
    EXPECT_EQ(progress_steps(make_report(analysis, {}, {})), 5U);
}

} // namespace

} // namespace tallyframe
