// SPDX-License-Identifier: MIT
#pragma once

#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include <string>
#include <vector>

namespace tallyframe::cli {

/// Ticks the tracks of the analysed item with these labels ("V1", "A2") and no others. Throws usage_error,
/// with the tracks that there are, for a label that names none.
void tick_only(const std::vector<std::string>& labels, report_session& session);

} // namespace tallyframe::cli
