// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tallyframe {

/// Frames per second as all time arithmetic uses it, and whether the number is a floating one (the NTSC rates
/// and what is computed from them) or a whole one: the in-point of a picture is computed differently.
struct frame_rate {
    double frames_per_second = 0;
    bool is_floating = false;

    bool operator==(const frame_rate&) const = default;
};

/// A supported rate.
struct frame_rates_row {
    std::string_view type; ///< as shown in the report
    std::int64_t timebase;
    std::string_view ntsc; ///< "TRUE" or "FALSE"
    frame_rate fcp_rate;
};

inline constexpr std::array<frame_rates_row, 8> frame_rates = {{
    {"24P (24 fps)", 24, "TRUE", {23.976, true}},
    {"Film (24 fps)", 24, "FALSE", {24, false}},
    {"PAL (25 fps)", 25, "FALSE", {25, false}},
    {"NTSC/HD (29.97 fps)", 30, "TRUE", {29.97, true}},
    {"Video/HD (30 fps)", 30, "FALSE", {30, false}},
    {"HD (50 fps)", 50, "FALSE", {50, false}},
    {"HD (59.94 fps)", 60, "TRUE", {59.94, true}},
    {"HD (60 fps)", 60, "FALSE", {60, false}},
}};

/// The first row with that ntsc text and timebase, or none.
const frame_rates_row* find_frame_rate(std::string_view ntsc, std::int64_t timebase);

/// The first row with that fcp_rate, or none.
const frame_rates_row* find_frame_rate(double fcp_rate);

/// `value` rounded half away from zero.
double rounded(double value);

/// The rate rounded half away from zero to a whole number of frames a second (29.97 gives 30), or nothing
/// when that is 0 or less, not finite or beyond any real rate (a million).
std::optional<std::int64_t> nominal_rate(double frames_per_second);

} // namespace tallyframe
