// SPDX-License-Identifier: MIT
#include "platform/media_facts.h"

#include <algorithm>
#include <cmath>

namespace tallyframe {

namespace {

/// 24 and 23.976 lie ten times as far apart, 23.976 and 24000/1001 a thousandth of this.
constexpr double rate_tolerance = 1e-4;

/// Ends are rounded by exporters, and sound seldom ends with a frame.
constexpr double duration_tolerance = 2; ///< frames
constexpr double slowest_rate = 24; ///< for what has no rate

} // namespace

fact_differences differences_of(const media_facts& a, const media_facts& b)
{
    fact_differences found;
    if (a.frames_per_second && b.frames_per_second) {
        ++found.compared;
        found.rate =
            std::abs(*a.frames_per_second - *b.frames_per_second) > rate_tolerance * *b.frames_per_second;
    }
    if (a.duration && b.duration) {
        ++found.compared;
        const double rate = b.frames_per_second.value_or(a.frames_per_second.value_or(slowest_rate));
        found.duration = std::abs(*a.duration - *b.duration) * std::max(rate, 1.0) > duration_tolerance;
    }
    if (a.frame_size && b.frame_size) {
        ++found.compared;
        found.frame_size = *a.frame_size != *b.frame_size;
    }
    return found;
}

} // namespace tallyframe
