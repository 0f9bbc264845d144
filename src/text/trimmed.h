// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe {

/// `text` without ASCII blanks and NUL at either end.
std::string_view trimmed(std::string_view text);

/// `text` without ASCII blanks in front.
std::string_view without_leading_blanks(std::string_view text);

} // namespace tallyframe
