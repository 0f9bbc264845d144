// SPDX-License-Identifier: MIT
//
//     PALETTE    +-------------+-----------------------------------------+
//                | colours: u16 | 56 times: red, green, blue, 0 (u8 each) |
//                +-------------+-----------------------------------------+
#include "workbook/records/palette.h"

#include "workbook/format.h"
#include "workbook/records/record.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

namespace xls {

namespace {

/// Excel's standard palette, [MS-XLS] 2.5.161 (Icv).
constexpr std::array<std::uint32_t, 56> standard_colors{
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, // 8
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, // 16
    0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, // 24
    0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF, // 32
    0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99, // 40
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, // 48
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333, // 56
};

/// Colours of charts, which Excel does not offer for cells, are the first to make room for others.
constexpr std::size_t first_replaced = 24 - first_palette_index;

struct named_color {
    std::string_view name;
    std::uint16_t index;
};

constexpr std::array<named_color, 16> named_colors{{
    {"black", 8},
    {"blue", 12},
    {"brown", 16},
    {"cyan", 15},
    {"gray", 23},
    {"green", 17},
    {"lime", 11},
    {"magenta", 14},
    {"navy", 18},
    {"orange", 53},
    {"pink", 33},
    {"purple", 20},
    {"red", 10},
    {"silver", 22},
    {"white", 9},
    {"yellow", 13},
}};

const named_color* find_name(std::string_view name)
{
    const auto* const found = std::ranges::find(named_colors, name, &named_color::name);
    return found == named_colors.end() ? nullptr : found;
}

std::optional<std::uint32_t> parse_rgb(std::string_view text)
{
    constexpr std::size_t digits = 6;
    std::uint32_t rgb = 0;
    if (text.size() != 1 + digits || text[0] != '#' || text[1] == '-')
        return std::nullopt;
    const auto* const end = text.data() + text.size();
    if (std::from_chars(text.data() + 1, end, rgb, 16).ptr != end)
        return std::nullopt;
    return rgb;
}

} // namespace

const std::vector<std::string_view>& color_names()
{
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> all;
        all.reserve(named_colors.size());
        for (const auto& color : named_colors)
            all.push_back(color.name);
        return all;
    }();
    return names;
}

bool is_color(std::string_view text)
{
    return color_value(text).has_value();
}

std::optional<std::uint32_t> color_value(std::string_view text)
{
    if (const named_color* const color = find_name(text))
        return standard_colors.at(color->index - first_palette_index);
    return parse_rgb(text);
}

palette::palette() : colors_(standard_colors)
{
    for (const auto& color : named_colors)
        taken_[color.index - first_palette_index] = true;
}

std::uint16_t palette::index_of(std::string_view color)
{
    if (color.empty())
        return automatic_color;
    if (const auto* const named = find_name(color))
        return named->index;
    if (const auto rgb = parse_rgb(color))
        return index_of_rgb(*rgb);
    throw workbook_error("The color \"" + std::string(color)
                         + "\" is not known. Give a color name or #RRGGBB.");
}

std::uint16_t palette::index_of_rgb(std::uint32_t rgb)
{
    for (std::size_t i = 0; i < colors_.size(); ++i) {
        if (colors_[i] == rgb) {
            taken_[i] = true;
            return static_cast<std::uint16_t>(i + first_palette_index);
        }
    }
    for (std::size_t i = 0; i < colors_.size(); ++i) {
        const auto entry = (first_replaced + i) % colors_.size();
        if (!taken_[entry]) {
            taken_[entry] = true;
            colors_[entry] = rgb;
            return static_cast<std::uint16_t>(entry + first_palette_index);
        }
    }
    throw workbook_error("A workbook holds 40 colors besides the named ones. Use fewer different colors.");
}

void palette::write(byte_writer& out) const
{
    const record palette_record(out, record_id::palette);
    out.u16(static_cast<std::uint16_t>(colors_.size()));
    for (const auto rgb : colors_) {
        out.u8(static_cast<std::uint8_t>(rgb >> 16));
        out.u8(static_cast<std::uint8_t>(rgb >> 8));
        out.u8(static_cast<std::uint8_t>(rgb));
        out.u8(0);
    }
}

} // namespace xls
