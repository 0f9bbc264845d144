// SPDX-License-Identifier: MIT
#pragma once

#include "document/sequence_catalogue.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe::cli {

/// The entries as a table for people: position from 1, title, identifier or that there is none; the separator
/// as a line of dashes.
std::string menu_as_table(const std::vector<catalogue_entry>& menu);

/// [{"position": 1, "title": "Bin Clips", "uuid": ""}, …]; "unidentified": true in those of sequences without
/// one.
std::string menu_as_json(const std::vector<catalogue_entry>& menu);

/// What to tell the user about a document that offers nothing; `left_out`: its sequences without an
/// identifier.
std::string empty_menu_sentence(std::string_view document, std::size_t left_out);

/// That so many sequences without an identifier were left out, and how to have them; empty for none.
std::string left_out_sentence(std::size_t left_out);

} // namespace tallyframe::cli
