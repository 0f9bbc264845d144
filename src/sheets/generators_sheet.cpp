// SPDX-License-Identifier: MIT
#include "sheets/generators_sheet.h"

#include "report/time_cells.h"

#include <algorithm>

namespace tallyframe {

namespace {

using generator_columns_list = sheet_columns<generator_record>;
using generator_cell = cell_value (*)(const generator_record&, const row_context&);

/// Frames that an in-point's cell adds. Comparable, timecode and frames stay where they are, and the clock
/// runs with the adjustment of the seconds, whatever the header says.
std::int64_t in_point_adjustment(const time_adjustments& adjustments, time_format format,
                                 figure_style figures)
{
    if (figures == figure_style::exact)
        return adjustment_of(adjustments, format);
    switch (format) {
    case time_format::timecode:
    case time_format::frames:
        return 0;
    case time_format::feet_and_frames:
        return adjustments.feetframes_adj;
    default:
        return adjustments.seconds_adj;
    }
}

/// Frames that an out-point's cell adds. Here too the clock runs with the adjustment of the seconds.
std::int64_t out_point_adjustment(const time_adjustments& adjustments, time_format format,
                                  figure_style figures)
{
    const bool is_as_headed = figures == figure_style::exact || format != time_format::clock;
    return is_as_headed ? adjustment_of(adjustments, format) : adjustments.seconds_adj;
}

double in_point(const generator_record& item, figure_style)
{
    return static_cast<double>(item.place.seq_start_frame);
}

double out_point(const generator_record& item, figure_style)
{
    return static_cast<double>(item.place.seq_end_frame);
}

double duration(const generator_record& item, figure_style figures)
{
    return supplementary_duration(item.place, figures);
}

void add_text(generator_columns_list& columns, std::string_view header, std::size_t width, bool widens,
              generator_cell value)
{
    columns.headers.emplace_back(header);
    columns.widths.push_back(width);
    columns.cells.push_back({cell_kind::text, widens, value});
}

void add_time_cells(generator_columns_list& columns, time_format format,
                    double (*frames)(const generator_record&, figure_style), std::int64_t adjustment)
{
    const auto moved = static_cast<double>(adjustment);
    columns.cells.push_back({time_cell_kind(format), false,
                             [format, frames, moved](const generator_record& item, const row_context& row) {
                                 return time_cell(format, frames(item, row.clock.figures) + moved,
                                                  row.clock.seq_fcp_rate, row.clock.seq_displayformat,
                                                  row.clock.figures);
                             }});
}

/// One width for each time column. The last one's text has a blank more than those before it.
void add_time_widths(generator_columns_list& columns, std::size_t count, std::string_view others,
                     std::string_view last)
{
    columns.widths.insert(columns.widths.end(), count > 1 ? count - 1 : 0, others.size());
    columns.widths.push_back(last.size());
}

} // namespace

sheet_columns<generator_record> generator_columns(const report_options& options,
                                                  const column_switches& switches, figure_style figures)
{
    const std::vector<time_format> formats = in_column_order(options.timeline_time_columns);
    const std::size_t chosen = options.timeline_time_columns.size();
    const time_adjustments& adjustments = options.adjustments;

    generator_columns_list columns;
    add_text(columns, "Track", 5, true, track_and_name);
    add_text(columns, "Clip Name", 9, true, field_text<&generator_record::name>);
    add_text(columns, "Generator", 9, true, field_text<&generator_record::type>);

    add_time_widths(columns, chosen, "Sequence In +1", "Sequence In + 1");
    for (const time_format format : formats) {
        columns.headers.push_back(adjusted_header("Sequence In", adjustment_of(adjustments, format)));
        add_time_cells(columns, format, in_point, in_point_adjustment(adjustments, format, figures));
    }
    add_time_widths(columns, chosen, "Sequence Out +1", "Sequence Out + 1");
    for (const time_format format : formats) {
        columns.headers.push_back(adjusted_header("Sequence Out", adjustment_of(adjustments, format)));
        add_time_cells(columns, format, out_point, out_point_adjustment(adjustments, format, figures));
    }
    add_time_widths(columns, chosen, "00:00:00:00", "00:00:00:00");
    if (switches.is_on(column_switch::clip_duration))
        columns.headers.insert(columns.headers.end(), chosen, "Duration");
    for (const time_format format : formats)
        add_time_cells(columns, format, duration, 0);

    add_text(columns, "Font", 4, true, field_text<&generator_record::font>);
    add_text(columns, "Text", 50, false, field_text<&generator_record::text>);
    return columns;
}

void add_generators_sheet(const report_frame& frame, growing_report& report)
{
    report.running_look = {text_color::video, text_color::video};
    report.add(sheet_of<generator_record>(
        {.name = std::string(graphics_and_titles_name),
         .columns = generator_columns(frame.options, frame.switches, frame.analysis.figures),
         .records = frame.rows.generators,
         .looks = {report.running_look},
         .margin = width_margin::after_rows},
        frame.clock));
}

} // namespace tallyframe
