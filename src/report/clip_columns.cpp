// SPDX-License-Identifier: MIT
#include "report/clip_columns.h"

#include "media/file_urls.h"
#include "report/shared_rows.h"
#include "report/time_cells.h"
#include "text/leading_numbers.h"
#include "text/utf8.h"

#include <fmt/format.h>

#include <algorithm>

namespace tallyframe {

namespace {

using cell_function = cell_value (*)(const clip_record&, const row_context&);
using frames_function = std::optional<double> (*)(const clip_record&);

enum class time_clock { none, timeline, source };
enum class shown_for { everything, sequences, bins };

/// One column as it is described. A column of times becomes one column for each chosen time format.
struct clip_column {
    std::string_view header;
    std::optional<column_switch> shown_by; ///< nothing: always
    std::string_view width_text; ///< its length is the first width
    cell_function value = nullptr; ///< none for times, and for tags, which come from the media file
    cell_kind kind = cell_kind::text;
    bool widens = false;
    shown_for items = shown_for::everything;
    time_clock clock = time_clock::none;
    frames_function frames = nullptr;
    bool is_adjusted = false; ///< a position, which the user's adjustments move and whose header shows them
};

constexpr clip_column text_column(std::string_view header, std::optional<column_switch> shown_by,
                                  cell_function value)
{
    return {.header = header, .shown_by = shown_by, .width_text = header, .value = value, .widens = true};
}

constexpr clip_column timeline_position(std::string_view header, column_switch shown_by,
                                        std::string_view width_text, frames_function frames)
{
    return {.header = header,
            .shown_by = shown_by,
            .width_text = width_text,
            .clock = time_clock::timeline,
            .frames = frames,
            .is_adjusted = true};
}

constexpr clip_column times(std::string_view header, column_switch shown_by, time_clock clock,
                            frames_function frames)
{
    return {.header = header, .shown_by = shown_by, .width_text = header, .clock = clock, .frames = frames};
}

constexpr clip_column audio_tag(std::string_view header)
{
    return {.header = header, .shown_by = column_switch::id3_metadata, .width_text = header};
}

template <std::optional<std::string> clip_notes::*field>
cell_value note_text(const clip_record& clip, const row_context&)
{
    return text_of(clip.notes.*field);
}

cell_value check_mark(const clip_record& clip, const row_context&)
{
    return std::string_view(clip.enabled == "TRUE" ? "✓" : "");
}

/// "48 kHz" for 48000 samples a second, "44.1 kHz" for 44100.
std::string sample_rate_text(std::string_view samplerate)
{
    return fmt::format("{} kHz", leading_number(samplerate) / 1000.0);
}

cell_value rate_text(const clip_record& clip, const row_context&)
{
    if (is_audio(clip.place))
        return sample_rate_text(text_of(clip.samplerate));
    return text_of(clip.type);
}

cell_value file_name(const clip_record& clip, const row_context&)
{
    return last_path_component(text_of(clip.path));
}

std::optional<double> seq_start(const clip_record& clip)
{
    return static_cast<double>(clip.place.seq_start_frame);
}
std::optional<double> seq_end(const clip_record& clip)
{
    return static_cast<double>(clip.place.seq_end_frame);
}
std::optional<double> seq_length(const clip_record& clip)
{
    return static_cast<double>(clip.place.seq_length);
}
std::optional<double> src_start(const clip_record& clip)
{
    return clip.src_start_frame;
}
std::optional<double> src_end(const clip_record& clip)
{
    return clip.src_end_frame;
}
std::optional<double> src_length(const clip_record& clip)
{
    return clip.src_length;
}

using sw = column_switch;

constexpr clip_column clip_columns[] = {
    {.header = "Track",
     .shown_by = sw::track,
     .width_text = "Track",
     .value = track_and_name,
     .widens = true,
     .items = shown_for::sequences},
    {.header = "Bin",
     .shown_by = sw::track,
     .width_text = "Track",
     .value = field_text<&clip_record::bin>,
     .widens = true,
     .items = shown_for::bins},
    text_column("Clip Name", std::nullopt, field_text<&clip_record::name>),
    {.header = "Enabled",
     .shown_by = sw::enabled,
     .width_text = "Enabled",
     .value = check_mark,
     .kind = cell_kind::centered},
    timeline_position("Sequence In", sw::sequence_in, "Sequence In +1", seq_start),
    timeline_position("Sequence Out", sw::sequence_out, "Sequence Out +1", seq_end),
    times("Clip Duration", sw::clip_duration, time_clock::timeline, seq_length),
    text_column("Source Reel Name", sw::source_reel_name, field_text<&clip_record::reel_name>),
    times("Source In", sw::source_in, time_clock::source, src_start),
    times("Source Out", sw::source_out, time_clock::source, src_end),
    times("Source Duration", sw::source_duration, time_clock::source, src_length),
    text_column("Sound Roll Name", sw::sound_roll_name, field_text<&clip_record::roll_name>),
    text_column("Description", sw::description, note_text<&clip_notes::description>),
    text_column("Scene", sw::scene, note_text<&clip_notes::scene>),
    text_column("Shot/Take", sw::shot_take, note_text<&clip_notes::shottake>),
    text_column("Log Note", sw::log_note, note_text<&clip_notes::lognote>),
    text_column("Scene Note", sw::scene, note_text<&clip_notes::scenenote>),
    text_column("Shot Note", sw::shot_take, note_text<&clip_notes::shotnote>),
    text_column("Take Note", sw::shot_take, note_text<&clip_notes::takenote>),
    text_column("Camera Roll", sw::camera_roll, note_text<&clip_notes::cameraroll>),
    text_column("Daily Roll", sw::daily_roll, note_text<&clip_notes::dailyroll>),
    text_column("Lab Roll", sw::lab_roll, note_text<&clip_notes::labroll>),
    text_column("Label", sw::labels, note_text<&clip_notes::label>),
    text_column("Master Comment 1", sw::comments, note_text<&clip_notes::mastercomment1>),
    text_column("Master Comment 2", sw::comments, note_text<&clip_notes::mastercomment2>),
    text_column("Master Comment 3", sw::comments, note_text<&clip_notes::mastercomment3>),
    text_column("Master Comment 4", sw::comments, note_text<&clip_notes::mastercomment4>),
    text_column("Comment A", sw::comments, note_text<&clip_notes::clipcommenta>),
    text_column("Comment B", sw::comments, note_text<&clip_notes::clipcommentb>),
    text_column("Frame Rate/Sample Rate", sw::frame_rate_sample_rate, rate_text),
    text_column("Frame Size", sw::frame_size, field_text<&clip_record::frame_size>),
    text_column("Source File Name", sw::source_file_name, file_name),
    text_column("Source File Path", sw::source_file_path, field_text<&clip_record::path>),
    audio_tag("Song Title"),
    audio_tag("Album"),
    audio_tag("Track #"),
    audio_tag("Year"),
    audio_tag("Musical Genre"),
    audio_tag("Authors"),
    audio_tag("Composer"),
    audio_tag("Producer"),
};

cell_value row_number(const clip_record&, const row_context& row)
{
    return static_cast<double>(row.sheet_row);
}

cell_value no_cell(const clip_record&, const row_context&)
{
    return {};
}

std::size_t picture_width(std::int64_t thumbnail_width)
{
    if (thumbnail_width == 640)
        return 108;
    return static_cast<std::size_t>(std::max<std::int64_t>((thumbnail_width - 5) / 7, 0));
}

/// Where a column of times is made.
struct times_of_sheet {
    clip_sheet sheet;
    figure_style figures;
};

/// Frames that the cells of a position add. On a reel sheet of comparable figures the clock runs with the
/// adjustment of the seconds, although its header names its own.
std::int64_t cell_adjustment(const times_of_sheet& of, const time_adjustments& adjustments,
                             time_format format)
{
    if (of.figures == figure_style::comparable && of.sheet == clip_sheet::one_reel
        && format == time_format::clock)
        return adjustments.seconds_adj;
    return adjustment_of(adjustments, format);
}

/// Row numbers and pictures, which only the clips sheet has.
void add_leading_columns(clip_sheet_columns& columns, const report_options& options,
                         const column_switches& switches)
{
    const auto add = [&](std::size_t width, cell_kind kind, cell_function value) {
        columns.headers.emplace_back();
        columns.widths.push_back(width);
        columns.cells.push_back({kind, false, value});
    };
    if (switches.is_on(column_switch::row_numbers))
        add(std::string_view("0000").size(), cell_kind::plain_number, row_number);
    if (options.inpoint_thumbnail_jpegs) {
        columns.picture_column = columns.cells.size();
        add(picture_width(options.thumbnail_width), cell_kind::text, no_cell);
    }
}

table_column<clip_record> timeline_cells(time_format format, frames_function frames, std::int64_t adjustment)
{
    const auto moved = static_cast<double>(adjustment);
    return {time_cell_kind(format), false,
            [format, frames, moved](const clip_record& clip, const row_context& row) {
                return time_cell(format, *frames(clip) + moved, row.clock.seq_fcp_rate,
                                 row.clock.seq_displayformat, row.clock.figures);
            }};
}

table_column<clip_record> source_cells(time_format format, frames_function frames)
{
    return {time_cell_kind(format), false, [format, frames](const clip_record& clip, const row_context& row) {
                if (clip.isImage) // a still has no source time
                    return cell_value();
                const auto rate =
                    clip.fcp_rate ? std::optional(clip.fcp_rate->frames_per_second) : std::nullopt;
                return time_cell(format, frames(clip), rate, clip.displayformat, row.clock.figures);
            }};
}

void add_time_columns(clip_sheet_columns& columns, const clip_column& column, const times_of_sheet& of,
                      const report_options& options)
{
    const bool on_timeline = column.clock == time_clock::timeline;
    const std::vector<time_format>& chosen =
        on_timeline ? options.timeline_time_columns : options.source_time_columns;
    columns.widths.insert(columns.widths.end(), std::max<std::size_t>(chosen.size(), 1),
                          text_length(column.width_text));
    if (!column.is_adjusted)
        columns.headers.insert(columns.headers.end(), chosen.size(), std::string(column.header));

    for (const time_format format : in_column_order(chosen)) {
        if (column.is_adjusted)
            columns.headers.push_back(
                adjusted_header(column.header, adjustment_of(options.adjustments, format)));
        const std::int64_t moved = column.is_adjusted ? cell_adjustment(of, options.adjustments, format) : 0;
        columns.cells.push_back(on_timeline ? timeline_cells(format, column.frames, moved)
                                            : source_cells(format, column.frames));
    }
}

void add_plain_column(clip_sheet_columns& columns, const clip_column& column)
{
    columns.headers.emplace_back(column.header);
    columns.widths.push_back(text_length(column.width_text));
    if (column.value != nullptr)
        columns.cells.push_back({column.kind, column.widens, column.value});
}

bool is_shown(const clip_column& column, const column_switches& switches, bool is_sequence)
{
    if (column.items != shown_for::everything && (column.items == shown_for::sequences) != is_sequence)
        return false;
    return !column.shown_by || switches.is_on(*column.shown_by);
}

} // namespace

clip_sheet_columns expand_clip_columns(clip_sheet sheet, const report_options& options,
                                       const column_switches& switches, bool is_sequence,
                                       figure_style figures)
{
    clip_sheet_columns columns;
    columns.has_audio_tags = switches.is_on(column_switch::id3_metadata);
    if (sheet == clip_sheet::all_reels)
        add_leading_columns(columns, options, switches);
    for (const clip_column& column : clip_columns) {
        if (!is_shown(column, switches, is_sequence))
            continue;
        const std::size_t first_cell = columns.cells.size();
        if (column.clock == time_clock::none)
            add_plain_column(columns, column);
        else
            add_time_columns(columns, column, {sheet, figures}, options);
        if (column.shown_by == column_switch::source_duration && columns.cells.size() > first_cell)
            columns.first_source_duration = first_cell;
    }
    return columns;
}

} // namespace tallyframe
