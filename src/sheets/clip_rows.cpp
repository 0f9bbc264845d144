// SPDX-License-Identifier: MIT
#include "sheets/clip_rows.h"

#include "report/shared_rows.h"
#include "report/sheet_set.h"
#include "sheets/table_sheet.h"

namespace tallyframe {

void write_clip_row(const report_frame& frame, xls::worksheet& sheet, const row_context& row,
                    const clip_sheet_columns& columns, const clip_record& clip, column_widths& widths)
{
    const row_format_set& formats = is_audio(clip) ? frame.formats.audio : frame.formats.video;
    write_row(sheet, row, columns.cells, clip, formats, widths);
}

void write_clips_sheet(const report_frame& frame, running_report& running)
{
    const clip_sheet_columns columns =
        expand_clip_columns(clip_sheet::all_reels, frame.options, frame.switches, frame.analysis.is_sequence);
    xls::worksheet& sheet = add_sheet(frame, running, sheet_name(report_sheet::all_reels));
    write_headers(sheet, 0, columns.headers, frame.formats.header_format);
    column_widths widths = columns.widths;
    add_one_to_each(widths);

    row_context row = {.sheet_row = 0, .clock = frame.clock};
    const clip_record* previous = nullptr;
    for (const clip_record* clip : frame.rows.clip_data_array) {
        frame.display.advance({});
        if (previous == nullptr || !shares_row_on_clips_sheet(*previous, *clip)) {
            ++row.sheet_row;
            write_clip_row(frame, sheet, row, columns, *clip, widths);
            running.filepaths_summary.add(*clip);
        }
        previous = clip;
    }
    set_widths(sheet, widths);
}

} // namespace tallyframe
