// SPDX-License-Identifier: MIT
//
// The fields of each record behind its header, with the offset of each.
//
//                      0   4           8         12                        16
//     INDEX            | 0 | first row | end row | position of DEFCOLWIDTH | position of each DBCELL, 4 ... |
//                      0       2       4
//     DEFAULTROWHEIGHT | flags | twips |
//                      0            2
//     DEFCOLWIDTH      | characters |
//                      0       2      4       6    8       10  12
//     COLINFO          | first | last | width | XF | flags | 0 |
//                      0           4         8              10           12  14
//     DIMENSIONS       | first row | end row | first column | end column | 0 |
//                      0     2              4            6       8   12      14   16
//     ROW              | row | first column | end column | twips | 0 | flags | XF |
//                      0                       4
//     DBCELL           | back to the first ROW | on to each row's first cell, 2 ... |
//                      0       2         4             6             8   10                12     14  18
//     WINDOW2          | flags | top row | left column | grid colour | 0 | zoom in preview | zoom | 0 |
//                      0         2      4               6                    8             9   10
//     PANE             | columns | rows | top row below | left column behind | active pane | 0 |
//                      0      1     3        5              7        9              13                15
//     SELECTION        | pane | row | column | active range | ranges | rows, 2 each | columns, 1 each |
#include "workbook/records/sheet_records.h"

#include "workbook/records/record.h"

namespace xls::records {

namespace {

constexpr std::uint16_t default_xf = 15;

enum class pane_id : std::uint8_t { bottom_right = 0, top_right = 1, bottom_left = 2, top_left = 3 };

void selection(byte_writer& out, pane_id pane)
{
    const record selection_record(out, record_id::selection);
    out.u8(static_cast<std::uint8_t>(pane));
    out.zeros(6);
    out.u16(1);
    out.zeros(6);
}

} // namespace

void dimensions(byte_writer& out, const cell_range& cells)
{
    const record dimensions_record(out, record_id::dimensions);
    out.u32(cells.first_row);
    out.u32(cells.end_row);
    out.u16(cells.first_column);
    out.u16(cells.end_column);
    out.u16(0);
}

void index(byte_writer& out, const index_description& description)
{
    const record index_record(out, record_id::index);
    out.u32(0);
    out.u32(description.first_row);
    out.u32(description.end_row);
    out.u32(static_cast<std::uint32_t>(description.column_width_position));
    for (const auto position : description.db_cell_positions)
        out.u32(static_cast<std::uint32_t>(position));
}

std::size_t index_size(std::size_t db_cells)
{
    return record_header_size + 16 + 4 * db_cells;
}

void default_row_height(byte_writer& out, std::uint16_t twips)
{
    const record height_record(out, record_id::default_row_height);
    out.u16(0);
    out.u16(twips);
}

void default_column_width(byte_writer& out, std::uint16_t characters)
{
    const record width_record(out, record_id::default_column_width);
    out.u16(characters);
}

void column_info(byte_writer& out, std::uint16_t first, std::uint16_t last, const column_description& column)
{
    constexpr std::uint16_t hidden = 0x0001;
    constexpr std::uint16_t set_by_user = 0x0002;
    const record column_record(out, record_id::column_info);
    out.u16(first);
    out.u16(last);
    out.u16(column.width);
    out.u16(column.xf);
    out.u16(column.width == 0 ? hidden | set_by_user : set_by_user);
    out.u16(0);
}

void row(byte_writer& out, const row_description& description)
{
    constexpr std::uint16_t always_set = 0x0100;
    constexpr std::uint16_t set_by_user = 0x0040;
    constexpr std::uint16_t hidden = 0x0020;
    std::uint16_t flags = always_set;
    if (description.height_is_set)
        flags |= set_by_user;
    if (description.height == 0)
        flags |= hidden;
    const record row_record(out, record_id::row);
    out.u16(description.row);
    out.u16(description.first_column);
    out.u16(description.end_column);
    out.u16(description.height);
    out.u32(0);
    out.u16(flags);
    out.u16(default_xf);
}

void db_cell(byte_writer& out, std::size_t to_first_row, const std::vector<std::uint16_t>& to_cells)
{
    const record db_cell_record(out, record_id::db_cell);
    out.u32(static_cast<std::uint32_t>(to_first_row));
    for (const auto offset : to_cells)
        out.u16(offset);
}

std::size_t db_cell_size(std::size_t rows_with_cells)
{
    return record_header_size + 4 + 2 * rows_with_cells;
}

void window2(byte_writer& out, const frozen_panes& frozen, bool selected)
{
    constexpr std::uint16_t grid_headings_zeros_outline = 0x00B6;
    constexpr std::uint16_t is_frozen = 0x0108;
    constexpr std::uint16_t is_selected = 0x0600;
    constexpr std::uint32_t grid_color = 0x40;
    std::uint16_t flags = grid_headings_zeros_outline;
    if (frozen.any())
        flags |= is_frozen;
    if (selected)
        flags |= is_selected;
    const record window_record(out, record_id::window2);
    out.u16(flags);
    out.u16(0);
    out.u16(0);
    out.u32(grid_color);
    out.zeros(8);
}

void panes(byte_writer& out, const frozen_panes& frozen)
{
    auto active = pane_id::top_left;
    if (frozen.any()) {
        if (frozen.rows == 0)
            active = pane_id::top_right;
        else
            active = frozen.columns == 0 ? pane_id::bottom_left : pane_id::bottom_right;
        const record pane_record(out, record_id::pane);
        out.u16(frozen.columns);
        out.u16(frozen.rows);
        out.u16(frozen.rows);
        out.u16(frozen.columns);
        out.u16(static_cast<std::uint16_t>(active));
    }
    selection(out, pane_id::top_left);
    if (frozen.columns != 0)
        selection(out, pane_id::top_right);
    if (frozen.rows != 0)
        selection(out, pane_id::bottom_left);
    if (frozen.rows != 0 && frozen.columns != 0)
        selection(out, pane_id::bottom_right);
}

} // namespace xls::records
