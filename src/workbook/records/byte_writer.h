// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace xls {

using byte_view = std::span<const std::uint8_t>;

/// Takes bytes that follow those of the call before.
using byte_sink = std::function<void(byte_view)>;

/// The bytes of a number, lowest first, as every field of these files has them.
template <std::unsigned_integral Number>
constexpr std::array<std::uint8_t, sizeof(Number)> little_endian(Number number)
{
    std::array<std::uint8_t, sizeof(Number)> bytes{};
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        bytes[i] = static_cast<std::uint8_t>(number >> (8 * i));
    return bytes;
}

/// Bytes that grow at their end.
class byte_writer {
public:
    void u8(std::uint8_t value) { bytes_.push_back(value); }
    void u16(std::uint16_t value) { number(value); }
    void u32(std::uint32_t value) { number(value); }
    void f64(double value) { number(std::bit_cast<std::uint64_t>(value)); }
    void zeros(std::size_t count) { bytes_.resize(bytes_.size() + count); }
    void bytes(byte_view view) { bytes_.insert(bytes_.end(), view.begin(), view.end()); }

    /// Overwrites the number at `offset`.
    void patch_u16(std::size_t offset, std::uint16_t value) { patch(offset, little_endian(value)); }
    void patch_u32(std::size_t offset, std::uint32_t value) { patch(offset, little_endian(value)); }

    std::size_t size() const { return bytes_.size(); }
    byte_view view() const { return bytes_; }
    void reserve(std::size_t size) { bytes_.reserve(size); }
    std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    void number(std::unsigned_integral auto value) { bytes(little_endian(value)); }
    void patch(std::size_t offset, byte_view value)
    {
        std::ranges::copy(value, bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
    }

    std::vector<std::uint8_t> bytes_;
};

} // namespace xls
