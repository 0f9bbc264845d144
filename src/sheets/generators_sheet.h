// SPDX-License-Identifier: MIT
#pragma once

#include "report/column_switches.h"
#include "report/report_options.h"
#include "report/table_columns.h"
#include "sheets/report_frame.h"

namespace tallyframe {

/// The columns of "Graphics & Titles" over the chosen timeline formats. The "Clip Duration" switch governs
/// the headers of the durations but not their cells.
sheet_columns<generator_record> generator_columns(const report_options& options,
                                                  const column_switches& switches);

/// Writes "Graphics & Titles" and sets the running row formats to those of video.
void write_generators_sheet(const report_frame& frame, running_report& running);

} // namespace tallyframe
