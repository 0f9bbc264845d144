// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

namespace tallyframe {

/// Writes a sheet for each reel that has clips in the report, in the order of the reel list, and sums up how
/// much of the timeline each reel fills.
void write_reel_sheets(const report_frame& frame, running_report& running);

} // namespace tallyframe
