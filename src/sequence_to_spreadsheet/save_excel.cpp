// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/save_excel.h"

#include "platform/application.h"
#include "platform/log.h"
#include "report/column_switches.h"
#include "report/row_assembly.h"
#include "report/row_formats.h"
#include "report/sheet_set.h"
#include "sheets/clip_rows.h"
#include "sheets/effect_sheets.h"
#include "sheets/generators_sheet.h"
#include "sheets/marker_sheets.h"
#include "sheets/reel_sheets.h"
#include "sheets/report_frame.h"
#include "sheets/summary_sheets.h"
#include "workbook/workbook.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tallyframe {

namespace {

struct sheet_writer {
    report_sheet sheet;
    void (*write)(const report_frame&, running_report&);
};

constexpr std::array<sheet_writer, 10> sheet_writers = {{
    {report_sheet::all_reels, write_clips_sheet},
    {report_sheet::sequence_markers, write_sequence_markers_sheet},
    {report_sheet::clip_markers, write_clip_markers_sheet},
    {report_sheet::graphics_and_titles, write_generators_sheet},
    {report_sheet::transitions, write_transitions_sheet},
    {report_sheet::filters, write_filters_sheet},
    {report_sheet::motion_effects, write_motion_sheet},
    {report_sheet::files_summary, write_files_summary},
    {report_sheet::reels_summary, add_reels_summary},
    {report_sheet::reel_sheets, write_reel_sheets},
}};

void write_sheets(const report_frame& frame, running_report& running)
{
    for (const report_sheet sheet : sheet_set(frame.options, frame.analysis.is_sequence)) {
        for (const sheet_writer& writer : sheet_writers) {
            if (writer.sheet == sheet)
                writer.write(frame, running);
        }
    }
    write_reels_summary_rows(frame, running);
}

/// Steps of the progress bar: one for each row and reel to come, and one for the saving.
std::int64_t progress_bar_length(const report_options& options, const analysis_result& analysis,
                                 const report_rows& rows)
{
    std::size_t steps = rows.clip_data_array.size() + 1;
    if (options.markers_sheets)
        steps += analysis.seq_markers_data_array.size() + rows.clip_markers.size();
    if (options.generators_sheet)
        steps += rows.generators.size();
    if (options.filters_sheet)
        steps += rows.filters.size();
    if (options.motion_sheet)
        steps += rows.motion.size();
    if (options.transitions_sheet)
        steps += rows.transitions.size();
    if (options.reel_sheets)
        steps += analysis.reels_array.size();
    return static_cast<std::int64_t>(steps);
}

sequence_clock clock_of(const analysis_result& analysis)
{
    sequence_clock clock{.seq_fcp_rate = std::nullopt, .seq_displayformat = analysis.seq_displayformat};
    if (analysis.seq_fcp_rate)
        clock.seq_fcp_rate = analysis.seq_fcp_rate->frames_per_second;
    return clock;
}

std::vector<int> ticks_of(const track_checkboxes& checkboxes)
{
    return checkboxes.current.value_or(std::vector<int>());
}

} // namespace

void save_excel(const analysis_result& analysis, const track_checkboxes& video_checkboxes,
                const track_checkboxes& audio_checkboxes, const report_options& options,
                const std::filesystem::path& path, const report_services& services)
{
    const report_rows rows = assemble_rows(analysis, {ticks_of(video_checkboxes), ticks_of(audio_checkboxes)},
                                           options.report_enabled_only, options.skip_video_clip_audio);
    const column_switches switches = chosen_columns(options, analysis.is_sequence);
    xls::workbook book(path);
    book.set_properties(
        {analysis.is_sequence ? analysis.sequence_name : "Bin Clips", std::string(application::name)});
    book.set_log([&](std::string_view sentence) { log(services.out, sentence); });
    const row_formats formats = add_row_formats(book, options);
    services.display.begin(progress_bar_length(options, analysis, rows));

    const report_frame frame = {book,     analysis, options,          rows,
                                switches, formats,  services.display, clock_of(analysis)};
    running_report running;
    write_sheets(frame, running);

    services.display.spin("Saving spreadsheet...\n");
    book.close();
    services.display.end();
}

} // namespace tallyframe
