// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"
#include "workbook/records/pictures.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace xls {

/// In pixels of 1/96 inch.
struct shown_size {
    std::uint32_t width;
    std::uint32_t height;
};

/// A picture whose upper left corner stands in a cell's.
struct placed_picture {
    std::uint16_t row;
    std::uint16_t column;
    std::uint32_t picture; ///< its number in the picture_store
    shown_size size;
};

/// How large a sheet's cells are, in pixels of 1/96 inch; 0 for a hidden row or column.
struct cell_sizes {
    std::function<std::uint32_t(std::size_t column)> width_of;
    std::function<std::uint32_t(std::size_t row)> height_of;
};

/// Where a drawing ends: in a cell, at a fraction of the cell's size.
struct drawing_end {
    std::uint16_t cell; ///< row or column
    std::uint16_t offset; ///< in `fractions` of the cell's size
};

/// The end of a drawing of `size` pixels that starts where cell `start` does. One that would go on behind the
/// last cell ends with it.
drawing_end end_of(std::uint16_t start, std::uint32_t size, std::size_t cells, std::uint32_t fractions,
                   const std::function<std::uint32_t(std::size_t)>& size_of);

/// Appends an MSODRAWING and an OBJ record for each picture of a sheet.
void write_drawing(byte_writer& out, const std::vector<placed_picture>& placed, const sheet_shapes& shapes,
                   const cell_sizes& sizes);

} // namespace xls
