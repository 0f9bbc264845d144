// SPDX-License-Identifier: MIT
#include "sheets/report.h"

#include "report/column_switches.h"
#include "report/time_cells.h"
#include "sheets/sheet_kinds.h"

#include <numeric>
#include <utility>

namespace tallyframe {

report make_report(const analysis_result& analysis, const track_ticks& ticks, const report_options& options,
                   audio_tag_catalogue* tags, thumbnail_run* thumbnails, const media_inspection* inspection)
{
    auto rows = std::make_unique<const report_rows>(
        assemble_rows(analysis, ticks, options.report_enabled_only, options.skip_video_clip_audio));
    const report_frame frame = {
        analysis,           options, *rows,      chosen_columns(options, analysis.is_sequence),
        clock_of(analysis), tags,    thumbnails, inspection};
    growing_report growing;
    for (const sheet_kind& kind : sheet_kinds()) {
        if (is_wanted(kind, options, analysis.is_sequence))
            kind.add(frame, growing);
    }
    return {std::move(rows), std::move(growing.sheets)};
}

std::size_t progress_steps(const report& of)
{
    return std::accumulate(of.sheets.begin(), of.sheets.end(), std::size_t{0},
                           [](std::size_t sum, const sheet& next) { return sum + next.progress_steps; });
}

} // namespace tallyframe
