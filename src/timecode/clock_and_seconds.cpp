// SPDX-License-Identifier: MIT
#include "timecode/clock_and_seconds.h"

#include "timecode/frame_rates.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace tallyframe {

std::optional<double> to_seconds(std::optional<double> frames, std::optional<double> rate)
{
    if (!frames || !rate || !nominal_rate(*rate) || !std::isfinite(*frames))
        return std::nullopt;
    const double seconds = *frames / *rate;
    return std::isfinite(seconds) ? std::optional(seconds) : std::nullopt;
}

std::string to_clock(std::optional<double> seconds)
{
    if (!seconds || !std::isfinite(*seconds))
        return {};
    constexpr double day = 24.0 * 60 * 60;
    double second_of_day = std::fmod(std::floor(*seconds), day); // exact, whatever the size
    if (second_of_day < 0)
        second_of_day += day;
    const int second = static_cast<int>(second_of_day);
    std::string text = "00:00:00";
    const std::array<int, 3> fields = {second / 3600, second / 60 % 60, second % 60};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        text[i * 3] = static_cast<char>('0' + fields[i] / 10);
        text[i * 3 + 1] = static_cast<char>('0' + fields[i] % 10);
    }
    return text;
}

} // namespace tallyframe
