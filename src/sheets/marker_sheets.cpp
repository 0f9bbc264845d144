// SPDX-License-Identifier: MIT
#include "sheets/marker_sheets.h"

#include "report/sheet_set.h"
#include "report/time_cells.h"
#include "sheets/table_sheet.h"

namespace tallyframe {

namespace {

constexpr std::size_t comment_width = std::string_view("Comment ").size();

template <auto frame, class Marker>
cell_value timecode_of(const Marker& marker, const row_context& row)
{
    return sequence_timecode(marker.*frame, row.clock);
}

/// A marker on a single frame has no duration to show.
template <class Marker>
cell_value duration_of(const Marker& marker, const row_context& row)
{
    if (marker.duration == 0)
        return {};
    return sequence_timecode(marker.duration, row.clock);
}

constexpr fixed_column<marker_record> sequence_marker_columns[] = {
    {"Marker Name", 11, true, field_text<&marker_record::name>},
    {"Type", 4, true, field_text<&marker_record::type>},
    {"Comment", comment_width, true, field_text<&marker_record::comment>},
    {"Start", timecode_width, false, timecode_of<&marker_record::in_frame>},
    {"End", timecode_width, false, timecode_of<&marker_record::out_frame>},
    {"Duration", timecode_width, false, duration_of},
    {"Color", 5, true, field_text<&marker_record::color>},
};

using clip_marker = clip_marker_record;

constexpr fixed_column<clip_marker> clip_marker_columns[] = {
    {"Track", 5, true, track_and_name},
    {"Marker Name", 11, true, field_text<&marker_record::name>},
    {"Clip Name", 9, true, field_text<&clip_marker::clip_name>},
    {"Comment", comment_width, true, field_text<&marker_record::comment>},
    {"Color", 5, true, field_text<&marker_record::color>},
    {"Sequence In", 11, false, timecode_of<&marker_record::in_frame>},
    {"Sequence Out", 12, false, timecode_of<&marker_record::out_frame>},
    {"Duration", timecode_width, false, duration_of},
    {"Source In", timecode_width, false, timecode_of<&clip_marker::src_in_frame>},
    {"Source Out", timecode_width, false, timecode_of<&clip_marker::src_out_frame>},
};

template <class Marker>
void write_marker_sheet(const report_frame& frame, running_report& running, report_sheet sheet,
                        sheet_columns<Marker> columns, const std::vector<const Marker*>& markers)
{
    const auto marker_formats = [&](const Marker&) { return frame.formats.marker; };
    write_table_sheet<Marker>(frame, running,
                              {sheet_name(sheet), std::move(columns), markers, marker_formats});
}

} // namespace

void write_sequence_markers_sheet(const report_frame& frame, running_report& running)
{
    std::vector<const marker_record*> markers;
    for (const marker_record& marker : frame.analysis.seq_markers_data_array)
        markers.push_back(&marker);
    write_marker_sheet(frame, running, report_sheet::sequence_markers, columns_of(sequence_marker_columns),
                       markers);
}

void write_clip_markers_sheet(const report_frame& frame, running_report& running)
{
    write_marker_sheet(frame, running, report_sheet::clip_markers, columns_of(clip_marker_columns),
                       frame.rows.clip_markers);
}

} // namespace tallyframe
