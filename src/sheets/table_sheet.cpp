// SPDX-License-Identifier: MIT
#include "sheets/table_sheet.h"

namespace tallyframe {

namespace {

xls::format_id format_of(cell_kind kind, const row_format_set& formats)
{
    switch (kind) {
    case cell_kind::centered:
        return formats.center_format;
    case cell_kind::whole_number:
        return formats.integer_format;
    case cell_kind::decimal:
        return formats.decimal_format;
    case cell_kind::text:
    case cell_kind::plain_number:
        return formats.text_format;
    }
    return formats.text_format;
}

} // namespace

xls::worksheet& add_sheet(const report_frame& frame, running_report& running, std::string_view name)
{
    xls::worksheet& sheet = frame.book.add_worksheet(name);
    sheet.freeze_panes(1, 0);
    running.used_names.add(name);
    return sheet;
}

void write_headers(xls::worksheet& sheet, std::size_t row, const std::vector<std::string>& headers,
                   xls::format_id format)
{
    for (std::size_t column = 0; column < headers.size(); ++column) {
        if (!headers[column].empty())
            sheet.write_string(row, column, headers[column], format);
    }
}

void write_cell(xls::worksheet& sheet, std::size_t row, std::size_t column, const cell_value& value,
                cell_kind kind, const row_format_set& formats, bool widens, column_widths& widths)
{
    if (std::holds_alternative<std::monostate>(value))
        return;
    const xls::format_id format = format_of(kind, formats);
    if (const double* number = std::get_if<double>(&value)) {
        sheet.write_number(row, column, *number, format);
        return;
    }
    const std::string* made_text = std::get_if<std::string>(&value);
    const std::string_view text =
        made_text ? std::string_view(*made_text) : std::get<std::string_view>(value);
    sheet.write_string(row, column, text, format);
    if (widens)
        widen(widths, column, text);
}

void set_widths(xls::worksheet& sheet, const column_widths& widths)
{
    for (std::size_t column = 0; column < widths.size(); ++column) {
        if (widths[column] != 0)
            sheet.set_column(column, column, finished_width(widths[column]));
    }
}

std::size_t write_catalogues(xls::worksheet& sheet, const std::vector<catalogue>& catalogues,
                             xls::format_id header_format)
{
    std::size_t row = 0;
    for (const catalogue& list : catalogues) {
        if (list.entries.empty())
            continue;
        sheet.write_string(row++, 0, list.title, header_format);
        for (const catalogue::entry& entry : list.entries)
            sheet.write_string(row++, 1, entry.name, entry.format);
        ++row;
    }
    return row;
}

} // namespace tallyframe
