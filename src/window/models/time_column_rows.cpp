// SPDX-License-Identifier: MIT
#include "window/models/time_column_rows.h"

#include "report/time_cells.h"

#include <algorithm>
#include <utility>

namespace tallyframe::window {

namespace {

bool lists(const std::vector<time_column_row>& rows, time_format format)
{
    return std::ranges::find(rows, format, &time_column_row::format) != rows.end();
}

} // namespace

std::vector<time_column_row> time_column_rows(const std::vector<time_format>& chosen,
                                              const time_adjustments& adjustments)
{
    std::vector<time_column_row> rows;
    for (const time_format format : chosen) {
        if (!lists(rows, format))
            rows.push_back({format, true, adjustment_of(adjustments, format)});
    }
    for (const time_format_name& entry : time_formats) {
        if (!lists(rows, entry.format))
            rows.push_back({entry.format, false, adjustment_of(adjustments, entry.format)});
    }
    return rows;
}

std::vector<time_format> chosen_formats(const std::vector<time_column_row>& rows)
{
    std::vector<time_format> formats;
    for (const time_column_row& row : rows) {
        if (row.is_shown)
            formats.push_back(row.format);
    }
    return formats;
}

time_adjustments adjustments_of(const std::vector<time_column_row>& rows)
{
    time_adjustments adjustments;
    for (const time_column_row& row : rows)
        adjustment_of(adjustments, row.format) = row.adjustment;
    return adjustments;
}

std::size_t move_up(std::vector<time_column_row>& rows, std::size_t position)
{
    if (position == 0 || position >= rows.size())
        return position;
    std::swap(rows[position - 1], rows[position]);
    return position - 1;
}

std::size_t move_down(std::vector<time_column_row>& rows, std::size_t position)
{
    if (position + 1 >= rows.size())
        return position;
    std::swap(rows[position], rows[position + 1]);
    return position + 1;
}

} // namespace tallyframe::window
