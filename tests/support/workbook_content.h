// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tallyframe::testing_support {

/// A cell as a foreign reader sees it.
struct cell_content {
    std::string kind; ///< "text", "number", "blank", "error"; empty where there is no cell
    std::string text; ///< a text as it is, a number as "1.5", an error as "#NUM!"
    std::string look; ///< font, size, weight, colour, alignment, number format: "Helvetica 11 bold auto
                      ///< general General"
};

struct sheet_content {
    std::string name;
    std::pair<int, int> frozen; ///< rows and columns
    std::map<std::size_t, double> widths; ///< characters, by column
    std::map<std::size_t, std::string> column_looks;
    std::map<std::pair<std::size_t, std::size_t>, cell_content> cells; ///< by row and column

    cell_content cell(std::size_t row, std::size_t column) const;
    std::size_t row_count() const;

    /// The texts of a row up to its last cell; "-" where there is no cell, "" for a blank one.
    std::vector<std::string> row(std::size_t row) const;
    std::vector<std::string> column(std::size_t column) const;

    /// The distinct looks of a row's cells, from left to right.
    std::vector<std::string> looks(std::size_t row) const;
};

/// A workbook's file as python's xlrd reads it.
struct workbook_content {
    std::vector<sheet_content> sheets;

    std::vector<std::string> names() const;
    const sheet_content& sheet(const std::string& name) const; ///< throws when there is none
};

workbook_content read_workbook(const std::filesystem::path& file);

} // namespace tallyframe::testing_support
