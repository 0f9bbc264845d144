// SPDX-License-Identifier: MIT
#include "sheets/marker_sheets.h"

#include "report/time_cells.h"

namespace tallyframe {

namespace {

constexpr std::size_t comment_width = std::string_view("Comment ").size();

template <auto frame>
cell_value source_timecode_of(const clip_marker_record& marker, const row_context& row)
{
    if (!marker.source_clock)
        return sequence_timecode(marker.*frame, row.clock);
    return time_cell(time_format::timecode, marker.*frame, marker.source_clock->rate,
                     marker.source_clock->displayformat, row.clock.figures);
}

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
    {"Source In", timecode_width, false, source_timecode_of<&clip_marker::src_in_frame>},
    {"Source Out", timecode_width, false, source_timecode_of<&clip_marker::src_out_frame>},
};

constexpr row_look marker_look = {text_color::marker, text_color::marker};

template <class Marker>
sheet sheet_of_markers(const report_frame& frame, std::string_view name, sheet_columns<Marker> columns,
                       std::vector<const Marker*> markers)
{
    return sheet_of<Marker>({.name = std::string(name),
                             .columns = std::move(columns),
                             .records = std::move(markers),
                             .looks = {marker_look}},
                            frame.clock);
}

} // namespace

void add_sequence_markers_sheet(const report_frame& frame, growing_report& report)
{
    std::vector<const marker_record*> markers;
    for (const marker_record& marker : frame.analysis.seq_markers_data_array)
        markers.push_back(&marker);
    report.add(sheet_of_markers(frame, sequence_markers_name, columns_of(sequence_marker_columns),
                                std::move(markers)));
}

void add_clip_markers_sheet(const report_frame& frame, growing_report& report)
{
    report.add(
        sheet_of_markers(frame, clip_markers_name, columns_of(clip_marker_columns), frame.rows.clip_markers));
}

} // namespace tallyframe
