// SPDX-License-Identifier: MIT
#include "sheets/sheet_kinds.h"

#include "sheets/clip_rows.h"
#include "sheets/effect_sheets.h"
#include "sheets/generators_sheet.h"
#include "sheets/marker_sheets.h"
#include "sheets/media_sheet.h"
#include "sheets/reel_sheets.h"
#include "sheets/summary_sheets.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tallyframe {

namespace {

constexpr sheet_option markers = {
    &report_options::markers_sheets,
    "--no-markers",
    R"("Sequence Markers" and "Clip Markers")",
    "markersSheetsCheckbox",
    "Markers",
    R"(The sheets "Sequence Markers" and "Clip Markers", with names, comments and colors)"};
constexpr sheet_option generators = {
    &report_options::generators_sheet,
    "--no-generators",
    R"("Graphics & Titles")",
    "generatorsSheetCheckbox",
    "Graphics && Titles",
    R"(The sheet "Graphics & Titles": every title with its text and fonts, slugs and mattes)"};
constexpr sheet_option transitions = {&report_options::transitions_sheet,
                                      "--no-transitions",
                                      R"("Transitions")",
                                      "transitionsSheetCheckbox",
                                      "Transitions",
                                      R"(The sheet "Transitions": every transition, other makers' in red)"};
constexpr sheet_option filters = {&report_options::filters_sheet,
                                  "--no-filters",
                                  R"("Filters")",
                                  "filtersSheetCheckbox",
                                  "Filters",
                                  R"(The sheet "Filters": every filter, other makers' in red)"};
constexpr sheet_option motion = {
    &report_options::motion_sheet,
    "--no-motion",
    R"("Motion Effects")",
    "motionSheetCheckbox",
    "Motion Effects",
    R"(The sheet "Motion Effects": scale, rotation, crop and whatever else is not neutral)"};
constexpr sheet_option files_summary = {
    &report_options::summary_sheet,
    "--no-files-summary",
    R"("Files Summary")",
    "summarySheetCheckbox",
    "Files Summary",
    R"(The sheet "Files Summary": the time of all uses of each media file)"};
constexpr sheet_option media_check = {
    &report_options::media_sheet,
    "--media-sheet",
    R"("Media Check")",
    "mediaSheetCheckbox",
    "Media Check",
    R"(The sheet "Media Check": every media file beside what the timeline says of it. Opens them all)"};
constexpr sheet_option reels = {&report_options::reel_sheets,
                                "--no-reels",
                                R"("Reels Summary" and the sheets per reel)",
                                "reelSheetsCheckbox",
                                "Reels (summary and a sheet each)",
                                R"(The sheet "Reels Summary" and one sheet for each source reel)"};

constexpr std::array choices = {markers, generators,    transitions, filters,
                                motion,  files_summary, media_check, reels};

constexpr sheet_kind kinds[] = {
    {all_reels_name, nullptr, false, add_clips_sheet},
    {sequence_markers_name, &markers, true, add_sequence_markers_sheet},
    {clip_markers_name, &markers, false, add_clip_markers_sheet},
    {graphics_and_titles_name, &generators, false, add_generators_sheet},
    {transitions_name, &transitions, false, add_transitions_sheet},
    {filters_name, &filters, false, add_filters_sheet},
    {motion_effects_name, &motion, false, add_motion_sheet},
    {files_summary_name, &files_summary, true, add_files_summary},
    {media_check_name, &media_check, false, add_media_sheet},
    {reels_summary_name, &reels, true, add_reels_summary},
    {{}, &reels, false, add_reel_sheets},
};

} // namespace

std::span<const sheet_option> sheet_options()
{
    return choices;
}

std::span<const sheet_kind> sheet_kinds()
{
    return kinds;
}

bool is_wanted(const sheet_kind& kind, const report_options& options, bool is_sequence)
{
    const bool is_chosen = kind.choice == nullptr || options.*kind.choice->option;
    return is_chosen && (is_sequence || !kind.for_sequences_only);
}

const sheet_option* choice_of_sheet(std::string_view name)
{
    const auto named = std::ranges::find(kinds, name, &sheet_kind::name);
    return named != std::end(kinds) ? named->choice : std::prev(std::end(kinds))->choice;
}

} // namespace tallyframe
