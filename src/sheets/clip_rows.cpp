// SPDX-License-Identifier: MIT
#include "sheets/clip_rows.h"

#include "report/shared_rows.h"
#include "report/sheet_set.h"
#include "sheets/table_sheet.h"

namespace tallyframe {

namespace {

/// The tags of an audio row's file, from that column on.
void write_tag_cells(xls::worksheet& sheet, std::size_t row, std::size_t column, const audio_tags& tags,
                     const row_format_set& formats, column_widths& widths)
{
    const auto write = [&](const cell_value& value, cell_kind kind) {
        write_cell(sheet, row, column++, value, kind, formats, true, widths);
    };
    const auto write_text = [&](std::string_view text) { write(text, cell_kind::text); };
    const auto write_number = [&](std::optional<double> number) {
        write(number ? cell_value(*number) : cell_value(), cell_kind::plain_number);
    };
    write_text(tags.song_title);
    write_text(tags.album);
    write_number(tags.track_number);
    write_number(tags.year);
    write_text(tags.musical_genre);
    write_text(tags.authors);
    write_text(tags.composer);
    write_text(tags.producer);
}

} // namespace

void write_clip_row(const report_frame& frame, xls::worksheet& sheet, const row_context& row,
                    const clip_sheet_columns& columns, const clip_record& clip, column_widths& widths)
{
    const row_format_set& formats = is_audio(clip) ? frame.formats.audio : frame.formats.video;
    write_row(sheet, row, columns.cells, clip, formats, widths);
    const bool wants_tags = columns.has_audio_tags && frame.tags != nullptr;
    if (const audio_tags* tags = wants_tags ? frame.tags->tags_of(clip) : nullptr)
        write_tag_cells(sheet, row.sheet_row, columns.cells.size(), *tags, formats, widths);
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
            if (frame.thumbnails != nullptr && columns.picture_column)
                add_thumbnail(*clip, row.sheet_row, *columns.picture_column, sheet, *frame.thumbnails);
            write_clip_row(frame, sheet, row, columns, *clip, widths);
            running.filepaths_summary.add(*clip);
        }
        previous = clip;
    }
    set_widths(sheet, widths);
}

} // namespace tallyframe
