// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <cstdint>
#include <vector>

/// The records of a sheet around its cells. Each function appends one record. Rows and columns count from 0;
/// an end is the number behind the last one.
namespace xls::records {

struct cell_range {
    std::uint32_t first_row = 0;
    std::uint32_t end_row = 0;
    std::uint16_t first_column = 0;
    std::uint16_t end_column = 0;
};
void dimensions(byte_writer& out, const cell_range& cells);

struct index_description {
    std::uint32_t first_row = 0; ///< of the rows that have a ROW record
    std::uint32_t end_row = 0;
    std::size_t column_width_position = 0; ///< stream position of DEFCOLWIDTH
    std::vector<std::size_t> db_cell_positions; ///< stream positions of the DBCELL records
};
void index(byte_writer& out, const index_description& description);
std::size_t index_size(std::size_t db_cells); ///< of the whole record

void default_row_height(byte_writer& out, std::uint16_t twips);
void default_column_width(byte_writer& out, std::uint16_t characters);

struct column_description {
    std::uint16_t width = 0; ///< 1/256 of a digit of the default font, padding included
    std::uint16_t xf = 0;
    bool operator==(const column_description&) const = default;
};
void column_info(byte_writer& out, std::uint16_t first, std::uint16_t last, const column_description& column);

struct row_description {
    std::uint16_t row = 0;
    std::uint16_t first_column = 0;
    std::uint16_t end_column = 0;
    std::uint16_t height = 0; ///< twips
    bool height_is_set = false; ///< by hand; otherwise readers may fit it to the row's texts
};
void row(byte_writer& out, const row_description& description);
inline constexpr std::size_t row_size = 20; ///< of the whole record

/// `to_first_row`: bytes back from this record to the block's first ROW record. `to_cells`: for each row of
/// the block with cells, the bytes to its first cell: in the first one from behind the first ROW record,
/// else from the first cell of the row before.
void db_cell(byte_writer& out, std::size_t to_first_row, const std::vector<std::uint16_t>& to_cells);
std::size_t db_cell_size(std::size_t rows_with_cells); ///< of the whole record

struct frozen_panes {
    std::uint16_t rows = 0; ///< that stay in view
    std::uint16_t columns = 0;
    bool any() const { return rows != 0 || columns != 0; }
};
void window2(byte_writer& out, const frozen_panes& frozen, bool selected);

/// PANE if any rows or columns stay in view, then a SELECTION for each pane.
void panes(byte_writer& out, const frozen_panes& frozen);

} // namespace xls::records
