// SPDX-License-Identifier: MIT
#pragma once

#include "report/clip_columns.h"
#include "sheets/report_frame.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

inline constexpr std::string_view all_reels_name = "All Reels";

/// Adds "All Reels": a row for each entry of clip_data_array, but one for the two channels of a stereo pair.
void add_clips_sheet(const report_frame& frame, growing_report& report);

/// A sheet of clips, on which each has a row of its own: the clips sheet and those of reels alike.
sheet sheet_of_clips(const report_frame& frame, std::string name, const clip_sheet_columns& columns,
                     std::vector<const clip_record*> clips, std::optional<total_line> total = {});

} // namespace tallyframe
