// SPDX-License-Identifier: MIT
#include "sheets/table_sheet.h"

#include <algorithm>

namespace tallyframe {

namespace {

constexpr std::size_t rows_to_total = 2; ///< from the last record to the line of the total

/// A row above the table: one cell, or none.
struct catalogue_row {
    std::size_t column = 0;
    sheet_cell cell;
};

std::vector<catalogue_row> rows_of(const std::vector<catalogue>& catalogues)
{
    std::vector<catalogue_row> rows;
    for (const catalogue& list : catalogues) {
        if (list.entries.empty())
            continue;
        rows.push_back({0, {list.title, {text_color::header}}});
        for (const catalogue::entry& entry : list.entries)
            rows.push_back({1, {entry.name, {entry.color}}});
        rows.push_back({});
    }
    return rows;
}

sheet_cell cell_of_total(const total_line& total, std::size_t column)
{
    if (column + 1 == total.column)
        return {std::string_view("Total:"), {text_color::header}};
    if (column == total.column)
        return {std::string_view(total.sum), {text_color::black}};
    return {};
}

sheet_cell cell_of_header(const std::vector<std::string>& headers, std::size_t column)
{
    if (column >= headers.size() || headers[column].empty())
        return {};
    return {std::string_view(headers[column]), {text_color::header}};
}

} // namespace

cell_look look_of(cell_kind kind, const row_look& row)
{
    switch (kind) {
    case cell_kind::centered:
        return {row.other, cell_form::centered};
    case cell_kind::whole_number:
        return {row.other, cell_form::whole_number};
    case cell_kind::decimal:
        return {row.other, cell_form::decimal};
    case cell_kind::text:
    case cell_kind::plain_number:
        break;
    }
    return {row.text, cell_form::text};
}

sheet empty_sheet(std::string name, const table_surroundings& around, std::size_t records)
{
    sheet made;
    made.name = std::move(name);
    made.header_row = rows_of(around.catalogues).size();
    made.record_count = records;
    made.row_count = made.header_row + 1 + records;
    made.column_count = std::max<std::size_t>(around.headers.size(), made.header_row != 0 ? 2 : 0);
    if (around.total) {
        made.row_count += rows_to_total;
        made.column_count = std::max(made.column_count, around.total->column + 1);
    }
    return made;
}

std::function<sheet_cell(std::size_t row, std::size_t column)> cells_around(table_surroundings around,
                                                                            std::size_t records)
{
    struct shown_surroundings {
        std::vector<catalogue_row> above;
        table_surroundings around;
    };
    auto shown = std::make_shared<shown_surroundings>(
        shown_surroundings{rows_of(around.catalogues), std::move(around)});
    return [shown, records](std::size_t row, std::size_t column) -> sheet_cell {
        const std::size_t header_row = shown->above.size();
        if (row < header_row)
            return shown->above[row].column == column ? shown->above[row].cell : sheet_cell{};
        if (row == header_row)
            return cell_of_header(shown->around.headers, column);
        if (shown->around.total && row == header_row + records + rows_to_total)
            return cell_of_total(*shown->around.total, column);
        return {};
    };
}

} // namespace tallyframe
