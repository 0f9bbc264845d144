// SPDX-License-Identifier: MIT
#include "sheets/reel_sheets.h"

#include "report/clip_columns.h"
#include "report/shared_rows.h"
#include "sheets/clip_rows.h"
#include "sheets/table_sheet.h"
#include "timecode/to_timecode.h"

#include <unordered_map>

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

/// Writes the rows and gives the last one. One use of the reel by picture and sound counts once in
/// `estimated_total`, whether or not the two share a row.
std::size_t write_rows(const report_frame& frame, xls::worksheet& sheet, const clip_sheet_columns& columns,
                       const clips_of_reel& clips, double& estimated_total)
{
    column_widths widths = columns.widths;
    add_one_to_each(widths);
    row_context row = {.sheet_row = 0, .clock = frame.clock};
    const clip_record* previous = nullptr;
    for (const clip_record* clip : clips) {
        if (previous == nullptr || !shares_row_on_reel_sheet(*previous, *clip)) {
            ++row.sheet_row;
            write_clip_row(frame, sheet, row, columns, *clip, widths);
        }
        if (previous == nullptr || !is_same_use_of_reel(*previous, *clip))
            estimated_total += static_cast<double>(clip->seq_length);
        previous = clip;
    }
    set_widths(sheet, widths);
    return row.sheet_row;
}

void write_total(const report_frame& frame, xls::worksheet& sheet, std::size_t row, std::size_t column,
                 double estimated_total)
{
    sheet.write_string(row, column - 1, "Total:", frame.formats.header_format);
    sheet.write_string(row, column,
                       to_timecode(estimated_total, frame.clock.seq_fcp_rate, frame.clock.seq_displayformat),
                       frame.formats.black.text_format);
}

} // namespace

void write_reel_sheets(const report_frame& frame, running_report& running)
{
    const bool is_sequence = frame.analysis.is_sequence;
    const clip_sheet_columns columns =
        expand_clip_columns(clip_sheet::one_reel, frame.options, frame.switches, is_sequence);
    const auto by_reel = clips_by_reel(frame.rows.clip_data_array);
    std::size_t number = 0;
    for (const reel_record& reel : frame.analysis.reels_array) {
        frame.display.advance({});
        ++number; // a reel without clips takes its number along
        const auto clips = by_reel.find(reel.name);
        if (clips == by_reel.end())
            continue;
        xls::worksheet& sheet =
            add_sheet(frame, running, reel_sheet_name(number, reel.name, running.used_names));
        write_headers(sheet, 0, columns.headers, frame.formats.header_format);
        source_total total = {.name = reel.name, .path = {}, .estimated_total = 0};
        const std::size_t last_row = write_rows(frame, sheet, columns, clips->second, total.estimated_total);
        if (is_sequence && columns.first_source_duration)
            write_total(frame, sheet, last_row + 2, *columns.first_source_duration, total.estimated_total);
        running.reels_summary.push_back(total);
    }
}

} // namespace tallyframe
