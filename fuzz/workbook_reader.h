// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tallyframe::fuzz {

struct blank_cell {
    bool operator==(const blank_cell&) const = default;
};
struct number_error_cell { ///< #NUM!
    bool operator==(const number_error_cell&) const = default;
};

/// What a cell holds; a number by its bits, which tell 0 from -0.
using cell_content = std::variant<blank_cell, number_error_cell, std::uint64_t, std::u16string>;

/// By row and column.
using sheet_cells = std::map<std::pair<std::size_t, std::size_t>, cell_content>;

struct read_sheet {
    std::u16string name;
    sheet_cells cells;
};

/// Reads an .xls file as strictly as the strictest reader might: the container, the chain of records, the
/// table of texts and its index, each sheet where the workbook says it is, each cell with a text and a format
/// that exist. Breaks a promise where something does not fit.
std::vector<read_sheet> read_workbook(std::span<const std::uint8_t> file);

} // namespace tallyframe::fuzz
