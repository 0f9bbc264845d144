// SPDX-License-Identifier: MIT
//
// The fields of each record behind its header, with the offset of each.
//
//                0         2      4       6      8         12               16
//     BOF        | version | kind | build | year | history | lowest version |
//                0   2   4       6        8       10             12          14         16          18
//     WINDOW1    | x | y | width | height | flags | active sheet | first tab | selected | tab ratio |
//                0        2       4        6        8        10          11       12        13  14
//     FONT       | height | flags | colour | weight | raised | underline | family | charset | 0 |
//                14
//                | text, its count 1 |
//                0       2
//     FORMAT     | index | text, its count 2 |
//                0      2               4              6           7          8        9        10        18
//     XF         | font | number format | kind, parent | alignment | rotation | indent | groups | borders |
//                18     20
//                | fill |
//                0               2                3               4
//     STYLE      | XF, built in? | built-in style | outline level |
//                0                 4            5      6
//     BOUNDSHEET | stream position | visibility | kind | text, its count 1 |
//
// A text is the count of its units, a byte that is 1 for 16-bit units and 0 for 8-bit units, and the units.
// The count has as many bytes as the drawing says.
#include "workbook/records/globals_records.h"

#include "workbook/records/record.h"
#include "workbook/records/unicode.h"

namespace xls::records {

namespace {

void write_units(byte_writer& out, std::u16string_view text)
{
    const bool narrow = fits_in_bytes(text);
    out.u8(narrow ? 0 : 1);
    for (const auto unit : text) {
        if (narrow)
            out.u8(static_cast<std::uint8_t>(unit));
        else
            out.u16(unit);
    }
}

/// Groups of a cell's XF that differ from its style.
namespace xf_group {
constexpr std::uint8_t number_format = 0x04;
constexpr std::uint8_t font = 0x08;
constexpr std::uint8_t alignment = 0x10;
} // namespace xf_group

constexpr std::uint8_t align_to_bottom = 2 << 4;
constexpr std::uint8_t wrap_text = 1 << 3;
constexpr std::uint16_t locked = 0x0001;
constexpr std::uint16_t is_style_without_parent = 0xFFF4;
constexpr std::uint16_t no_fill = 0x20C0;

void xf(byte_writer& out, const xf_description& xf, std::uint16_t kind, std::uint8_t groups)
{
    const record xf_record(out, record_id::xf);
    out.u16(xf.font);
    out.u16(xf.number_format);
    out.u16(kind);
    out.u8(static_cast<std::uint8_t>(static_cast<std::uint8_t>(xf.align) | (xf.wrap ? wrap_text : 0)
                                     | align_to_bottom));
    out.u8(0);
    out.u8(0);
    out.u8(groups);
    out.zeros(8);
    out.u16(no_fill);
}

} // namespace

void bof(byte_writer& out, substream kind)
{
    constexpr std::uint16_t biff8 = 0x0600;
    constexpr std::uint16_t build = 0x0DBB;
    constexpr std::uint16_t build_year = 1996;
    const record bof_record(out, record_id::bof);
    out.u16(biff8);
    out.u16(static_cast<std::uint16_t>(kind));
    out.u16(build);
    out.u16(build_year);
    out.u32(0x00000041);
    out.u32(0x00000006);
}

void eof(byte_writer& out)
{
    const record eof_record(out, record_id::eof);
}

void window1(byte_writer& out)
{
    constexpr std::uint16_t scroll_bars_and_tabs = 0x0038;
    constexpr std::uint16_t tab_ratio = 600; // thousandths of the window's width for the sheet tabs
    const record window_record(out, record_id::window1);
    out.u16(360); // x, y, width, height in twips
    out.u16(270);
    out.u16(14940);
    out.u16(9150);
    out.u16(scroll_bars_and_tabs);
    out.u16(0);
    out.u16(0);
    out.u16(1);
    out.u16(tab_ratio);
}

void font(byte_writer& out, const font_description& font)
{
    constexpr std::uint16_t normal_weight = 400;
    constexpr std::uint16_t bold_weight = 700;
    const record font_record(out, record_id::font);
    out.u16(font.height);
    out.u16(0);
    out.u16(font.color);
    out.u16(font.bold ? bold_weight : normal_weight);
    out.zeros(6);
    out.u8(static_cast<std::uint8_t>(font.name.size()));
    write_units(out, font.name);
}

void number_format(byte_writer& out, std::uint16_t index, std::u16string_view code)
{
    const record format_record(out, record_id::format);
    out.u16(index);
    out.u16(static_cast<std::uint16_t>(code.size()));
    write_units(out, code);
}

void cell_xf(byte_writer& out, const xf_description& description)
{
    std::uint8_t groups = 0;
    if (description.number_format != 0)
        groups |= xf_group::number_format;
    if (description.font != 0)
        groups |= xf_group::font;
    if (description.align != alignment::general || description.wrap)
        groups |= xf_group::alignment;
    xf(out, description, locked, groups);
}

void style_xf(byte_writer& out, std::uint16_t font, std::uint16_t number_format, std::uint8_t unused)
{
    xf(out, {.font = font, .number_format = number_format}, is_style_without_parent | locked, unused);
}

void normal_style(byte_writer& out)
{
    constexpr std::uint16_t built_in = 0x8000;
    const record style_record(out, record_id::style);
    out.u16(built_in);
    out.u8(0);
    out.u8(0xFF);
}

std::size_t bound_sheet(byte_writer& out, std::u16string_view name)
{
    const record sheet_record(out, record_id::bound_sheet);
    const auto position = out.size();
    out.u32(0);
    out.u16(0);
    out.u8(static_cast<std::uint8_t>(name.size()));
    write_units(out, name);
    return position;
}

} // namespace xls::records
