// SPDX-License-Identifier: MIT
#pragma once

#include "document/sequence_catalogue.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe::cli {

/// The entries as a table for people: position from 1, title, identifier; the separator as a line of dashes.
std::string menu_as_table(const std::vector<catalogue_entry>& menu);

/// [{"position": 1, "title": "Bin Clips", "uuid": ""}, …]
std::string menu_as_json(const std::vector<catalogue_entry>& menu);

/// What to tell the user about a document that offers nothing.
std::string empty_menu_sentence(std::string_view document);

} // namespace tallyframe::cli
