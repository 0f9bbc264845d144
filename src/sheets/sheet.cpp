// SPDX-License-Identifier: MIT
#include "sheets/sheet.h"

#include "report/column_widths.h"

#include <algorithm>

namespace tallyframe {

growing_widths::growing_widths(const sheet& of) : columns_(of.columns)
{
    widths_.reserve(columns_.size());
    for (const sheet_column& column : columns_)
        widths_.push_back(column.width);
}

void growing_widths::see(std::size_t column, std::string_view text)
{
    if (column < columns_.size() && columns_[column].widens)
        widen(widths_, column, text);
}

std::vector<double> growing_widths::finished() const
{
    std::vector<double> widths;
    widths.reserve(widths_.size());
    for (std::size_t i = 0; i < widths_.size(); ++i)
        widths.push_back(finished_width(widths_[i] + columns_[i].margin));
    return widths;
}

std::vector<double> widths_after(const sheet& of, std::size_t records)
{
    growing_widths widths(of);
    const std::size_t first = of.header_row + 1;
    const std::size_t end = first + std::min(records, of.record_count);
    for (std::size_t column = 0; column < of.columns.size(); ++column) {
        for (std::size_t row = first; of.columns[column].widens && row < end; ++row) {
            const sheet_cell cell = of.cell(row, column);
            if (const auto text = text_in(cell.value))
                widths.see(column, *text);
        }
    }
    return widths.finished();
}

} // namespace tallyframe
