// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Documents write numbers as "25", "111.0", " 25\n" or not at all; they are read from their leading
// characters, blanks before them skipped, and text without a number counts 0.

namespace tallyframe {

/// Leading whole number, with an optional sign; cut to the range of std::int64_t / 4 so that sums of a few
/// stay in range.
std::int64_t leading_integer(std::string_view text);

/// Leading decimal number ("120.7", "-1e3"); always finite.
double leading_number(std::string_view text);

/// leading_number cut towards zero.
std::int64_t truncated_number(std::string_view text);

/// `text` without ASCII blanks and NUL at either end.
std::string_view trimmed(std::string_view text);

/// ASCII letters in upper case ("True" gives "TRUE").
std::string upper_cased(std::string_view text);

/// `text` with every double quote replaced by "&quot;".
std::string with_quotes_escaped(std::string_view text);

/// `text` where it has no more than `bytes` of them; of a longer one as many whole characters as fit, and
/// "…".
std::string shortened(std::string_view text, std::size_t bytes);

/// A name of the document as the sentence of a failure tells it: in double quotes, shortened to 100 bytes.
std::string in_quotes(std::string_view name);

} // namespace tallyframe
