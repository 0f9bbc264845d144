// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace tallyframe {

/// What the application's badge shows: the whole percentage of `value` out of `progress_bar_length`, cut and
/// not rounded, and "%". An empty bar counts as done.
inline std::string badge_text(std::int64_t value, std::int64_t progress_bar_length)
{
    if (progress_bar_length <= 0)
        return "100%";
    const double share = static_cast<double>(value) / static_cast<double>(progress_bar_length);
    return std::to_string(static_cast<std::int64_t>(share * 100.0)) + "%";
}

} // namespace tallyframe
