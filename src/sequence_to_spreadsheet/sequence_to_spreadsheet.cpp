// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include "analysis/analyze.h"
#include "platform/failures.h"
#include "platform/gui_mode.h"
#include "sequence_to_spreadsheet/failure_alert.h"

namespace tallyframe {

namespace {

void fill_menu(const std::vector<catalogue_entry>& entries, sequence_menu& menu)
{
    for (const catalogue_entry& entry : entries) {
        if (entry.is_separator())
            menu.add_separator();
        else
            menu.add_item(entry.title);
    }
    menu.set_enabled(!entries.empty());
}

void load(report_session& session, const xml_input& input, const session_services& services)
{
    session.document.reset(); // two large documents need not fit into memory at once
    session.document = parse_xml(input, services.out, services.display);
    session.menu = sequence_catalogue(session.document->index);
    fill_menu(session.menu, services.menu);
    if (session.menu.size() == 1)
        services.menu.analyze_sequence();
}

void show_failure(const std::exception& error, std::string_view error_tracker,
                  const session_services& services)
{
    const failure_alert texts = alert_for(error, error_tracker);
    services.display.end();
    if (!texts.system_log_text.empty())
        services.alert.write_system_log(texts.system_log_text);
    services.alert.show(texts.message_text, texts.informative_text);
}

} // namespace

void get_sequences_names(report_session& session, const xml_input& input, const session_services& services)
{
    services.menu.remove_all_items();
    session.menu.clear();
    clone_and_clear_tableview_checkboxes(session);
    services.menu.reload_track_tables();
    session.analyzed_sequence_index.reset();
    try {
        load(session, input, services);
    } catch (const run_cancelled&) {
        throw;
    } catch (const std::exception& error) {
        if (gui_mode == false)
            throw;
        show_failure(error, session.error_tracker, services);
    }
}

void clone_and_clear_tableview_checkboxes(report_session& session)
{
    session.video_tracks_table_checkboxes.clone_and_clear();
    session.audio_tracks_table_checkboxes.clone_and_clear();
}

void get_info_from_sequence_or_bins(report_session& session, std::string_view uuid,
                                    const session_services& services)
{
    session.analysis = analyze(session.document.value().index, uuid, session.import_video_audio_preference,
                               session.video_tracks_table_checkboxes, session.audio_tracks_table_checkboxes,
                               services.out, services.display);
    services.display.end();
}

std::string get_project_name()
{
    return "Final Cut Pro is not installed";
}

} // namespace tallyframe
