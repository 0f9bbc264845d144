// SPDX-License-Identifier: MIT
//
//     LABELSST  | header 4 | row 2 | column 2 | XF 2 | text 4   |
//     NUMBER    | header 4 | row 2 | column 2 | XF 2 | double 8 |
//     RK        | header 4 | row 2 | column 2 | XF 2 | RK 4     |
//     BOOLERR   | header 4 | row 2 | column 2 | XF 2 | code 1 | 1 (an error) 1 |
//     BLANK     | header 4 | row 2 | column 2 | XF 2 |
//     MULBLANK  | header 4 | row 2 | first column 2 | XF 2 | XF 2 | ... | last column 2 |
//
//     RK        | 30 bits: whole number, or the high bits of a double | whole? 1 bit | hundredths? 1 bit |
#include "workbook/records/cell_records.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace xls::records {

namespace {

constexpr std::uint32_t rk_hundredths = 1;
constexpr std::uint32_t rk_whole = 2;

/// Lays the fields of a cell record one behind the other.
template <std::size_t body_size, class... Field>
cell_record<body_size> cell(record_id id, cell_place place, Field... fields)
{
    cell_record<body_size> bytes;
    std::size_t offset = 0;
    const auto put = [&](auto number) {
        std::ranges::copy(little_endian(number), bytes.data() + offset);
        offset += sizeof(number);
    };
    put(static_cast<std::uint16_t>(id));
    put(static_cast<std::uint16_t>(body_size));
    put(place.row);
    put(place.column);
    put(place.xf);
    (put(fields), ...);
    return bytes;
}

bool is_negative_zero(double value)
{
    return value == 0 && std::signbit(value);
}

std::optional<std::uint32_t> whole_number(double value)
{
    constexpr double limit = 1 << 29;
    if (!(value >= -limit && value < limit) || is_negative_zero(value))
        return std::nullopt;
    const auto whole = static_cast<std::int32_t>(value);
    if (whole != value)
        return std::nullopt;
    return static_cast<std::uint32_t>(whole) << 2;
}

} // namespace

cell_record<10> label_sst(cell_place place, std::uint32_t text)
{
    return cell<10>(record_id::label_sst, place, text);
}

cell_record<14> number(cell_place place, double value)
{
    return cell<14>(record_id::number, place, std::bit_cast<std::uint64_t>(value));
}

cell_record<10> rk(cell_place place, std::uint32_t compressed)
{
    return cell<10>(record_id::rk, place, compressed);
}

std::optional<std::uint32_t> compressed_number(double value)
{
    if (const auto whole = whole_number(value))
        return *whole | rk_whole;
    if (const auto bits = std::bit_cast<std::uint64_t>(value); (bits & 0x3FFFFFFFF) == 0)
        return static_cast<std::uint32_t>(bits >> 32);
    if (const auto hundredths = std::round(value * 100); hundredths / 100 == value)
        if (const auto whole = whole_number(hundredths))
            return *whole | rk_whole | rk_hundredths;
    return std::nullopt;
}

cell_record<8> error(cell_place place, error_code code)
{
    constexpr std::uint8_t is_error = 1;
    return cell<8>(record_id::bool_err, place, static_cast<std::uint8_t>(code), is_error);
}

cell_record<6> blank(cell_place place)
{
    return cell<6>(record_id::blank, place);
}

} // namespace xls::records
