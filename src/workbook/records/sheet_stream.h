// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"
#include "workbook/records/format_table.h"
#include "workbook/records/pictures.h"
#include "workbook/records/sheet_content.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace xls {

/// What a sheet needs to know of its workbook.
struct sheet_frame {
    const format_table& formats;
    sheet_shapes shapes;
    bool selected; ///< the sheet that shows when the file is opened
    std::size_t position; ///< where in the workbook stream the sheet will start
};

/// A sheet as the file holds it. The cells stay where they are until write hands them on.
class sheet_stream {
public:
    /// `content` must outlive this.
    sheet_stream(const sheet_content& content, const sheet_frame& frame);

    std::size_t size() const { return size_; }
    void write(const byte_sink& sink) const;

private:
    struct block_sizes {
        std::size_t before_db_cell;
        std::size_t db_cell;
    };

    bool row_is_used(std::size_t row) const;
    std::uint16_t row_height(std::size_t row) const;
    cell_sizes sizes_in_pixels() const;
    std::vector<records::row_description> stored_rows(std::size_t block) const;
    block_sizes sizes_of(std::size_t block) const;
    void write_head(std::size_t position);
    void write_columns(byte_writer& out) const;
    void write_block(std::size_t block, const byte_sink& sink) const;

    const sheet_content& content_;
    std::vector<std::uint16_t> height_of_xf_; ///< the row height that each XF needs, in twips
    std::size_t first_block_ = 0;
    std::size_t end_block_ = 0;
    std::size_t end_row_ = 0; ///< behind the last row with cells or a set height
    byte_writer head_; ///< the records before the cells
    byte_writer tail_; ///< the records behind the cells
    std::size_t size_ = 0;
};

} // namespace xls
