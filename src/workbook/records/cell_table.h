// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"
#include "workbook/records/cell_records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace xls {

inline constexpr std::size_t row_limit = 65536; ///< rows of a sheet
inline constexpr std::size_t column_limit = 256; ///< columns of a sheet
inline constexpr std::size_t rows_per_block = 32;

/// The cell records of up to 32 rows, in the order in which the file holds them.
class row_block {
public:
    byte_view cells() const { return cells_; }

    /// A row by its place in the block, 0 to 31.
    byte_view cells_of(std::size_t row) const
    {
        return cells().subspan(begin(row), begin(row + 1) - begin(row));
    }
    std::uint16_t first_column(std::size_t row) const { return row < opened_ ? rows_[row].first_column : 0U; }
    std::uint16_t end_column(std::size_t row) const { return row < opened_ ? rows_[row].end_column : 0U; }
    bool has_cells(std::size_t row) const { return end_column(row) != 0; }

private:
    friend class cell_table;

    struct row_place {
        std::uint32_t begin; ///< where its records start
        std::uint16_t first_column;
        std::uint16_t end_column; ///< behind its last cell; 0: the row has no cells
    };

    std::size_t begin(std::size_t row) const { return row < opened_ ? rows_[row].begin : cells_.size(); }
    void open(std::size_t row);
    void append(std::size_t row, records::cell_place place, byte_view record);
    bool append_to_blanks(std::size_t row, records::cell_place place);
    void put_number(std::size_t offset, std::uint16_t number);
    bool splice(std::size_t row, records::cell_place place, byte_view record);

    std::array<row_place, rows_per_block> rows_{};
    std::size_t opened_ = 0; ///< rows that have their place in cells_; later ones have no cells
    std::size_t last_record_ = 0; ///< where the last appended record starts, unless cells were moved since
    std::vector<std::uint8_t> cells_;
};

/// All cells of a sheet as their records.
///
/// A cell at the end of the last row of its block, as when a sheet is written row by row, is appended. Any
/// other one is put into its place, in time that grows with the cells of its block.
class cell_table {
public:
    /// Puts a cell in its place, where it replaces an older one. `record` is one of one cell.
    void put(records::cell_place place, byte_view record);

    /// Puts a cell that only has a format. Those of a row that stand side by side share a record.
    void put_blank(records::cell_place place);

    const std::vector<row_block>& blocks() const { return blocks_; }

    /// Whether a cell has been replaced, so that its text may be unused.
    bool has_replaced_cells() const { return has_replaced_cells_; }

    /// Calls visit with the number of the text of each text cell, and stores what it answers.
    template <class Visitor>
    void renumber_texts(Visitor visit);

private:
    row_block& block_of(std::size_t row);

    std::vector<row_block> blocks_;
    bool has_replaced_cells_ = false;
};

template <class Visitor>
void cell_table::renumber_texts(Visitor visit)
{
    for (auto& block : blocks_) {
        for (std::size_t offset = 0; offset < block.cells_.size();) {
            const auto cell = records::cell_at(block.cells_, offset);
            if (cell.id() == record_id::label_sst) {
                const auto at = records::label_sst_text_offset;
                const auto text = static_cast<std::uint32_t>(cell.u16(at) | cell.u16(at + 2) << 16);
                std::ranges::copy(little_endian(static_cast<std::uint32_t>(visit(text))),
                                  block.cells_.begin() + static_cast<std::ptrdiff_t>(offset + at));
            }
            offset += cell.bytes.size();
        }
    }
}

} // namespace xls
