// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The values of tags out of the texts that files and tools write them as.

namespace tallyframe {

/// "7/12" is track 7; a text without a number counts as 0, an empty one as no number at all.
std::optional<std::int64_t> number_in_tag(std::string_view text);

/// The names of a list in one text, from its lines: double quotes and outer blanks are dropped, a comma at
/// the end of a line stays, so that two names read "Ann,, Bo".
std::string joined_authors(const std::vector<std::string>& lines);

} // namespace tallyframe
