// SPDX-License-Identifier: MIT
#pragma once

#include "cli/arguments.h"
#include "document/sequence_catalogue.h"

#include <cstddef>
#include <vector>

namespace tallyframe::cli {

/// The positions in the menu, from 0, of the entries to report. Throws usage_error, with the menu in it, when
/// the choice names none.
std::vector<std::size_t> chosen_entries(const item_choice& item, const std::vector<catalogue_entry>& menu);

} // namespace tallyframe::cli
