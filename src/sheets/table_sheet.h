// SPDX-License-Identifier: MIT
#pragma once

#include "report/table_columns.h"
#include "sheets/report_frame.h"
#include "workbook/worksheet.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// Adds a sheet with its first row frozen and notes its name.
xls::worksheet& add_sheet(const report_frame& frame, running_report& running, std::string_view name);

/// Writes the texts side by side from column 0; an empty one is no cell.
void write_headers(xls::worksheet& sheet, std::size_t row, const std::vector<std::string>& headers,
                   xls::format_id format);

/// Writes a cell unless the value is none, and raises its column's width when the column widens.
void write_cell(xls::worksheet& sheet, std::size_t row, std::size_t column, const cell_value& value,
                cell_kind kind, const row_format_set& formats, bool widens, column_widths& widths);

/// Gives each column its finished width.
void set_widths(xls::worksheet& sheet, const column_widths& widths);

template <class Record>
void write_row(xls::worksheet& sheet, const row_context& row, const std::vector<table_column<Record>>& cells,
               const Record& record, const row_format_set& formats, column_widths& widths)
{
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const table_column<Record>& cell = cells[column];
        write_cell(sheet, row.sheet_row, column, cell.value(record, row), cell.kind, formats, cell.widens,
                   widths);
    }
}

/// A list of names above a table: its title in column 0, its entries below in column 1, then an empty row.
struct catalogue {
    struct entry {
        std::string_view name;
        xls::format_id format;
    };
    std::string_view title;
    std::vector<entry> entries;
};

/// Writes the catalogues that have entries. Gives the row that follows.
std::size_t write_catalogues(xls::worksheet& sheet, const std::vector<catalogue>& catalogues,
                             xls::format_id header_format);

enum class width_margin { before_rows, after_rows };

/// A sheet that lists records.
template <class Record>
struct table_sheet {
    std::string_view name;
    sheet_columns<Record> columns;
    const std::vector<const Record*>& records;
    std::function<row_format_set(const Record&)> formats_of_row;
    std::vector<catalogue> catalogues = {};
    width_margin margin = width_margin::before_rows; ///< when one is added to every width
};

/// Writes a whole sheet. Advances the progress by one step a row.
template <class Record>
void write_table_sheet(const report_frame& frame, running_report& running, const table_sheet<Record>& table)
{
    xls::worksheet& sheet = add_sheet(frame, running, table.name);
    row_context row = {.sheet_row = 0, .clock = frame.clock};
    row.sheet_row = write_catalogues(sheet, table.catalogues, frame.formats.header_format);
    write_headers(sheet, row.sheet_row, table.columns.headers, frame.formats.header_format);

    column_widths widths = table.columns.widths;
    if (table.margin == width_margin::before_rows)
        add_one_to_each(widths);
    for (const Record* record : table.records) {
        frame.display.advance({});
        ++row.sheet_row;
        write_row(sheet, row, table.columns.cells, *record, table.formats_of_row(*record), widths);
    }
    if (table.margin == width_margin::after_rows)
        add_one_to_each(widths);
    set_widths(sheet, widths);
}

} // namespace tallyframe
