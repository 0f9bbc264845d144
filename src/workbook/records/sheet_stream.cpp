// SPDX-License-Identifier: MIT
//
//     BOF
//     INDEX                       where the DBCELL records stand
//     settings
//     DEFAULTROWHEIGHT
//     settings of the page
//     DEFCOLWIDTH
//     COLINFO ...
//     DIMENSIONS
//     ROW ... cells ... DBCELL    for each 32 rows, from the first rows in use to the last
//     MSODRAWING, OBJ ...         for each picture
//     WINDOW2
//     PANE, SELECTION ...
//     EOF
//
// Readers find the block of a row by counting, so each block in between has at least one ROW record: that of
// its first row.
#include "workbook/records/sheet_stream.h"

#include "workbook/records/globals_records.h"
#include "workbook/records/record.h"
#include "workbook/records/setting_records.h"

#include <algorithm>

namespace xls {

namespace {

constexpr std::uint16_t default_column_characters = 8;

records::cell_range used_range(const cell_table& cells)
{
    records::cell_range range{.first_column = column_limit};
    for (std::size_t row = 0; row < cells.blocks().size() * rows_per_block; ++row) {
        const auto& block = cells.blocks()[row / rows_per_block];
        const auto in_block = row % rows_per_block;
        if (!block.has_cells(in_block))
            continue;
        if (range.end_row == 0)
            range.first_row = static_cast<std::uint32_t>(row);
        range.end_row = static_cast<std::uint32_t>(row + 1);
        range.first_column = std::min(range.first_column, block.first_column(in_block));
        range.end_column = std::max(range.end_column, block.end_column(in_block));
    }
    return range.end_row == 0 ? records::cell_range{} : range;
}

const row_block& block_at(const cell_table& cells, std::size_t number)
{
    static const row_block empty{};
    return number < cells.blocks().size() ? cells.blocks()[number] : empty;
}

} // namespace

sheet_stream::sheet_stream(const sheet_content& content, const sheet_frame& frame)
    : content_(content), height_of_xf_(frame.formats.row_heights())
{
    const auto rows = std::max(content.cells.blocks().size() * rows_per_block, content.row_heights.size());
    for (std::size_t row = 0; row < rows; ++row) {
        if (!row_is_used(row))
            continue;
        if (end_block_ == 0)
            first_block_ = row / rows_per_block;
        end_block_ = row / rows_per_block + 1;
        end_row_ = row + 1;
    }
    write_head(frame.position);
    write_drawing(tail_, content.pictures, frame.shapes, sizes_in_pixels());
    records::window2(tail_, content.frozen, frame.selected);
    records::panes(tail_, content.frozen);
    records::eof(tail_);
    size_ += tail_.size();
}

bool sheet_stream::row_is_used(std::size_t row) const
{
    return block_at(content_.cells, row / rows_per_block).has_cells(row % rows_per_block)
        || (row < content_.row_heights.size() && content_.row_heights[row]);
}

std::uint16_t sheet_stream::row_height(std::size_t row) const
{
    if (row < content_.row_heights.size() && content_.row_heights[row])
        return *content_.row_heights[row];
    auto height = height_of_xf_[default_cell_xf];
    const auto cells = block_at(content_.cells, row / rows_per_block).cells_of(row % rows_per_block);
    for (std::size_t offset = 0; offset < cells.size();) {
        const auto cell = records::cell_at(cells, offset);
        height = std::max(height, height_of_xf_[cell.xf()]);
        offset += cell.bytes.size();
    }
    return height;
}

/// As Excel draws columns on a screen of 96 dots an inch: a digit of Arial 10 is 7 pixels wide.
cell_sizes sheet_stream::sizes_in_pixels() const
{
    constexpr std::uint32_t default_column_pixels = 64;
    constexpr std::uint32_t digit = 7;
    constexpr std::uint32_t rounding = 128 / digit;
    constexpr std::uint32_t twips_in_pixel = 15;
    return {
        .width_of =
            [this](std::size_t column) {
                const auto& set = content_.columns[column];
                return set ? (set->width + rounding) * digit / 256 : default_column_pixels;
            },
        .height_of = [this](std::size_t row) -> std::uint32_t { return row_height(row) / twips_in_pixel; }};
}

std::vector<records::row_description> sheet_stream::stored_rows(std::size_t block) const
{
    std::vector<records::row_description> rows;
    const auto& cells = block_at(content_.cells, block);
    for (std::size_t i = 0; i < rows_per_block; ++i) {
        const auto row = block * rows_per_block + i;
        if (i != 0 && !row_is_used(row))
            continue;
        rows.push_back({
            .row = static_cast<std::uint16_t>(row),
            .first_column = cells.first_column(i),
            .end_column = cells.end_column(i),
            .height = row_height(row),
            .height_is_set = row < content_.row_heights.size() && content_.row_heights[row],
        });
    }
    return rows;
}

/// Bytes of the ROW records, the cells and the DBCELL record of a block.
sheet_stream::block_sizes sheet_stream::sizes_of(std::size_t block) const
{
    const auto& cells = block_at(content_.cells, block);
    std::size_t rows = 0;
    std::size_t rows_with_cells = 0;
    for (std::size_t i = 0; i < rows_per_block; ++i) {
        rows += i == 0 || row_is_used(block * rows_per_block + i) ? 1 : 0;
        rows_with_cells += cells.has_cells(i) ? 1 : 0;
    }
    return {.before_db_cell = rows * records::row_size + cells.cells().size(),
            .db_cell = records::db_cell_size(rows_with_cells)};
}

void sheet_stream::write_head(std::size_t position)
{
    const auto block_count = end_block_ - first_block_;
    records::bof(head_, records::substream::sheet);
    const auto index_offset = head_.size();

    byte_writer behind_index;
    records::calculation_settings(behind_index);
    records::default_row_height(behind_index, height_of_xf_[default_cell_xf]);
    records::page_settings(behind_index);
    records::index_description index{
        .first_row = static_cast<std::uint32_t>(first_block_ * rows_per_block),
        .end_row = static_cast<std::uint32_t>(end_row_),
        .column_width_position =
            position + index_offset + records::index_size(block_count) + behind_index.size(),
        .db_cell_positions = {},
    };
    records::default_column_width(behind_index, default_column_characters);
    write_columns(behind_index);
    records::dimensions(behind_index, used_range(content_.cells));

    size_ = index_offset + records::index_size(block_count) + behind_index.size();
    for (auto block = first_block_; block < end_block_; ++block) {
        const auto sizes = sizes_of(block);
        index.db_cell_positions.push_back(position + size_ + sizes.before_db_cell);
        size_ += sizes.before_db_cell + sizes.db_cell;
    }
    records::index(head_, index);
    head_.bytes(behind_index.view());
}

void sheet_stream::write_columns(byte_writer& out) const
{
    const auto& columns = content_.columns;
    for (std::size_t first = 0; first < columns.size();) {
        auto end = first + 1;
        while (end < columns.size() && columns[end] == columns[first])
            ++end;
        if (columns[first])
            records::column_info(out, static_cast<std::uint16_t>(first), static_cast<std::uint16_t>(end - 1),
                                 *columns[first]);
        first = end;
    }
}

void sheet_stream::write_block(std::size_t block, const byte_sink& sink) const
{
    const auto rows = stored_rows(block);
    const auto& cells = block_at(content_.cells, block);
    byte_writer row_records;
    for (const auto& row : rows)
        records::row(row_records, row);
    sink(row_records.view());
    sink(cells.cells());

    std::vector<std::uint16_t> to_cells;
    auto from = row_records.size() - records::row_size;
    for (std::size_t i = 0; i < rows_per_block; ++i) {
        if (!cells.has_cells(i))
            continue;
        to_cells.push_back(static_cast<std::uint16_t>(from));
        from = cells.cells_of(i).size();
    }
    byte_writer db_cell;
    records::db_cell(db_cell, row_records.size() + cells.cells().size(), to_cells);
    sink(db_cell.view());
}

void sheet_stream::write(const byte_sink& sink) const
{
    sink(head_.view());
    for (auto block = first_block_; block < end_block_; ++block)
        write_block(block, sink);
    sink(tail_.view());
}

} // namespace xls
