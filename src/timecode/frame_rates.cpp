// SPDX-License-Identifier: MIT
#include "timecode/frame_rates.h"

#include <algorithm>
#include <cmath>

namespace tallyframe {

namespace {

constexpr double largest_nominal_rate = 1'000'000;

template <class Condition>
const frame_rates_row* first_row(const Condition& condition)
{
    const auto* const row = std::ranges::find_if(frame_rates, condition);
    return row == frame_rates.end() ? nullptr : row;
}

} // namespace

const frame_rates_row* find_frame_rate(std::string_view ntsc, std::int64_t timebase)
{
    return first_row(
        [&](const frame_rates_row& row) { return row.ntsc == ntsc && row.timebase == timebase; });
}

const frame_rates_row* find_frame_rate(double fcp_rate)
{
    return first_row([&](const frame_rates_row& row) { return row.fcp_rate.frames_per_second == fcp_rate; });
}

double rounded(double value)
{
    return std::round(value);
}

std::optional<std::int64_t> nominal_rate(double frames_per_second)
{
    const double nominal = rounded(frames_per_second);
    if (!(nominal >= 1 && nominal <= largest_nominal_rate)) // false for what is not a number, too
        return std::nullopt;
    return static_cast<std::int64_t>(nominal);
}

} // namespace tallyframe
