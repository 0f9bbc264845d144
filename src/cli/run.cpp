// SPDX-License-Identifier: MIT
#include "cli/run.h"

#include "cli/chosen_entries.h"
#include "cli/command_line_host.h"
#include "cli/media_listing.h"
#include "cli/menu_listing.h"
#include "cli/messages.h"
#include "cli/report_paths.h"
#include "cli/track_choice.h"
#include "document/other_format.h"
#include "media_files/report_media.h"
#include "media_files/thumbnail_folder.h"
#include "report/media_use.h"
#include "report/row_assembly.h"
#include "run/failures.h"
#include "run/gui_mode.h"
#include "sequence_to_spreadsheet/output_place.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"
#include "sheets/media_check.h"
#include "text/visible_text.h"
#include "writers/xls_writer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <span>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace tallyframe::cli {

namespace {

/// All that one run of the command line holds.
struct run_state {
    run_state(std::ostream& out, std::ostream& err, bool quiet, bool show_progress)
        : diagnostic_output(out, quiet), display(err, show_progress)
    {
    }

    stream_diagnostics diagnostic_output;
    line_progress display;
    no_alerts alert;
    no_sequence_menu menu;
    session_services services = {diagnostic_output, display, alert, menu};
    report_session session;
    media_catalogues catalogues; ///< of the document, from one entry to the next
};

/// Throws failure when the text cannot be written. A reader that wants no more of it (`| head`) is content.
void print(std::ostream& out, std::string_view text)
{
    errno = 0;
    out << text << std::flush;
    if (!out && errno != EPIPE)
        throw failure(
            fmt::format("The output could not be written: {}", std::generic_category().message(errno)));
}

unidentified_sequences sequences_to_list(bool unidentified)
{
    return unidentified ? unidentified_sequences::listed : unidentified_sequences::left_out;
}

/// Says what the document offers nothing of, or not without being asked.
void tell_left_out(const report_session& session, const std::filesystem::path& document, std::ostream& err)
{
    const std::size_t left_out = left_out_sequences(session);
    if (!session.menu.empty())
        err << left_out_sentence(left_out);
    else if (const auto other = other_format_of(document))
        err << *other << '\n';
    else
        err << empty_menu_sentence(document.string(), left_out);
}

/// Opens the document. Before a failure that says little of a file of another kind, says what it is.
void open_document(run_state& state, const std::filesystem::path& document, std::ostream& err)
{
    try {
        get_sequences_names(state.session, document, state.services);
    } catch (const load_error& error) {
        const auto other = error.fault() == load_fault::unexpected ? std::nullopt : other_format_of(document);
        if (other)
            err << *other << '\n';
        throw;
    }
}

int list_menu(const list_request& request, std::ostream& out, std::ostream& err)
{
    run_state state(out, err, true, false);
    state.session.without_uuid = sequences_to_list(request.unidentified);
    open_document(state, request.document, err);
    const std::vector<catalogue_entry>& menu = state.session.menu;
    tell_left_out(state.session, request.document, err);
    tell_losses(state.session.document->losses, err);
    print(out, request.json ? menu_as_json(menu) : menu_as_table(menu));
    return done;
}

/// Throws usage_error when the report would replace the document that it is made of.
void spare_document(const report_request& request, const std::filesystem::path& path)
{
    if (replaces_document(path, request.document))
        throw usage_error(
            fmt::format("The workbook {} would replace the document itself. Choose another name with -o.",
                        visible_name(path.string())));
    if (request.options.keep_thumbnails && keeps_thumbnails_around_document(path, request.document))
        throw usage_error(
            fmt::format("The document lies in {}, where the thumbnails of this report are kept. "
                        "Choose another name for the workbook with -o.",
                        visible_name(place_of_thumbnails(path).string())));
}

/// Throws, before any work, what would come of writing there after it.
void check_places(const report_request& request)
{
    if (request.item.by == item_choice::kind::all) {
        xls_workbooks.check_place(report_paths(request.document, request.output).next("…"));
        return;
    }
    const std::filesystem::path path = report_path(request.document, request.output);
    spare_document(request, path);
    xls_workbooks.check_place(path);
    if (request.options.keep_thumbnails)
        (void)thumbnail_folder::beside(path);
}

struct planned_report {
    std::size_t menu_position;
    std::filesystem::path path;
};

/// Which workbooks to write. Throws usage_error when the choice names no entry, and for spare_document's
/// reasons.
std::vector<planned_report> planned_reports(const report_request& request,
                                            const std::vector<catalogue_entry>& menu)
{
    const bool is_all = request.item.by == item_choice::kind::all;
    report_paths paths(request.document, request.output);
    std::vector<planned_report> reports;
    for (const std::size_t position : chosen_entries(request.item, menu)) {
        auto path = is_all ? paths.next(menu[position].title) : report_path(request.document, request.output);
        spare_document(request, path);
        reports.push_back({position, std::move(path)});
    }
    return reports;
}

/// Gives what the workbook lost.
account write_report(run_state& state, report_media& media, const report_request& request,
                     const planned_report& planned, std::ostream& err)
{
    const auto& [position, path] = planned;
    report_session& session = state.session;
    if (request.item.by == item_choice::kind::all || session.menu[position].unidentified)
        get_info_from_entry(session, position, state.catalogues, state.services);
    else
        get_info_from_sequence_or_bins(session, session.menu[position].uuid, state.services);
    if (request.tracks)
        tick_only(*request.tracks, session);
    std::optional<thumbnail_folder> folder = media.folder_for(path);
    const media_services services = media.services(folder);
    printing_workspace desktop(err);
    account lost = session.analysis.losses;
    lost += save_excel(session.analysis, session.video_tracks_table_checkboxes,
                       session.audio_tracks_table_checkboxes, request.options, path,
                       {state.diagnostic_output, state.display, &desktop, &services});
    err << fmt::format("Wrote {}\n", visible_text(path.string()));
    return lost;
}

/// Writes one workbook after the other: what one fails with is told, and the others are written all the same.
/// What was lost is told at the end, where no diagnostics push it away.
exit_code write_reports(run_state& state, const report_request& request,
                        const std::vector<planned_report>& reports, std::ostream& err)
{
    report_media media({request.options.inpoint_thumbnail_jpegs, request.options.keep_thumbnails,
                        request.media_map, request.media_search, request.options.media_sheet,
                        request.picture_store, request.media_memory},
                       state.diagnostic_output, state.display);
    const bool is_one = reports.size() == 1;
    exit_code code = done;
    std::size_t failures = 0;
    std::vector<std::pair<std::string, account>> losses;
    for (const planned_report& planned : reports) {
        try {
            losses.emplace_back(is_one ? "" : planned.path.filename().string(),
                                write_report(state, media, request, planned, err));
        } catch (const run_cancelled&) {
            throw;
        } catch (...) {
            state.display.end();
            code = tell_failure(err, is_one ? "" : state.session.menu[planned.menu_position].title);
            ++failures;
        }
    }
    tell_losses(state.session.document->losses, err);
    tell_losses(media.losses(), err);
    for (const auto& [workbook, lost] : losses)
        tell_losses(lost, err, workbook);
    if (is_one || failures == 0)
        return code;
    err << fmt::format("tallyframe: {} of {} workbooks {} not written.\n", failures, reports.size(),
                       failures == 1 ? "was" : "were");
    return failed;
}

int report(const report_request& request, std::ostream& out, std::ostream& err)
{
    check_places(request);
    run_state state(out, err, request.quiet, request.progress);
    state.diagnostic_output.write(xml_library_version() + "\n");
    state.session.import_video_audio_preference = request.scope;
    state.session.without_uuid = sequences_to_list(request.unidentified);
    state.session.figures = request.figures;
    open_document(state, request.document, err);
    const std::vector<catalogue_entry>& menu = state.session.menu;
    if (menu.empty()) {
        tell_left_out(state.session, request.document, err);
        tell_losses(state.session.document->losses, err);
        return failed;
    }
    const exit_code code = write_reports(state, request, planned_reports(request, menu), err);
    tell_left_out(state.session, request.document, err);
    return code;
}

/// What the chosen entries show of the document's media files.
std::vector<media_use> media_uses(run_state& state, const report_request& subject)
{
    report_session& session = state.session;
    media_use_list uses;
    for (const std::size_t position : chosen_entries(subject.item, session.menu)) {
        get_info_from_entry(session, position, state.catalogues, state.services);
        if (subject.tracks)
            tick_only(*subject.tracks, session);
        const report_rows rows =
            assemble_rows(session.analysis,
                          {session.video_tracks_table_checkboxes.current.value_or(std::vector<int>()),
                           session.audio_tracks_table_checkboxes.current.value_or(std::vector<int>())},
                          subject.options.report_enabled_only, false);
        uses.add(session.analysis, rows.clip_data_array);
    }
    return uses.finished();
}

std::string listing_of(std::span<const checked_media> files, media_request::format format)
{
    switch (format) {
    case media_request::format::json:
        return media_as_json(files);
    case media_request::format::csv:
        return media_as_csv(files);
    case media_request::format::text:
        break;
    }
    return media_as_text(files);
}

int list_media(const media_request& request, std::ostream& out, std::ostream& err)
{
    const report_request& subject = request.subject;
    run_state state(out, err, true, subject.progress);
    state.session.import_video_audio_preference = subject.scope;
    state.session.without_uuid = sequences_to_list(subject.unidentified);
    open_document(state, subject.document, err);
    tell_left_out(state.session, subject.document, err);
    const account& losses_of_document = state.session.document->losses;
    if (state.session.menu.empty()) {
        tell_losses(losses_of_document, err);
        return failed;
    }
    report_media media({.map = subject.media_map, .search = subject.media_search, .checks_files = true},
                       state.diagnostic_output, state.display);
    std::optional<thumbnail_folder> no_pictures;
    const media_services services = media.services(no_pictures);
    const media_inspection inspection{services.locator, *services.probe, state.display};
    const std::vector<checked_media> files =
        check_media(media_uses(state, subject), subject.options.media_handles, &inspection);
    state.display.end();
    print(out, listing_of(files, request.as));
    tell_losses(losses_of_document, err);
    tell_losses(media.losses(), err);
    return totals_of(files).is_complete() ? done : failed;
}

int run_request(const request& request, std::ostream& out, std::ostream& err)
{
    if (request.list)
        return list_menu(*request.list, out, err);
    if (request.report)
        return report(*request.report, out, err);
    if (request.media)
        return list_media(*request.media, out, err);
    print(out, request.text);
    return done;
}

} // namespace

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
    gui_mode = false;
    try {
        return run_request(parse_arguments(arguments), out, err);
    } catch (...) {
        return tell_failure(err);
    }
}

} // namespace tallyframe::cli
