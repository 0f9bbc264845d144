// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"
#include "workbook/records/record.h"

#include <array>
#include <cstdint>
#include <optional>

/// The records of single cells, as whole records. Rows and columns count from 0; `xf`: the cell's format.
namespace xls::records {

struct cell_place {
    std::uint16_t row;
    std::uint16_t column;
    std::uint16_t xf;
};

template <std::size_t body_size>
using cell_record = std::array<std::uint8_t, record_header_size + body_size>;

/// A text by its number in the shared strings.
cell_record<10> label_sst(cell_place place, std::uint32_t text);

/// A finite number in 64 bits.
cell_record<14> number(cell_place place, double value);

/// A number that compressed_number could compress.
cell_record<10> rk(cell_place place, std::uint32_t compressed);

/// The number in the 30 bits of an RK record, when that loses nothing: a whole number, a hundredth of one,
/// or a number whose low 34 bits are 0.
std::optional<std::uint32_t> compressed_number(double value);

enum class error_code : std::uint8_t { number = 0x24 }; ///< #NUM!
cell_record<8> error(cell_place place, error_code code);

cell_record<6> blank(cell_place place);

/// What a reader of cell records needs to know of one.
struct cell_view {
    byte_view bytes; ///< the whole record
    record_id id() const { return static_cast<record_id>(u16(0)); }
    std::uint16_t row() const { return u16(record_header_size); }
    std::uint16_t first_column() const { return u16(record_header_size + 2); }
    std::uint16_t last_column() const
    {
        return id() == record_id::mul_blank ? u16(bytes.size() - 2) : first_column();
    }
    std::uint16_t xf(std::size_t nth = 0) const { return u16(record_header_size + 4 + 2 * nth); }
    std::uint16_t u16(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(bytes[offset] | bytes[offset + 1] << 8);
    }
};

/// The record that starts at `offset`.
inline cell_view cell_at(byte_view cells, std::size_t offset)
{
    const auto size = static_cast<std::size_t>(cells[offset + 2] | cells[offset + 3] << 8);
    return {cells.subspan(offset, record_header_size + size)};
}

inline constexpr std::size_t label_sst_text_offset = record_header_size + 6;

} // namespace xls::records
