// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tallyframe {

/// Widths of a sheet's columns in characters, kept while the sheet is written.
using column_widths = std::vector<std::size_t>;

/// Raises the column's width to the length of a text written there. A column without an entry has none.
void widen(column_widths& widths, std::size_t column, std::string_view text);

void add_one_to_each(column_widths& widths);

/// The width that a column gets when its sheet is finished: proportional letters need less than their
/// number, and nothing is wider than 170.
double finished_width(std::size_t width);

} // namespace tallyframe
