// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/report_frame.h"

namespace tallyframe {

/// Writes "Files Summary": the media files met on the clips sheet by name, and each one's share of the whole.
void write_files_summary(const report_frame& frame, running_report& running);

/// Adds "Reels Summary" with its header row; the rows follow once the reel sheets have summed up.
void add_reels_summary(const report_frame& frame, running_report& running);

/// Writes the rows of "Reels Summary", where there is such a sheet.
void write_reels_summary_rows(const report_frame& frame, const running_report& running);

} // namespace tallyframe
