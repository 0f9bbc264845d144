// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <string_view>
#include <vector>

namespace tallyframe {

/// The sheets of a report in the order in which they stand in the workbook. `reel_sheets` stands for all
/// sheets per reel.
enum class report_sheet {
    all_reels,
    sequence_markers,
    clip_markers,
    graphics_and_titles,
    transitions,
    filters,
    motion_effects,
    files_summary,
    reels_summary,
    reel_sheets,
};

/// The sheet's name in the workbook. Empty for reel_sheets: each of them has its own.
std::string_view sheet_name(report_sheet sheet);

/// The sheets that a report has, in order.
std::vector<report_sheet> sheet_set(const report_options& options, bool is_sequence);

} // namespace tallyframe
