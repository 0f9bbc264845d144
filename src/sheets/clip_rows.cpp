// SPDX-License-Identifier: MIT
#include "sheets/clip_rows.h"

#include "report/shared_rows.h"

#include <utility>

namespace tallyframe {

namespace {

cell_value number_or_no_cell(std::optional<double> number)
{
    return number ? cell_value(*number) : cell_value();
}

/// The tags of an audio row's file, in the order of their columns.
struct tag_cell {
    cell_kind kind;
    cell_value (*value)(const audio_tags&);
};

constexpr tag_cell tag_cells[] = {
    {cell_kind::text, [](const audio_tags& tags) -> cell_value { return std::string_view(tags.song_title); }},
    {cell_kind::text, [](const audio_tags& tags) -> cell_value { return std::string_view(tags.album); }},
    {cell_kind::plain_number, [](const audio_tags& tags) { return number_or_no_cell(tags.track_number); }},
    {cell_kind::plain_number, [](const audio_tags& tags) { return number_or_no_cell(tags.year); }},
    {cell_kind::text,
     [](const audio_tags& tags) -> cell_value { return std::string_view(tags.musical_genre); }},
    {cell_kind::text, [](const audio_tags& tags) -> cell_value { return std::string_view(tags.authors); }},
    {cell_kind::text, [](const audio_tags& tags) -> cell_value { return std::string_view(tags.composer); }},
    {cell_kind::text, [](const audio_tags& tags) -> cell_value { return std::string_view(tags.producer); }},
};

/// The tags follow the last cell of the clip itself.
void add_tag_columns(sheet_columns<clip_record>& columns, audio_tag_catalogue& tags)
{
    for (const tag_cell& cell : tag_cells) {
        columns.cells.push_back(
            {cell.kind, true, [&tags, value = cell.value](const clip_record& clip, const row_context&) {
                 const audio_tags* found = tags.tags_of(clip);
                 return found != nullptr ? value(*found) : cell_value();
             }});
    }
}

row_look look_of_clip(const clip_record& clip)
{
    const text_color color = is_audio(clip.place) ? text_color::audio : text_color::video;
    return {color, color};
}

} // namespace

sheet sheet_of_clips(const report_frame& frame, std::string name, const clip_sheet_columns& columns,
                     std::vector<const clip_record*> clips, std::optional<total_line> total)
{
    const sheet_columns<clip_record>& shown = columns;
    table_sheet<clip_record> table = {.name = std::move(name),
                                      .columns = shown,
                                      .records = std::move(clips),
                                      .looks = {},
                                      .total = std::move(total)};
    if (columns.has_audio_tags && frame.tags != nullptr)
        add_tag_columns(table.columns, *frame.tags);
    table.looks.reserve(table.records.size());
    for (const clip_record* clip : table.records)
        table.looks.push_back(look_of_clip(*clip));
    return sheet_of(std::move(table), frame.clock);
}

void add_clips_sheet(const report_frame& frame, growing_report& report)
{
    const clip_sheet_columns columns =
        expand_clip_columns(clip_sheet::all_reels, frame.options, frame.switches, frame.analysis.is_sequence,
                            frame.analysis.figures);
    std::vector<const clip_record*> clips = rows_of_clips_sheet(frame.rows.clip_data_array);
    sheet made = sheet_of_clips(frame, std::string(all_reels_name), columns, clips);
    made.progress_steps = frame.rows.clip_data_array.size();
    made.picture_column = columns.picture_column;
    if (frame.thumbnails != nullptr && columns.picture_column) {
        made.picture = [clips = std::move(clips), &run = *frame.thumbnails](std::size_t row) {
            return make_thumbnail(*clips[row - 1], row, run);
        };
    }
    report.add(std::move(made));
}

} // namespace tallyframe
