// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include "analysis/analyze.h"
#include "run/failures.h"
#include "run/gui_mode.h"
#include "sequence_to_spreadsheet/failure_alert.h"

#include <new>
#include <utility>

namespace tallyframe {

namespace {

void load(report_session& session, const xml_input& input, const session_services& services)
{
    session.document.reset(); // two large documents need not fit into memory at once
    session.additions = {};
    session.document = parse_xml(input, services.out, services.display);
    session.menu = sequence_catalogue(session.document->index, session.without_uuid);
    services.menu.set_enabled(!session.menu.empty());
    if (session.menu.size() == 1)
        services.menu.analyze_sequence();
}

/// `name`: what the sequence is called where it has no name.
void analyze_into(report_session& session, xml_node sequence, const std::string& name,
                  document_additions& additions, media_catalogues& catalogues,
                  const session_services& services)
{
    analysis_subject subject{
        .sequence = sequence, .scope = session.import_video_audio_preference, .figures = session.figures};
    if (session.without_uuid == unidentified_sequences::listed)
        subject.missing = stand_ins{name};
    session.analysis = analyze(session.document.value().index, subject, additions, catalogues,
                               session.video_tracks_table_checkboxes, session.audio_tracks_table_checkboxes,
                               services.out, services.display);
    services.display.end();
}

/// The sequences with a uuid stand in the menu in the order of their identifiers in the document, behind the
/// bins' entry. None: that entry.
xml_node sequence_of_entry(const report_session& session, std::size_t menu_position)
{
    const document_index& index = session.document.value().index;
    const catalogue_entry& entry = session.menu.at(menu_position);
    if (entry.unidentified)
        return index.unidentified_sequences.at(*entry.unidentified);
    const std::size_t before = index.has_bin_clips ? 2 : 0; // the entry and the separator
    return menu_position < before ? xml_node() : index.sequence_uuids.at(menu_position - before).parent();
}

void show_failure(const std::exception& error, const session_services& services)
{
    const failure_alert texts = alert_for(error);
    services.display.end();
    if (!texts.system_log_text.empty())
        services.alert.write_system_log(texts.system_log_text);
    services.alert.show(texts.message_text, texts.informative_text);
}

} // namespace

void get_sequences_names(report_session& session, const xml_input& input, const session_services& services)
{
    session.menu.clear();
    clone_and_clear_tableview_checkboxes(session);
    session.analyzed_sequence_index.reset();
    try {
        load(session, input, services);
    } catch (const run_cancelled&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        if (gui_mode == false)
            throw;
        show_failure(error, services);
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
    media_catalogues catalogues;
    analyze_into(session, session.document.value().index.sequence_with_uuid(uuid), {}, session.additions,
                 catalogues, services);
}

void get_info_from_entry(report_session& session, std::size_t menu_position, media_catalogues& catalogues,
                         const session_services& services)
{
    document_additions additions;
    analyze_into(session, sequence_of_entry(session, menu_position), session.menu.at(menu_position).title,
                 additions, catalogues, services);
}

std::size_t left_out_sequences(const report_session& session)
{
    const bool are_listed = session.without_uuid == unidentified_sequences::listed;
    return !session.document || are_listed ? 0 : session.document->index.unidentified_sequences.size();
}

std::string get_project_name()
{
    return "Final Cut Pro is not installed";
}

} // namespace tallyframe
