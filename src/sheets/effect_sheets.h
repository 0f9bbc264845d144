// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

#include <string_view>

namespace tallyframe {

inline constexpr std::string_view transitions_name = "Transitions";
inline constexpr std::string_view filters_name = "Filters";
inline constexpr std::string_view motion_effects_name = "Motion Effects";

// Each of these sheets lists the distinct effects first, by name, and then every use of them. Their rows take
// the running look: a built-in effect on a video track changes nothing and has the colour of the row before
// it.

/// Adds "Transitions".
void add_transitions_sheet(const report_frame& frame, growing_report& report);

/// Adds "Filters". Its check marks keep the running colour of centred cells, whatever their row's.
void add_filters_sheet(const report_frame& frame, growing_report& report);

/// Adds "Motion Effects", all texts in the colour of video, which stays the running one.
void add_motion_sheet(const report_frame& frame, growing_report& report);

} // namespace tallyframe
