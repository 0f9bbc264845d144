// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/save_excel.h"

#include "platform/application.h"
#include "platform/log.h"
#include "report/column_switches.h"
#include "report/row_assembly.h"
#include "report/row_formats.h"
#include "report/sheet_set.h"
#include "report/time_cells.h"
#include "sheets/audio_tags.h"
#include "sheets/clip_rows.h"
#include "sheets/effect_sheets.h"
#include "sheets/generators_sheet.h"
#include "sheets/marker_sheets.h"
#include "sheets/reel_sheets.h"
#include "sheets/report_frame.h"
#include "sheets/summary_sheets.h"
#include "sheets/thumbnails.h"
#include "workbook/workbook.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
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

std::optional<audio_tag_catalogue> tags_from(const media_services* media)
{
    return media != nullptr ? std::optional<audio_tag_catalogue>(std::in_place, media->locator, media->tags)
                            : std::nullopt;
}

std::optional<thumbnail_run> thumbnails_from(const report_services& services, const report_options& options)
{
    const media_services* media = services.media;
    if (!options.inpoint_thumbnail_jpegs || media == nullptr || media->pictures == nullptr
        || media->folder == nullptr)
        return std::nullopt;
    return thumbnail_run{.pictures = *media->pictures,
                         .locator = media->locator,
                         .out = services.out,
                         .folder = media->folder->path(),
                         .thumbnail_width = options.thumbnail_width,
                         .thumbnail_height = std::nullopt,
                         .cleanup_jpegs = {},
                         .current_thumbnail_clip = std::nullopt};
}

void finish_thumbnails(const thumbnail_run& run, const report_options& options,
                       const report_services& services)
{
    if (!options.keep_thumbnails) {
        delete_thumbnails(run);
        return;
    }
    const std::filesystem::path folder = services.media->folder->keep();
    if (services.desktop != nullptr)
        services.desktop->open_folder(folder);
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

    std::optional<audio_tag_catalogue> tags = tags_from(services.media);
    std::optional<thumbnail_run> thumbnails = thumbnails_from(services, options);
    if (thumbnails)
        prepare_thumbnails(rows.clip_data_array, *thumbnails);
    const report_frame frame = {book,
                                analysis,
                                options,
                                rows,
                                switches,
                                formats,
                                services.display,
                                clock_of(analysis),
                                tags ? &*tags : nullptr,
                                thumbnails ? &*thumbnails : nullptr};
    running_report running;
    write_sheets(frame, running);

    services.display.spin("Saving spreadsheet...\n");
    book.close();
    if (thumbnails)
        finish_thumbnails(*thumbnails, options, services);
    services.display.end();
}

} // namespace tallyframe
