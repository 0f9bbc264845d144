// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace tallyframe {

/// Seconds that `frames` last at exactly `rate` frames per second, not rounded; nothing when an input is
/// missing, the rate's nominal value is 0 or less, or a value is not finite.
std::optional<double> to_seconds(std::optional<double> frames, std::optional<double> rate);

/// Clock text "HH:mm:ss" of a number of seconds after midnight: fractions are dropped, a day wraps around, a
/// negative count shows the time before midnight. The empty text for nothing.
std::string to_clock(std::optional<double> seconds);

} // namespace tallyframe
