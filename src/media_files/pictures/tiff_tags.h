// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/pictures/displayed_picture.h"

#include <cstdint>
#include <span>

namespace tallyframe {

/// What a TIFF file says of its first picture that its decoder passes over.
struct tiff_tags {
    orientation turned;
    bool is_tiled = false;
    bool holds_jpeg = false; ///< its pixels are compressed as JPEG

    bool operator==(const tiff_tags&) const = default;
};

/// The tags of a whole file; what is missing or out of bounds counts as not said.
tiff_tags tiff_tags_of(std::span<const std::uint8_t> file);

} // namespace tallyframe
