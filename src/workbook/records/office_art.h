// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <cstddef>
#include <cstdint>

/// The records inside MSODRAWINGGROUP and MSODRAWING records, from [MS-ODRAW].
///
///     +---------------------------+-----------+-----------+---------+
///     | version 4 bits, instance  | kind: u16 | size: u32 | content |
///     | 12 bits: u16              |           |           |         |
///     +---------------------------+-----------+-----------+---------+
///
/// The content of a container, which has version 15, is further records.
namespace xls::office_art {

enum class kind : std::uint16_t {
    drawing_group_container = 0xF000,
    blip_store_container = 0xF001,
    drawing_container = 0xF002,
    shape_group_container = 0xF003,
    shape_container = 0xF004,
    drawing_group = 0xF006,
    blip_store_entry = 0xF007,
    drawing = 0xF008,
    shape_group = 0xF009,
    shape = 0xF00A,
    properties = 0xF00B,
    client_anchor = 0xF010,
    client_data = 0xF011,
    jpeg = 0xF01D,
    png = 0xF01E,
    split_menu_colors = 0xF11E,
};

inline constexpr std::size_t header_size = 8;
inline constexpr std::uint16_t container = 0xF;

inline void header(byte_writer& out, kind kind, std::uint16_t version, std::size_t instance, std::size_t size)
{
    out.u16(static_cast<std::uint16_t>(version | instance << 4));
    out.u16(static_cast<std::uint16_t>(kind));
    out.u32(static_cast<std::uint32_t>(size));
}

/// A shape's trait: its number in [MS-ODRAW] 2.3, and its value.
struct property {
    std::uint16_t id;
    std::uint32_t value;
};

inline constexpr std::size_t property_size = 6;

template <std::size_t count>
void properties(byte_writer& out, const property (&table)[count])
{
    header(out, kind::properties, 3, count, count * property_size);
    for (const auto& [id, value] : table) {
        out.u16(id);
        out.u32(value);
    }
}

} // namespace xls::office_art
