// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/format.h"

#include <cstddef>
#include <filesystem>
#include <limits>
#include <string_view>

namespace xls {

struct sheet_content;
struct workbook_content;

/// The height in points at which a row ends, whatever it is set to.
inline constexpr double highest_row = 409;

/// One sheet of a workbook, created by workbook::add_worksheet and owned by it.
///
/// Rows and columns count from 0. Cells may be written in any order; writing a cell again replaces it.
/// A sheet holds 65 536 rows and 256 columns; what lies beyond is counted, not kept, and makes
/// workbook::close fail before a byte is written.
class worksheet {
public:
    /// A text cell (UTF-8; bytes that are not UTF-8 become U+FFFD). A text of more than 32 767 UTF-16 units
    /// is cut there, and the workbook notes it. An empty text is a blank cell with the format.
    void write_string(std::size_t row, std::size_t column, std::string_view text, format_id format = {});

    /// A number cell. A value that is not finite is written as the error value #NUM!.
    void write_number(std::size_t row, std::size_t column, double value, format_id format = {});

    /// A blank cell that shows only its format.
    void write_blank(std::size_t row, std::size_t column, format_id format);

    /// Width of the columns first to last in characters, as Excel's width box shows it (0 to 255; 0 hides
    /// them), and the format of their cells that hold nothing. A character is a digit of the workbook's
    /// default font, Arial 10, whatever fonts the cells have.
    void set_column(std::size_t first, std::size_t last, double width, format_id format = {});

    /// Height of a row in points (0 to 409; 0 hides it). A row without one is as high as its largest font.
    void set_row(std::size_t row, double height);

    /// Keeps the rows above `row` and the columns left of `column` in view while scrolling.
    void freeze_panes(std::size_t row, std::size_t column);

    /// A picture (JPEG or PNG file, read at once) whose upper left corner stands in the cell's corner, in its
    /// own size at 96 dots an inch, or smaller in its proportions so that it is at most `highest` points
    /// high; it moves with the cell. Equal pictures are stored once, and whole. Throws workbook_error when
    /// the file cannot be read or is of another kind.
    void insert_image(std::size_t row, std::size_t column, const std::filesystem::path& picture,
                      double highest = std::numeric_limits<double>::infinity());

    worksheet(const worksheet&) = delete;
    worksheet& operator=(const worksheet&) = delete;

private:
    friend class workbook;
    worksheet(workbook_content& book, sheet_content& sheet);

    workbook_content& book_;
    sheet_content& sheet_;
};

} // namespace xls
