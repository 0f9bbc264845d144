// SPDX-License-Identifier: MIT
//
//     "II" or "MM": lowest or highest byte first | 42: u16 | where the directory stands: u32
//     directory    entries: u16 | tag: u16, type: u16, count: u32, value: 4 bytes | ...
//
// The values that are looked at are one u16.
#include "media_files/pictures/tiff_tags.h"

#include <array>
#include <cstddef>
#include <optional>

namespace tallyframe {

namespace {

class tiff_bytes {
public:
    explicit tiff_bytes(std::span<const std::uint8_t> file)
        : file_(file), lowest_first_(!file.empty() && file[0] == 'I')
    {
    }

    std::optional<std::uint32_t> number_at(std::size_t at, std::size_t size) const
    {
        if (at > file_.size() || size > file_.size() - at)
            return std::nullopt;
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < size; ++i)
            number = number << 8U | file_[at + (lowest_first_ ? size - 1 - i : i)];
        return number;
    }

private:
    std::span<const std::uint8_t> file_;
    bool lowest_first_;
};

/// By the number that stands for it: which edges of the scene the first line and the first column are.
orientation turned_by(std::uint32_t number)
{
    constexpr std::array<orientation, 9> orientations = {{{},
                                                          {},
                                                          {false, true, false},
                                                          {false, true, true},
                                                          {false, false, true},
                                                          {true, false, false},
                                                          {true, true, false},
                                                          {true, true, true},
                                                          {true, false, true}}};
    return number < orientations.size() ? orientations[number] : orientation{};
}

} // namespace

tiff_tags tiff_tags_of(std::span<const std::uint8_t> file)
{
    constexpr std::uint32_t compression = 259;
    constexpr std::uint32_t picture_orientation = 274;
    constexpr std::uint32_t tile_width = 322;
    constexpr std::uint32_t jpeg_of_old = 6;
    constexpr std::uint32_t jpeg = 7;
    constexpr std::size_t entry_size = 12;

    const tiff_bytes bytes(file);
    const std::size_t directory = bytes.number_at(4, 4).value_or(0);
    const std::uint32_t entries = bytes.number_at(directory, 2).value_or(0);
    tiff_tags tags;
    for (std::uint32_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * entry_size;
        const std::optional<std::uint32_t> tag = bytes.number_at(entry, 2);
        const std::optional<std::uint32_t> value = bytes.number_at(entry + 8, 2);
        if (!tag || !value)
            break;
        if (*tag == compression)
            tags.holds_jpeg = *value == jpeg_of_old || *value == jpeg;
        if (*tag == picture_orientation)
            tags.turned = turned_by(*value);
        if (*tag == tile_width)
            tags.is_tiled = true;
    }
    return tags;
}

} // namespace tallyframe
