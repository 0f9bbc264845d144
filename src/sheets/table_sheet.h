// SPDX-License-Identifier: MIT
#pragma once

#include "report/table_columns.h"
#include "sheets/sheet.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyframe {

/// A list of names above a table: its title in column 0, its entries below in column 1, then an empty row.
struct catalogue {
    struct entry {
        std::string_view name;
        text_color color;
    };
    std::string_view title;
    std::vector<entry> entries;
};

/// The colours of a record's row: of its texts, and of what is centred or a number.
struct row_look {
    text_color text = text_color::none;
    text_color other = text_color::none;

    bool operator==(const row_look&) const = default;
};

/// "Total:" and what it comes to, below the records and an empty row. `column` is not 0.
struct total_line {
    std::size_t column = 1; ///< of the sum; the word stands left of it
    std::string sum;
};

enum class width_margin { before_rows, after_rows };

/// What stands on a sheet around its records.
struct table_surroundings {
    std::vector<catalogue> catalogues = {}; ///< those without entries are left out
    std::vector<std::string> headers = {}; ///< an empty one is no cell
    std::optional<total_line> total = {};
};

/// A sheet that lists records.
template <class Record>
struct table_sheet {
    std::string name;
    sheet_columns<Record> columns;
    std::vector<const Record*> records;
    std::vector<row_look> looks; ///< of each record's row; the last runs on through those that have none
    std::vector<catalogue> catalogues = {};
    width_margin margin = width_margin::before_rows; ///< when one is added to every width
    std::optional<total_line> total = {};
};

/// How a cell of that kind looks in such a row.
cell_look look_of(cell_kind kind, const row_look& row);

/// The sheet without its records' cells; `records` of them.
sheet empty_sheet(std::string name, const table_surroundings& around, std::size_t records);

/// The cells that belong to no record.
std::function<sheet_cell(std::size_t row, std::size_t column)> cells_around(table_surroundings around,
                                                                            std::size_t records);

/// The sheet as a value. The records have to outlive it.
template <class Record>
sheet sheet_of(table_sheet<Record> table, const sequence_clock& clock)
{
    table_surroundings around = {std::move(table.catalogues), std::move(table.columns.headers),
                                 std::move(table.total)};
    sheet made = empty_sheet(std::move(table.name), around, table.records.size());
    made.progress_steps = table.records.size();
    const bool grows_before = table.margin == width_margin::before_rows;
    for (std::size_t i = 0; i < table.columns.widths.size(); ++i) {
        const bool widens = i < table.columns.cells.size() && table.columns.cells[i].widens;
        made.columns.push_back({.width = table.columns.widths[i] + (grows_before ? 1 : 0),
                                .widens = widens,
                                .margin = grows_before ? 0U : 1U});
    }
    made.column_count = std::max(made.column_count, table.columns.cells.size());

    if (table.looks.empty())
        table.looks.emplace_back();
    struct shown_records {
        std::vector<table_column<Record>> cells;
        std::vector<const Record*> records;
        std::vector<row_look> looks;
    };
    auto shown = std::make_shared<const shown_records>(
        shown_records{std::move(table.columns.cells), std::move(table.records), std::move(table.looks)});
    const std::size_t last_look = shown->looks.size() - 1;
    made.cell = [shown = std::move(shown), around = cells_around(std::move(around), made.record_count), clock,
                 first = made.header_row + 1, last_look](std::size_t row, std::size_t column) -> sheet_cell {
        if (row < first || row - first >= shown->records.size())
            return around(row, column);
        if (column >= shown->cells.size())
            return {};
        const table_column<Record>& cell = shown->cells[column];
        const std::size_t record = row - first;
        return {cell.value(*shown->records[record], {.sheet_row = row, .clock = clock}),
                look_of(cell.kind, shown->looks[std::min(record, last_look)])};
    };
    return made;
}

} // namespace tallyframe
