// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace xls {

enum class picture_kind : std::uint8_t { jpeg, cmyk_jpeg, png };

/// What a picture file says of itself.
struct picture_header {
    picture_kind kind;
    std::uint32_t width; ///< pixels, at least 1
    std::uint32_t height;
};

/// Nothing for bytes that are neither a JPEG nor a PNG file with a size.
std::optional<picture_header> read_picture_header(byte_view file);

struct picture_file {
    picture_header header;
    std::vector<std::uint8_t> bytes;
};

/// Throws workbook_error when the file cannot be read or is neither JPEG nor PNG.
picture_file read_picture_file(const std::filesystem::path& path);

} // namespace xls
