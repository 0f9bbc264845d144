// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"
#include "sheets/source_totals.h"

#include <vector>

namespace tallyframe {

/// How much of the timeline each reel with clips in the report fills, in the order of the reel list. One use
/// of a reel by picture and sound counts once.
std::vector<source_total> totals_of_reels(const report_frame& frame);

/// Adds a sheet for each reel that has clips in the report, in the order of the reel list.
void add_reel_sheets(const report_frame& frame, growing_report& report);

} // namespace tallyframe
