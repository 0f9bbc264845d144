// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "report/report_options.h"
#include "report/table_columns.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// First width of a column of timecodes.
inline constexpr std::size_t timecode_width = std::string_view("00:00:00:00").size();

/// The formats that the list contains, each once and in the order of `time_formats`, whatever the list's.
std::vector<time_format> in_column_order(const std::vector<time_format>& chosen);

/// The member that moves the times of a format: "Timecode" belongs to hhmmssff_adj, and so on.
std::int64_t& adjustment_of(time_adjustments& adjustments, time_format format);
std::int64_t adjustment_of(const time_adjustments& adjustments, time_format format);

/// "Sequence In" for an adjustment of 0, "Sequence In +1" for 1, "Sequence In -2" for -2.
std::string adjusted_header(std::string_view header, std::int64_t adjustment);

/// Which format a time of that form is written in.
cell_kind time_cell_kind(time_format format);

/// A number of frames in one of the time formats. `frames` may be missing: the text formats then give the
/// empty text, the numbers no cell. `rate` in frames a second; seconds without a usable one give no cell.
cell_value time_cell(time_format format, std::optional<double> frames, std::optional<double> rate,
                     display_format displayformat, figure_style figures = figure_style::comparable);

/// The frame count as the sequence's timecode, in words.
std::string sequence_timecode_text(std::optional<double> frames, const sequence_clock& clock);

/// The clock of what was analysed. Bins have no rate.
sequence_clock clock_of(const analysis_result& analysis);

/// Frames that a supplementary sheet shows as an item's duration: those that it covers, or, comparable, from
/// the first to the last, one less.
double supplementary_duration(const track_position& place, figure_style figures);

/// The frame count as the sequence's timecode, as most sheets show their times.
cell_value sequence_timecode(std::optional<double> frames, const sequence_clock& clock);
cell_value sequence_timecode(std::int64_t frames, const sequence_clock& clock);

} // namespace tallyframe
