// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

namespace tallyframe {

// Each of these sheets lists the distinct effects first, by name, and then every use of them. Their rows take
// the running row formats: a built-in effect on a video track changes nothing and is written in the colour
// of the row before it.

/// Writes "Transitions".
void write_transitions_sheet(const report_frame& frame, running_report& running);

/// Writes "Filters". Its check marks keep the running centred format, whatever their row's colour.
void write_filters_sheet(const report_frame& frame, running_report& running);

/// Writes "Motion Effects", all rows in the text format of video, which stays the running one.
void write_motion_sheet(const report_frame& frame, running_report& running);

} // namespace tallyframe
