// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

namespace tallyframe {

/// Writes "Sequence Markers": the markers on the sequence's own timeline.
void write_sequence_markers_sheet(const report_frame& frame, running_report& running);

/// Writes "Clip Markers". Source positions too are shown on the sequence's clock.
void write_clip_markers_sheet(const report_frame& frame, running_report& running);

} // namespace tallyframe
