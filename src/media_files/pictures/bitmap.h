// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace tallyframe {

/// A picture as pixels of three bytes (red, green, blue), row after row without padding, square.
struct bitmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;

    bool operator==(const bitmap&) const = default;
};

/// A picture that several keep at hand.
using image_data = std::shared_ptr<const bitmap>;

} // namespace tallyframe
