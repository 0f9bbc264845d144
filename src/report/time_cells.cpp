// SPDX-License-Identifier: MIT
#include "report/time_cells.h"

#include "timecode/clock_and_seconds.h"
#include "timecode/feet_and_frames.h"
#include "timecode/to_timecode.h"

#include <algorithm>

namespace tallyframe {

namespace {

cell_value number_or_no_cell(std::optional<double> number)
{
    if (!number)
        return {};
    return *number;
}

std::int64_t time_adjustments::*adjustment_member(time_format format)
{
    switch (format) {
    case time_format::timecode:
        return &time_adjustments::hhmmssff_adj;
    case time_format::clock:
        return &time_adjustments::clock_adj;
    case time_format::frames:
        return &time_adjustments::frames_adj;
    case time_format::feet_and_frames:
        return &time_adjustments::feetframes_adj;
    case time_format::seconds:
        break;
    }
    return &time_adjustments::seconds_adj;
}

drop_frame_counting counting_of(figure_style figures)
{
    return figures == figure_style::exact ? drop_frame_counting::standard : drop_frame_counting::simplified;
}

} // namespace

std::vector<time_format> in_column_order(const std::vector<time_format>& chosen)
{
    std::vector<time_format> formats;
    for (const time_format_name& entry : time_formats) {
        if (std::find(chosen.begin(), chosen.end(), entry.format) != chosen.end())
            formats.push_back(entry.format);
    }
    return formats;
}

std::int64_t& adjustment_of(time_adjustments& adjustments, time_format format)
{
    return adjustments.*adjustment_member(format);
}

std::int64_t adjustment_of(const time_adjustments& adjustments, time_format format)
{
    return adjustments.*adjustment_member(format);
}

std::string adjusted_header(std::string_view header, std::int64_t adjustment)
{
    std::string text(header);
    if (adjustment != 0)
        text += (adjustment > 0 ? " +" : " ") + std::to_string(adjustment);
    return text;
}

cell_kind time_cell_kind(time_format format)
{
    switch (format) {
    case time_format::frames:
        return cell_kind::whole_number;
    case time_format::seconds:
        return cell_kind::decimal;
    default:
        return cell_kind::text;
    }
}

cell_value time_cell(time_format format, std::optional<double> frames, std::optional<double> rate,
                     display_format displayformat, figure_style figures)
{
    switch (format) {
    case time_format::timecode:
        return to_timecode(frames, rate, displayformat, counting_of(figures));
    case time_format::clock:
        return to_clock(to_seconds(frames, rate));
    case time_format::frames:
        return number_or_no_cell(frames);
    case time_format::feet_and_frames:
        return to_feet_and_frames(frames);
    case time_format::seconds:
        return number_or_no_cell(to_seconds(frames, rate));
    }
    return {};
}

sequence_clock clock_of(const analysis_result& analysis)
{
    sequence_clock clock{.seq_fcp_rate = std::nullopt,
                         .seq_displayformat = analysis.seq_displayformat,
                         .figures = analysis.figures};
    if (analysis.seq_fcp_rate)
        clock.seq_fcp_rate = analysis.seq_fcp_rate->frames_per_second;
    return clock;
}

double supplementary_duration(const track_position& place, figure_style figures)
{
    const double to_last_frame =
        static_cast<double>(place.seq_end_frame) - static_cast<double>(place.seq_start_frame);
    return figures == figure_style::exact ? to_last_frame + 1 : to_last_frame;
}

std::string sequence_timecode_text(std::optional<double> frames, const sequence_clock& clock)
{
    return to_timecode(frames, clock.seq_fcp_rate, clock.seq_displayformat, counting_of(clock.figures));
}

cell_value sequence_timecode(std::optional<double> frames, const sequence_clock& clock)
{
    return sequence_timecode_text(frames, clock);
}

cell_value sequence_timecode(std::int64_t frames, const sequence_clock& clock)
{
    return sequence_timecode(std::optional(static_cast<double>(frames)), clock);
}

} // namespace tallyframe
