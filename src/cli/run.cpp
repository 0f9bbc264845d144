// SPDX-License-Identifier: MIT
#include "cli/run.h"

#include "cli/command_line_host.h"
#include "cli/menu_listing.h"
#include "cli/report_paths.h"
#include "cli/track_choice.h"
#include "platform/failures.h"
#include "platform/gui_mode.h"
#include "platform/media_tools/report_media.h"
#include "sequence_to_spreadsheet/failure_alert.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"
#include "workbook/workbook.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

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

int list_menu(const list_request& request, std::ostream& out, std::ostream& err)
{
    run_state state(out, err, true, false);
    get_sequences_names(state.session, request.document, state.services);
    const std::vector<catalogue_entry>& menu = state.session.menu;
    if (menu.empty())
        err << empty_menu_sentence(request.document.string());
    print(out, request.json ? menu_as_json(menu) : menu_as_table(menu));
    return done;
}

[[noreturn]] void refuse_item(const std::string& why, const std::vector<catalogue_entry>& menu)
{
    throw usage_error(
        fmt::format("{}\n{}Choose one with --item N, --sequence UUID or --bins, or write them all "
                    "with --all.",
                    why, menu_as_table(menu)));
}

std::vector<catalogue_entry> entries_where(const std::vector<catalogue_entry>& menu, auto&& wanted)
{
    std::vector<catalogue_entry> entries;
    std::copy_if(menu.begin(), menu.end(), std::back_inserter(entries),
                 [&](const catalogue_entry& entry) { return !entry.is_separator() && wanted(entry); });
    return entries;
}

/// The entries of the menu to report. Throws usage_error when the choice names none.
std::vector<catalogue_entry> chosen_entries(const item_choice& item, const std::vector<catalogue_entry>& menu)
{
    const auto everything = [](const catalogue_entry&) { return true; };
    std::vector<catalogue_entry> entries;
    switch (item.by) {
    case item_choice::kind::all:
        return entries_where(menu, everything);
    case item_choice::kind::only_one:
        entries = entries_where(menu, everything);
        if (entries.size() != 1)
            refuse_item("The document offers more than one thing to report:", menu);
        return entries;
    case item_choice::kind::position:
        if (item.position == 0 || item.position > menu.size() || menu[item.position - 1].is_separator())
            refuse_item(fmt::format("There is no entry at position {}. The document offers:", item.position),
                        menu);
        return {menu[item.position - 1]};
    case item_choice::kind::uuid:
        entries = entries_where(menu, [&](const catalogue_entry& entry) {
            return !entry.uuid.empty() && entry.uuid == item.uuid;
        });
        if (entries.empty())
            refuse_item(fmt::format("No sequence has the identifier \"{}\". The document offers:", item.uuid),
                        menu);
        entries.resize(1); // sequences with one identifier cannot be told apart: the first is found
        return entries;
    case item_choice::kind::bins:
        entries = entries_where(menu, [](const catalogue_entry& entry) { return entry.uuid.empty(); });
        if (entries.empty())
            refuse_item("The document has no clips in bins. It offers:", menu);
        return entries;
    }
    return entries;
}

void write_report(run_state& state, report_media& media, const report_request& request,
                  const catalogue_entry& entry, const std::filesystem::path& path, std::ostream& err)
{
    report_session& session = state.session;
    get_info_from_sequence_or_bins(session, entry.uuid, state.services);
    if (request.tracks)
        tick_only(*request.tracks, session);
    std::optional<thumbnail_folder> folder = media.folder_for(path);
    const media_services services = media.services(folder);
    printing_workspace desktop(err);
    save_excel(session.analysis, session.video_tracks_table_checkboxes, session.audio_tracks_table_checkboxes,
               request.options, path, {state.diagnostic_output, state.display, &desktop, &services});
    fmt::print(err, "Wrote {}\n", path.string());
}

int report(const report_request& request, std::ostream& out, std::ostream& err)
{
    run_state state(out, err, request.quiet, request.progress);
    state.diagnostic_output.write(xml_library_version() + "\n");
    state.session.import_video_audio_preference = request.scope;
    get_sequences_names(state.session, request.document, state.services);
    const std::vector<catalogue_entry>& menu = state.session.menu;
    if (menu.empty()) {
        err << empty_menu_sentence(request.document.string());
        return failed;
    }

    report_media media({request.options.inpoint_thumbnail_jpegs, request.options.keep_thumbnails,
                        request.media_map, request.media_search},
                       state.diagnostic_output, state.display);
    const std::vector<catalogue_entry> entries = chosen_entries(request.item, menu);
    if (request.item.by == item_choice::kind::all) {
        report_paths paths(request.document, request.output);
        for (const catalogue_entry& entry : entries)
            write_report(state, media, request, entry, paths.next(entry.title), err);
    } else {
        write_report(state, media, request, entries.front(), report_path(request.document, request.output),
                     err);
    }
    state.session.document->document.leave_to_process_end();
    return done;
}

void explain(const std::exception& error, std::ostream& err)
{
    fmt::print(err, "tallyframe: {}\n", error.what());
    const std::string_view message = error.what();
    if (message == fatal_error_message || message == not_xmeml_message) {
        const failure_alert texts = alert_for(error);
        fmt::print(err, "{}\n{}\n", texts.message_text, texts.informative_text);
    }
}

struct sheet_without {
    std::string_view sheet;
    std::string_view flag;
};

constexpr sheet_without flags_that_leave_out[] = {
    {"Sequence Markers", "--no-markers"},
    {"Clip Markers", "--no-markers"},
    {"Graphics & Titles", "--no-generators"},
    {"Transitions", "--no-transitions"},
    {"Filters", "--no-filters"},
    {"Motion Effects", "--no-motion"},
    {"Files Summary", "--no-files-summary"},
    {"Reels Summary", "--no-reels"},
};

/// What helps against a sheet that is too long.
std::string advice_for(const std::string& sheet)
{
    if (sheet == "All Reels")
        return "Report fewer tracks at a time with --tracks, or only what is enabled with --enabled-only.";
    std::string_view flag = "--no-reels";
    for (const sheet_without& entry : flags_that_leave_out) {
        if (entry.sheet == sheet)
            flag = entry.flag;
    }
    return fmt::format("Report fewer tracks at a time with --tracks, or leave the sheet out with {}.", flag);
}

int run_request(const request& request, std::ostream& out, std::ostream& err)
{
    if (request.list)
        return list_menu(*request.list, out, err);
    if (request.report)
        return report(*request.report, out, err);
    print(out, request.text);
    return done;
}

} // namespace

int run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err)
{
    gui_mode = false;
    try {
        return run_request(parse_arguments(arguments), out, err);
    } catch (const usage_error& error) {
        fmt::print(err, "tallyframe: {}\n", error.what());
        return wrong_usage;
    } catch (const run_cancelled&) {
        err << "tallyframe: stopped. The workbook was not written.\n";
        return stopped;
    } catch (const xls::too_many_rows& error) {
        fmt::print(err, "tallyframe: {}\n{}\n", error.what(), advice_for(error.sheet));
        return failed;
    } catch (const std::bad_alloc&) {
        err << "tallyframe: there is not enough memory for this document.\n";
        return failed;
    } catch (const std::exception& error) {
        explain(error, err);
        return failed;
    }
}

} // namespace tallyframe::cli
