// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tallyframe::window {

/// A time format as the editors of the timeline's and the source's time columns list it.
struct time_column_row {
    time_format format = time_format::timecode;
    bool is_shown = false;
    std::int64_t adjustment = 0; ///< frames; the source's times have none

    bool operator==(const time_column_row&) const = default;
};

/// The largest adjustment that the window offers, in frames either way: a day at 60 frames a second.
inline constexpr std::int64_t adjustment_limit = 86'400 * std::int64_t{60};

/// The chosen formats in their order, each once, then the others in the order of `time_formats`.
std::vector<time_column_row> time_column_rows(const std::vector<time_format>& chosen,
                                              const time_adjustments& adjustments);

std::vector<time_format> chosen_formats(const std::vector<time_column_row>& rows);
time_adjustments adjustments_of(const std::vector<time_column_row>& rows);

/// Exchanges a row with the one above or below it; at the list's end nothing happens. Gives the row's new
/// position.
std::size_t move_up(std::vector<time_column_row>& rows, std::size_t position);
std::size_t move_down(std::vector<time_column_row>& rows, std::size_t position);

} // namespace tallyframe::window
