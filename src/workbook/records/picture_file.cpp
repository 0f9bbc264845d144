// SPDX-License-Identifier: MIT
//
//     PNG    89 "PNG" 0D 0A 1A 0A | 13: u32 | "IHDR" | width: u32 | height: u32 | ...
//     JPEG   FF D8 | FF kind, size: u16, ... | ... |
//            FF C0 to CF, size: u16, depth: u8, height: u16, width: u16, components: u8, ... | ...
//
// Numbers stand with their highest byte first.
#include "workbook/records/picture_file.h"

#include "workbook/workbook.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <ios>
#include <limits>

namespace xls {

namespace fs = std::filesystem;

namespace {

/// A number of `size` bytes, or nothing behind the end of the file.
std::optional<std::uint32_t> number_at(byte_view file, std::size_t offset, std::size_t size)
{
    if (file.size() < size || offset > file.size() - size)
        return std::nullopt;
    std::uint32_t number = 0;
    for (const auto byte : file.subspan(offset, size))
        number = number << 8 | byte;
    return number;
}

bool starts_with(byte_view file, byte_view start)
{
    return file.size() >= start.size() && std::ranges::equal(file.first(start.size()), start);
}

std::optional<picture_header> header_of(picture_kind kind, std::optional<std::uint32_t> width,
                                        std::optional<std::uint32_t> height)
{
    constexpr std::uint32_t most = std::numeric_limits<std::int32_t>::max();
    const auto possible = [](auto size) { return size && *size > 0 && *size <= most; };
    if (!possible(width) || !possible(height))
        return std::nullopt;
    return picture_header{kind, *width, *height};
}

std::optional<picture_header> png_header(byte_view file)
{
    return header_of(picture_kind::png, number_at(file, 16, 4), number_at(file, 20, 4));
}

bool starts_frame(std::uint32_t marker)
{
    return marker >= 0xFFC0 && marker <= 0xFFCF && marker != 0xFFC4 && marker != 0xFFC8 && marker != 0xFFCC;
}

/// Markers without a length behind them.
bool stands_alone(std::uint32_t marker)
{
    return marker == 0xFF01 || (marker >= 0xFFD0 && marker <= 0xFFD8);
}

std::optional<picture_header> jpeg_header(byte_view file)
{
    constexpr std::uint32_t fill = 0xFFFF;
    std::size_t offset = 2;
    while (const auto marker = number_at(file, offset, 2)) {
        const auto size = number_at(file, offset + 2, 2);
        if (starts_frame(*marker)) {
            const bool cmyk = number_at(file, offset + 9, 1) == 4U;
            return header_of(cmyk ? picture_kind::cmyk_jpeg : picture_kind::jpeg,
                             number_at(file, offset + 7, 2), number_at(file, offset + 5, 2));
        }
        if (*marker < 0xFF00 || !size)
            return std::nullopt;
        if (*marker == fill)
            offset += 1;
        else
            offset += stands_alone(*marker) ? 2 : 2 + *size;
    }
    return std::nullopt;
}

[[noreturn]] void refuse_picture(const fs::path& path, const char* reason)
{
    throw workbook_error("The picture \"" + path.string() + "\" was not inserted: " + reason);
}

} // namespace

std::optional<picture_header> read_picture_header(byte_view file)
{
    constexpr std::array<std::uint8_t, 16> png_start{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                     0,    0,   0,   13,  'I',  'H',  'D',  'R'};
    constexpr std::array<std::uint8_t, 3> jpeg_start{0xFF, 0xD8, 0xFF};
    if (starts_with(file, png_start))
        return png_header(file);
    if (starts_with(file, jpeg_start))
        return jpeg_header(file);
    return std::nullopt;
}

picture_file read_picture_file(const fs::path& path)
{
    std::error_code error;
    std::ifstream stream;
    if (fs::is_regular_file(path, error))
        stream.open(path, std::ios::binary | std::ios::ate);
    if (!stream.is_open())
        refuse_picture(path, "the file cannot be opened.");
    picture_file picture{};
    picture.bytes.resize(static_cast<std::size_t>(std::max<std::streamoff>(0, stream.tellg())));
    stream.seekg(0);
    stream.read(reinterpret_cast<char*>(picture.bytes.data()),
                static_cast<std::streamsize>(picture.bytes.size()));
    if (!stream)
        refuse_picture(path, "the file cannot be read.");
    const auto header = read_picture_header(picture.bytes);
    if (!header)
        refuse_picture(path, "it is no JPEG or PNG file.");
    picture.header = *header;
    return picture;
}

} // namespace xls
