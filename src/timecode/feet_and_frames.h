// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace tallyframe {

/// Film length of a frame count at 16 frames a foot: feet with four digits at least, "+", frames with two
/// ("0062+08" for 1 000). A negative count floors, its sign inside the padding ("00-1+15" for -1). The empty
/// text when frames is missing or not finite.
std::string to_feet_and_frames(std::optional<double> frames);

} // namespace tallyframe
