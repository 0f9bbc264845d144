// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/format.h"
#include "workbook/records/byte_writer.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The records that describe the workbook as a whole. Each function appends one record.
namespace xls::records {

enum class substream : std::uint16_t { globals = 0x0005, sheet = 0x0010 };

void bof(byte_writer& out, substream kind);
void eof(byte_writer& out);
void window1(byte_writer& out);

struct font_description {
    std::u16string name; ///< 1 to 31 units
    std::uint16_t height = 200; ///< twips (1/20 point)
    bool bold = false;
    std::uint16_t color = 0x7FFF;
    bool operator==(const font_description&) const = default;
};
void font(byte_writer& out, const font_description& font);

/// `code`: the number format as Excel writes it, up to 255 units.
void number_format(byte_writer& out, std::uint16_t index, std::u16string_view code);

struct xf_description {
    std::uint16_t font = 0;
    std::uint16_t number_format = 0;
    alignment align = alignment::general;
    bool wrap = false;
    bool operator==(const xf_description&) const = default;
};
void cell_xf(byte_writer& out, const xf_description& description);

/// A format of a named style; `unused`: the bits of the groups that the style leaves alone.
void style_xf(byte_writer& out, std::uint16_t font, std::uint16_t number_format, std::uint8_t unused);

/// The name of XF 0: Excel's built-in style "Normal".
void normal_style(byte_writer& out);

/// Answers the offset in `out` of the sheet's stream position (u32), which is not known yet.
std::size_t bound_sheet(byte_writer& out, std::u16string_view name);

} // namespace xls::records
