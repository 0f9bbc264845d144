// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/media_check.h"
#include "sheets/report_frame.h"

#include <string_view>
#include <vector>

namespace tallyframe {

inline constexpr std::string_view media_check_name = "Media Check";

/// A row for each file: what the document says of it beside what the file is. Missing files and those that
/// lack something are red.
sheet sheet_of_checked_media(std::vector<checked_media> files, const sequence_clock& clock);

/// The sheet of what the report's clips show.
void add_media_sheet(const report_frame& frame, growing_report& report);

} // namespace tallyframe
