// SPDX-License-Identifier: MIT
//
//     FONT    0 1 2 3 | 5 6 7 ...         no font has index 4: a heritage that every reader knows
//     FORMAT  164 165 ...                 lower indexes are built into the readers
//     XF      0 ... 14 | 15 | 16 17 ...   styles | the default cell format | the formats taken in
//     STYLE   XF 0 is "Normal"
//     PALETTE
//
// FONT 0 is the font of the style "Normal". The widths of all columns are counted in its digits.
#include "workbook/records/format_table.h"

#include "workbook/records/unicode.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <string_view>

namespace xls {

namespace {

constexpr std::size_t default_font_count = 4;
constexpr std::size_t first_font_index = 5;
constexpr std::size_t first_number_format_index = 164;

constexpr std::size_t font_limit = 512 - default_font_count;
constexpr std::size_t number_format_limit = 200;
constexpr std::size_t format_limit = 4000;
constexpr std::size_t font_name_limit = 31;
constexpr std::size_t number_format_code_limit = 255;

struct built_in_format {
    std::string_view code;
    std::uint16_t index;
};

/// The built-in number formats that look the same in each country ([MS-XLS] 2.4.126). The others, such as
/// 14 for dates or 5 for money, follow the reader's settings.
constexpr std::array<built_in_format, 20> built_in_formats{{
    {"General", 0},   {"0", 1},        {"0.00", 2},       {"#,##0", 3},       {"#,##0.00", 4},
    {"0%", 9},        {"0.00%", 10},   {"0.00E+00", 11},  {"# ?/?", 12},      {"# ?\?/?\?", 13},
    {"d-mmm-yy", 15}, {"d-mmm", 16},   {"mmm-yy", 17},    {"h:mm AM/PM", 18}, {"h:mm:ss AM/PM", 19},
    {"h:mm", 20},     {"h:mm:ss", 21}, {"[h]:mm:ss", 46}, {"##0.0E+0", 48},   {"@", 49},
}};

/// The fonts of XF 1 to 14 as Excel itself writes them: the styles of outline rows and columns.
constexpr std::array<std::uint16_t, 14> outline_style_fonts{1, 1, 2, 2};
constexpr std::uint8_t all_groups_unused = 0xF4;

records::font_description default_font()
{
    return {.name = u"Arial"};
}

std::uint16_t twips(double points)
{
    constexpr double largest = 409;
    return static_cast<std::uint16_t>(std::lround(std::fmax(1, std::fmin(points, largest)) * 20));
}

/// Height of a row of texts in a font, in twips, as Excel fits it around Arial.
std::uint16_t row_height_of(const records::font_description& font)
{
    constexpr int twips_in_pixel = 15;
    return static_cast<std::uint16_t>(std::lround(font.height / 20.0 * 1.66 + 0.4) * twips_in_pixel);
}

/// The position of `wanted` in `known`, put at its end if it is not there yet and the limit allows it.
template <class Item>
std::size_t position_of(std::vector<Item>& known, const Item& wanted, std::size_t limit, const char* too_many)
{
    const auto found = std::ranges::find(known, wanted);
    const auto position = static_cast<std::size_t>(found - known.begin());
    if (found == known.end()) {
        if (known.size() == limit)
            throw workbook_error(too_many);
        known.push_back(wanted);
    }
    return position;
}

} // namespace

format_id format_table::add(const format& format)
{
    const records::xf_description wanted{
        .font = font_index(format),
        .number_format = number_format_index(format.number_format),
        .align = format.align,
        .wrap = format.wrap,
    };
    if (wanted == records::xf_description{})
        return {};
    const auto position = position_of(formats_, wanted, format_limit,
                                      "A workbook holds 4,000 cell formats. Use fewer different ones.");
    return {static_cast<std::uint16_t>(position + 1)};
}

std::uint16_t format_table::font_index(const format& format)
{
    records::font_description wanted{
        .name = to_utf16(format.font),
        .height = twips(format.size),
        .bold = format.bold,
        .color = palette_.index_of(format.color),
    };
    if (wanted.name.empty() || wanted.name.size() > font_name_limit)
        throw workbook_error("The font name \"" + format.font + "\" is empty or longer than 31 characters.");
    if (wanted == default_font())
        return 0;
    const auto position =
        position_of(fonts_, wanted, font_limit, "A workbook holds 512 fonts. Use fewer different ones.");
    return static_cast<std::uint16_t>(first_font_index + position);
}

std::uint16_t format_table::number_format_index(const std::string& code)
{
    if (code.empty())
        return 0;
    const auto* const built_in = std::ranges::find(built_in_formats, code, &built_in_format::code);
    if (built_in != built_in_formats.end())
        return built_in->index;
    const auto wanted = to_utf16(code);
    if (wanted.size() > number_format_code_limit)
        throw workbook_error("The number format \"" + code + "\" is longer than 255 characters.");
    const auto position = position_of(number_formats_, wanted, number_format_limit,
                                      "A workbook holds 200 number formats. Use fewer different ones.");
    return static_cast<std::uint16_t>(first_number_format_index + position);
}

void format_table::refuse_unknown_format()
{
    throw std::out_of_range("a format of another workbook");
}

std::vector<std::uint16_t> format_table::row_heights() const
{
    std::vector<std::uint16_t> heights(default_cell_xf + 1U, row_height_of(default_font()));
    for (const auto& format : formats_)
        heights.push_back(
            row_height_of(format.font == 0 ? default_font() : fonts_[format.font - first_font_index]));
    return heights;
}

void format_table::write(byte_writer& out) const
{
    for (std::size_t i = 0; i < default_font_count; ++i)
        records::font(out, default_font());
    for (const auto& font : fonts_)
        records::font(out, font);
    for (std::size_t i = 0; i < number_formats_.size(); ++i)
        records::number_format(out, static_cast<std::uint16_t>(first_number_format_index + i),
                               number_formats_[i]);
    records::style_xf(out, 0, 0, 0);
    for (const std::uint16_t font : outline_style_fonts)
        records::style_xf(out, font, 0, all_groups_unused);
    records::cell_xf(out, {});
    for (const auto& format : formats_)
        records::cell_xf(out, format);
    records::normal_style(out);
    palette_.write(out);
}

} // namespace xls
