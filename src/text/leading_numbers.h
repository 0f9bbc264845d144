// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

// Documents and tools write numbers as "25", "111.0", " 25\n" or not at all; they are read from their leading
// characters, blanks before them skipped, and text without a number counts 0.

namespace tallyframe {

/// The whole number at the front of a text as it stands there: of any length.
struct leading_digits {
    bool is_negative = false;
    std::string_view digits; ///< without zeros before them; none for 0 or no number
};

leading_digits leading_digits_of(std::string_view text);

/// Leading whole number, with an optional sign; cut to the range of std::int64_t / 4 so that sums of a few
/// stay in range.
std::int64_t leading_integer(std::string_view text);

/// Leading decimal number ("120.7", "-1e3"); always finite.
double leading_number(std::string_view text);

/// leading_number cut towards zero.
std::int64_t truncated_number(std::string_view text);

} // namespace tallyframe
