// SPDX-License-Identifier: MIT
#pragma once

#include "report/clip_columns.h"
#include "sheets/report_frame.h"

namespace tallyframe {

/// Writes "All Reels": a row for each entry of clip_data_array, but one for the two channels of a stereo
/// pair. Sums up the media files met.
void write_clips_sheet(const report_frame& frame, running_report& running);

/// Writes the cells of a clip, on the clips sheet and on the sheets of reels alike.
void write_clip_row(const report_frame& frame, xls::worksheet& sheet, const row_context& row,
                    const clip_sheet_columns& columns, const clip_record& clip, column_widths& widths);

} // namespace tallyframe
