// SPDX-License-Identifier: MIT
#include "sheets/reel_sheets.h"

#include "report/clip_columns.h"
#include "report/shared_rows.h"
#include "report/time_cells.h"
#include "sheets/clip_rows.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace tallyframe {

namespace {

using clips_of_reel = std::vector<const clip_record*>;

std::unordered_map<std::string_view, clips_of_reel>
clips_by_reel(const std::vector<const clip_record*>& clips)
{
    std::unordered_map<std::string_view, clips_of_reel> by_reel;
    for (const clip_record* clip : clips) {
        if (clip->reel_name)
            by_reel[*clip->reel_name].push_back(clip);
    }
    return by_reel;
}

/// The clips that get a row of their own.
clips_of_reel rows_of(const clips_of_reel& clips)
{
    clips_of_reel rows;
    for (std::size_t i = 0; i < clips.size(); ++i) {
        if (i == 0 || !shares_row_on_reel_sheet(*clips[i - 1], *clips[i]))
            rows.push_back(clips[i]);
    }
    return rows;
}

/// Frames. Picture and sound of one use count once, whether or not the two share a row.
double estimated_total_of(const clips_of_reel& clips)
{
    double frames = 0;
    for (std::size_t i = 0; i < clips.size(); ++i) {
        if (i == 0 || !is_same_use_of_reel(*clips[i - 1], *clips[i]))
            frames += static_cast<double>(clips[i]->place.seq_length);
    }
    return frames;
}

std::optional<total_line> total_of(const report_frame& frame, const clip_sheet_columns& columns,
                                   const clips_of_reel& clips)
{
    if (!frame.analysis.is_sequence || !columns.first_source_duration)
        return std::nullopt;
    return total_line{.column = *columns.first_source_duration,
                      .sum = sequence_timecode_text(estimated_total_of(clips), frame.clock)};
}

} // namespace

std::vector<source_total> totals_of_reels(const report_frame& frame)
{
    const auto by_reel = clips_by_reel(frame.rows.clip_data_array);
    std::vector<source_total> totals;
    for (const std::string& reel : frame.analysis.reels_array) {
        const auto clips = by_reel.find(reel);
        if (clips != by_reel.end())
            totals.push_back(
                {.name = reel, .path = {}, .estimated_total = estimated_total_of(clips->second)});
    }
    return totals;
}

void add_reel_sheets(const report_frame& frame, growing_report& report)
{
    const clip_sheet_columns columns =
        expand_clip_columns(clip_sheet::one_reel, frame.options, frame.switches, frame.analysis.is_sequence,
                            frame.analysis.figures);
    const auto by_reel = clips_by_reel(frame.rows.clip_data_array);
    std::size_t number = 0;
    std::size_t steps = 0; // a reel is one step, with clips or without
    for (const std::string& reel : frame.analysis.reels_array) {
        ++number; // a reel without clips takes its number along
        ++steps;
        const auto clips = by_reel.find(reel);
        if (clips == by_reel.end())
            continue;
        sheet made = sheet_of_clips(frame, reel_sheet_name(number, reel, report.used_names), columns,
                                    rows_of(clips->second), total_of(frame, columns, clips->second));
        made.progress_steps = std::exchange(steps, 0);
        report.add(std::move(made));
    }
    if (!report.sheets.empty())
        report.sheets.back().progress_steps += steps;
}

} // namespace tallyframe
