// SPDX-License-Identifier: MIT
#include "sheets/made_report.h"

#include "report/shared_rows.h"
#include "report/time_cells.h"
#include "sheets/reel_sheets.h"

namespace tallyframe::testing_support {

shown_report made_report::make(std::initializer_list<sheet_maker> makers)
{
    const report_rows rows =
        assemble_rows(analysis, ticks, options.report_enabled_only, options.skip_video_clip_audio);
    growing_report growing;
    const report_frame frame = {
        analysis, options, rows, chosen_columns(options, analysis.is_sequence), clock_of(analysis), tags};
    for (const sheet_maker add_sheet : makers)
        add_sheet(frame, growing);
    running_look = growing.running_look;
    files_summary = totals_of_files(rows_of_clips_sheet(rows.clip_data_array));
    reels_summary = totals_of_reels(frame);
    steps = 0;
    for (const sheet& made : growing.sheets)
        steps += made.progress_steps;
    return shown_report(growing.sheets);
}

void made_report::show_only(const std::vector<std::string>& titles)
{
    options.layout = "Test";
    options.layouts_array = {{"Test", {}}};
    for (const std::string& title : titles)
        options.layouts_array.front().checkboxes.push_back({title, 1});
}

} // namespace tallyframe::testing_support
