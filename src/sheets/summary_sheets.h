// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

#include <string_view>

namespace tallyframe {

inline constexpr std::string_view files_summary_name = "Files Summary";
inline constexpr std::string_view reels_summary_name = "Reels Summary";

/// Adds "Files Summary": the media files met on the clips sheet by name, and each one's share of the whole.
void add_files_summary(const report_frame& frame, growing_report& report);

/// Adds "Reels Summary": the reels that have sheets, and each one's share of the whole.
void add_reels_summary(const report_frame& frame, growing_report& report);

} // namespace tallyframe
