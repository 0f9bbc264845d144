// SPDX-License-Identifier: MIT
#include "report/sheet_set.h"

#include <array>

namespace tallyframe {

namespace {

struct sheet_entry {
    report_sheet sheet;
    std::string_view name;
    bool report_options::*option; ///< none: always there
    bool sequences_only;
};

constexpr std::array<sheet_entry, 10> all_sheets = {{
    {report_sheet::all_reels, "All Reels", nullptr, false},
    {report_sheet::sequence_markers, "Sequence Markers", &report_options::markers_sheets, true},
    {report_sheet::clip_markers, "Clip Markers", &report_options::markers_sheets, false},
    {report_sheet::graphics_and_titles, "Graphics & Titles", &report_options::generators_sheet, false},
    {report_sheet::transitions, "Transitions", &report_options::transitions_sheet, false},
    {report_sheet::filters, "Filters", &report_options::filters_sheet, false},
    {report_sheet::motion_effects, "Motion Effects", &report_options::motion_sheet, false},
    {report_sheet::files_summary, "Files Summary", &report_options::summary_sheet, true},
    {report_sheet::reels_summary, "Reels Summary", &report_options::reel_sheets, true},
    {report_sheet::reel_sheets, "", &report_options::reel_sheets, false},
}};

} // namespace

std::string_view sheet_name(report_sheet sheet)
{
    for (const sheet_entry& entry : all_sheets) {
        if (entry.sheet == sheet)
            return entry.name;
    }
    return {};
}

std::vector<report_sheet> sheet_set(const report_options& options, bool is_sequence)
{
    std::vector<report_sheet> sheets;
    for (const sheet_entry& entry : all_sheets) {
        const bool wanted = entry.option == nullptr || options.*entry.option;
        if (wanted && (is_sequence || !entry.sequences_only))
            sheets.push_back(entry.sheet);
    }
    return sheets;
}

} // namespace tallyframe
