// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

#include <string_view>

namespace tallyframe {

inline constexpr std::string_view sequence_markers_name = "Sequence Markers";
inline constexpr std::string_view clip_markers_name = "Clip Markers";

/// Adds "Sequence Markers": the markers on the sequence's own timeline.
void add_sequence_markers_sheet(const report_frame& frame, growing_report& report);

/// Adds "Clip Markers". Source positions too are shown on the sequence's clock.
void add_clip_markers_sheet(const report_frame& frame, growing_report& report);

} // namespace tallyframe
