// SPDX-License-Identifier: MIT
#pragma once

#include "report/column_widths.h"
#include "run/figure_style.h"
#include "timecode/display_format.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tallyframe {

/// What a cell holds: no cell at all, a text (one of the record's own, or one made for the cell; an empty one
/// is a formatted blank cell), or a number. A text of the record's own lives as long as the record.
using cell_value = std::variant<std::monostate, std::string_view, std::string, double>;

/// Which format of its row's set a cell is written in.
enum class cell_kind {
    text,
    centered,
    plain_number, ///< a number in the text format
    whole_number,
    decimal,
};

/// The sequence's clock, as the time conversions take it, and how its times are told.
struct sequence_clock {
    std::optional<double> seq_fcp_rate; ///< frames a second; nothing for bins
    display_format seq_displayformat = display_format::unknown;
    figure_style figures = figure_style::comparable;
};

/// What the value of a cell depends on beside its record.
struct row_context {
    std::size_t sheet_row = 0;
    sequence_clock clock;
};

/// The cells of one column.
template <class Record>
struct table_column {
    cell_kind kind = cell_kind::text;
    bool widens = false; ///< the longest text sets the width
    std::function<cell_value(const Record&, const row_context&)> value;
};

/// What stands on a sheet, left to right. The three lists are as long as each other on most sheets. Where
/// they differ, header texts and first widths keep to their own rule and the cells to theirs; no cell stands
/// right of the last width.
template <class Record>
struct sheet_columns {
    std::vector<std::string> headers; ///< an empty one is no cell
    column_widths widths;
    std::vector<table_column<Record>> cells;
};

/// One column of a sheet whose columns never change.
template <class Record>
struct fixed_column {
    std::string_view header;
    std::size_t first_width; ///< before one is added to it
    bool widens;
    cell_value (*value)(const Record&, const row_context&);
    cell_kind kind = cell_kind::text;
};

template <class Record, std::size_t count>
sheet_columns<Record> columns_of(const fixed_column<Record> (&table)[count])
{
    sheet_columns<Record> columns;
    for (const fixed_column<Record>& column : table) {
        columns.headers.emplace_back(column.header);
        columns.widths.push_back(column.first_width);
        columns.cells.push_back({column.kind, column.widens, column.value});
    }
    return columns;
}

/// The text of a field; an absent one gives the empty text.
inline std::string_view text_of(const std::optional<std::string>& field)
{
    return field ? std::string_view(*field) : std::string_view();
}
inline std::string_view text_of(const std::string& field)
{
    return field;
}

/// A column's value: a text field of the record as it is.
template <auto field, class Record>
cell_value field_text(const Record& record, const row_context&)
{
    return text_of(record.*field);
}

/// A column's value: the label of the record's track with the track's name behind it, "V1 Interview".
template <class Record>
cell_value track_and_name(const Record& record, const row_context&)
{
    if (record.place.track_name.empty())
        return text_of(record.place.track);
    return record.place.track + record.place.track_name;
}

} // namespace tallyframe
