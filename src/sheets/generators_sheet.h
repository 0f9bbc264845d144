// SPDX-License-Identifier: MIT
#pragma once

#include "report/column_switches.h"
#include "report/report_options.h"
#include "report/table_columns.h"
#include "sheets/report_frame.h"

#include <string_view>

namespace tallyframe {

inline constexpr std::string_view graphics_and_titles_name = "Graphics & Titles";

/// The columns of "Graphics & Titles" over the chosen timeline formats. The "Clip Duration" switch governs
/// the headers of the durations but not their cells.
sheet_columns<generator_record> generator_columns(const report_options& options,
                                                  const column_switches& switches,
                                                  figure_style figures = figure_style::comparable);

/// Adds "Graphics & Titles" and sets the running look to that of video.
void add_generators_sheet(const report_frame& frame, growing_report& report);

} // namespace tallyframe
