// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/pictures/bitmap.h"

#include <cstdint>
#include <vector>

namespace tallyframe {

/// A JPEG file's bytes. `quality`: 1 to 100. Throws std::runtime_error.
std::vector<std::uint8_t> jpeg_file(const bitmap& picture, int quality);

} // namespace tallyframe
