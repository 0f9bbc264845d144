// SPDX-License-Identifier: MIT
#include "timecode/feet_and_frames.h"

#include "timecode/frame_arithmetic.h"

#include <cmath>

namespace tallyframe {

std::string to_feet_and_frames(std::optional<double> frames)
{
    constexpr std::int64_t frames_per_foot = 16;
    if (!frames || !(std::fabs(*frames) < frame_count_limit))
        return {};
    const floored_division feet(static_cast<std::int64_t>(*frames), frames_per_foot);
    std::string text;
    append_padded(text, feet.quotient, 4);
    text += '+';
    append_padded(text, feet.remainder, 2);
    return text;
}

} // namespace tallyframe
