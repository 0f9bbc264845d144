// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace xls {

class byte_writer;

inline constexpr std::uint16_t automatic_color =
    0x7FFF; ///< of a font: what the reader's system shows text in
inline constexpr std::uint16_t first_palette_index = 8; ///< the palette's colours are numbered from 8 to 63

/// The 56 colours that a workbook's formats choose from.
class palette {
public:
    palette();

    /// The index of a colour: automatic_color for an empty text, a name's own index, or for "#RRGGBB" the
    /// palette's entry of just that colour, made from an entry that no name stands for and no format uses.
    /// Throws workbook_error for an unknown name and when all 40 such entries are taken.
    std::uint16_t index_of(std::string_view color);

    /// Appends the PALETTE record.
    void write(byte_writer& out) const;

private:
    std::uint16_t index_of_rgb(std::uint32_t rgb);

    std::array<std::uint32_t, 56> colors_;
    std::array<bool, 56> taken_{};
};

} // namespace xls
