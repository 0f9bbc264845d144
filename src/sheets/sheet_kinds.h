// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "sheets/report_frame.h"

#include <span>
#include <string_view>

namespace tallyframe {

/// A choice of the user that leaves sheets out, or adds one, as both hosts offer it.
struct sheet_option {
    bool report_options::*option;
    const char* flag; ///< of the command line: "--no-markers", "--media-sheet"
    const char* sheets; ///< as a sentence calls them: "\"Sequence Markers\" and \"Clip Markers\""
    const char* checkbox; ///< name of the window's control: "markersSheetsCheckbox"
    const char* title; ///< beside it, with && for an ampersand
    const char* tool_tip;

    /// Whether the sheets are there unless they are left out.
    bool is_default() const { return report_options().*option; }
};

/// The choices in the order in which the hosts show them.
std::span<const sheet_option> sheet_options();

/// A kind of sheet.
struct sheet_kind {
    std::string_view name; ///< empty for the sheets of reels: each has its own
    const sheet_option* choice; ///< null: always there
    bool for_sequences_only; ///< bins have none
    void (*add)(const report_frame&, growing_report&);
};

/// All kinds in the order in which they stand in the workbook. Whoever wants to know which sheets there are
/// asks here.
std::span<const sheet_kind> sheet_kinds();

/// Whether a report with these options has sheets of that kind.
bool is_wanted(const sheet_kind& kind, const report_options& options, bool is_sequence);

/// The choice that leaves out the sheet of that name; null for one that is always there. Every other name is
/// that of a reel's sheet.
const sheet_option* choice_of_sheet(std::string_view name);

} // namespace tallyframe
