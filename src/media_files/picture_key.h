// SPDX-License-Identifier: MIT
#pragma once

#include "platform/thumbnailer.h"

#include <string>
#include <tuple>

namespace tallyframe {

/// Which picture: a file, a moment, and a width (0 for a still in its own size).
struct picture_key {
    std::string file;
    media_time time;
    int width = 0;

    bool operator<(const picture_key& other) const
    {
        return std::tie(file, width, time.value, time.timescale)
            < std::tie(other.file, other.width, other.time.value, other.time.timescale);
    }
};

} // namespace tallyframe
