// SPDX-License-Identifier: MIT
#pragma once

#include "text/leading_numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

// Positions and lengths in frames. A document can hold any number; all are cut to what a double holds
// exactly (ten million years of pictures), so that the sums of a few never leave the range of std::int64_t.

namespace tallyframe {

inline constexpr std::int64_t furthest_frame = std::int64_t{1} << 53;

/// Whole number of frames at the front of a text; 0 without one.
inline std::int64_t frame_number(std::string_view text)
{
    return std::clamp(leading_integer(text), -furthest_frame, furthest_frame);
}

/// `frames` rounded half away from zero; 0 for what is not a number.
inline std::int64_t rounded_frames(double frames)
{
    constexpr auto limit = static_cast<double>(furthest_frame);
    return std::isnan(frames) ? 0 : std::llround(std::clamp(frames, -limit, limit));
}

} // namespace tallyframe
