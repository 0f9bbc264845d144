// SPDX-License-Identifier: MIT
//
//     header       byte order FFFE: u16 | version 0: u16 | system: u32 | class 0: 16 bytes | sets 1: u32
//     section      kind of properties: 16 bytes | offset: u32
//     set          size: u32 | properties: u32
//                  for each: its number: u32 | offset in the set: u32
//                  for each: its type: u32 | its value
//
// A text's value is its bytes with the NUL behind them, counted: u32, and then themselves.
#include "workbook/file/summary_information.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace xls {

namespace {

enum class property : std::uint32_t { codepage = 0x01, title = 0x02, application = 0x12 };
enum class property_type : std::uint32_t { number = 0x02, text = 0x1E };

constexpr std::array<std::uint8_t, 16> summary_properties{0xE0, 0x85, 0x9F, 0xF2, 0xF9, 0x4F, 0x68, 0x10,
                                                          0xAB, 0x91, 0x08, 0x00, 0x2B, 0x27, 0xB3, 0xD9};
constexpr std::size_t header_size = 48; ///< the section's line included

using property_values = std::vector<std::pair<property, byte_writer>>;

void add_codepage(property_values& values)
{
    constexpr std::uint32_t utf8 = 65001; // whatever the machine's own encoding is
    byte_writer value;
    value.u32(static_cast<std::uint32_t>(property_type::number));
    value.u32(utf8);
    values.emplace_back(property::codepage, std::move(value));
}

void add_text(property_values& values, property which, const std::string& text)
{
    if (text.empty())
        return;
    byte_writer value;
    value.u32(static_cast<std::uint32_t>(property_type::text));
    value.u32(static_cast<std::uint32_t>(text.size() + 1));
    for (const char unit : text)
        value.u8(static_cast<std::uint8_t>(unit));
    value.u8(0);
    values.emplace_back(which, std::move(value));
}

byte_writer property_set(const property_values& values)
{
    constexpr std::size_t head = 8;
    constexpr std::size_t line = 8;
    auto offset = head + values.size() * line;
    byte_writer lines;
    byte_writer all_values;
    for (const auto& [which, value] : values) {
        lines.u32(static_cast<std::uint32_t>(which));
        lines.u32(static_cast<std::uint32_t>(offset + all_values.size()));
        all_values.bytes(value.view());
    }
    byte_writer set;
    set.u32(static_cast<std::uint32_t>(offset + all_values.size()));
    set.u32(static_cast<std::uint32_t>(values.size()));
    set.bytes(lines.view());
    set.bytes(all_values.view());
    return set;
}

} // namespace

byte_writer summary_information(const std::string& title, const std::string& application)
{
    constexpr std::uint16_t byte_order = 0xFFFE;
    constexpr std::uint32_t windows = 0x00020A04;
    property_values values;
    add_codepage(values);
    add_text(values, property::application, application);
    add_text(values, property::title, title);

    byte_writer out;
    out.u16(byte_order);
    out.u16(0);
    out.u32(windows);
    out.zeros(16);
    out.u32(1);
    out.bytes(summary_properties);
    out.u32(header_size);
    out.bytes(property_set(values).view());
    return out;
}

} // namespace xls
