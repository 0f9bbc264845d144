// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/cell_table.h"
#include "workbook/records/drawing.h"
#include "workbook/records/sheet_records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace xls {

/// All that a worksheet has taken in.
struct sheet_content {
    std::string name;
    cell_table cells;
    std::array<std::optional<records::column_description>, column_limit> columns{};
    std::vector<std::optional<std::uint16_t>> row_heights; ///< by row, in twips; may end before the last row
    records::frozen_panes frozen;
    std::vector<placed_picture> pictures;
    std::size_t rows_wanted = 0; ///< behind the last row written, kept or not
    std::size_t columns_wanted = 0;
};

} // namespace xls
