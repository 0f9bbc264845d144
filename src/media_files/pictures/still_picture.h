// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_file.h"
#include "media_files/pictures/bitmap.h"

namespace tallyframe {

/// Longer side of the largest picture that a still is kept as: no thumbnail is wider.
inline constexpr int largest_thumbnail_side = 1920;

/// Whether a file is a still picture (JPEG, JPEG 2000, JPEG XL, PNG, TIFF, TGA, DPX, EXR, PSD, BMP, GIF,
/// WebP, PICT …), by its first bytes or, for the kinds without such a mark, by its name.
bool is_still_picture(const media_file& file);

/// A still picture as a viewer shows it, reduced to largest_thumbnail_side. Null when it cannot be read; TIFF
/// in tiles, with JPEG inside, or of over 4 GB (BigTIFF) cannot.
image_data read_still_picture(const media_file& file);

} // namespace tallyframe
