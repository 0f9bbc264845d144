// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/format.h"
#include "workbook/records/byte_writer.h"
#include "workbook/records/globals_records.h"
#include "workbook/records/palette.h"

#include <cstdint>
#include <string>
#include <vector>

namespace xls {

inline constexpr std::uint16_t default_cell_xf = 15; ///< the XF of cells without a format

/// The formats of a workbook as the records that describe them: fonts, number formats and XF, equal ones
/// stored once.
class format_table {
public:
    /// Throws workbook_error for a colour, font name or number format that a workbook cannot hold, and when
    /// there are more formats than Excel takes (4 000), fonts (512) or number formats (200).
    format_id add(const format& format);

    /// The XF index of a format. Throws std::out_of_range for an id that add has not given out.
    std::uint16_t xf_of(format_id id) const
    {
        if (id.index > formats_.size())
            refuse_unknown_format();
        return static_cast<std::uint16_t>(default_cell_xf + id.index);
    }

    /// For each XF the height of a row whose tallest text has it, in twips (1/20 point).
    std::vector<std::uint16_t> row_heights() const;

    /// Appends FONT, FORMAT, XF, STYLE and PALETTE records.
    void write(byte_writer& out) const;

private:
    [[noreturn]] static void refuse_unknown_format();
    std::uint16_t font_index(const format& format);
    std::uint16_t number_format_index(const std::string& code);

    palette palette_;
    std::vector<records::font_description> fonts_; ///< the first one has index 5
    std::vector<std::u16string> number_formats_; ///< the first one has index 164
    std::vector<records::xf_description> formats_; ///< the first one is XF 16
};

} // namespace xls
