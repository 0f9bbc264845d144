// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "analysis/document_additions.h"
#include "analysis/report_scope.h"
#include "document/document_index.h"
#include "document/parse_xml.h"
#include "document/sequence_catalogue.h"
#include "document/track_checkboxes.h"
#include "media/media_catalogues.h"
#include "platform/alerts.h"
#include "platform/sequence_menu.h"
#include "report/report_options.h"
#include "run/diagnostics.h"
#include "run/figure_style.h"
#include "run/progress.h"
#include "sequence_to_spreadsheet/save_excel.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// From an exported timeline to a workbook, in three operations that a host calls in this order:
//
//   get_sequences_names             a document's file -> the menu of what it offers to report
//   get_info_from_sequence_or_bins  an entry of the menu -> its analysis
//   save_excel                      the analysis and the options -> the workbook's file
//
// What each leaves for the next stands in report_session.

namespace tallyframe {

/// What the operations leave for one another and for the host: one for each window or command-line run.
struct report_session {
    std::optional<parsed_xml> document; ///< lives from one file's opening to the next
    document_additions additions; ///< what the analyses so far have added to it
    unidentified_sequences without_uuid = unidentified_sequences::left_out; ///< the host's choice
    std::vector<catalogue_entry> menu; ///< the menu's items; `uuid` of each tells what it is
    std::optional<std::size_t> analyzed_sequence_index; ///< which item `analysis` tells of; the host sets it
    track_checkboxes video_tracks_table_checkboxes;
    track_checkboxes audio_tracks_table_checkboxes;
    report_scope import_video_audio_preference = report_scope::video_audio;
    figure_style figures = figure_style::comparable; ///< of the next analysis; the host's choice
    analysis_result analysis;
};

/// The host's services that loading and analysing use.
struct session_services {
    diagnostics& out;
    progress& display;
    alerts& alert;
    sequence_menu& menu;
};

/// Loads a document and fills the menu: "Bin Clips" when it has loose clips, a separator, its sequences, as
/// session.without_uuid says. Where sequences without a uuid are listed, what any sequence lacks is supplied.
/// Starts the analysis through the menu when there is only one thing to report.
///
/// A failure empties the menu. It reaches the caller when gui_mode is false; otherwise it is shown as an
/// alert and counts as handled. A user's stop and a lack of memory reach the caller in any case.
void get_sequences_names(report_session& session, const xml_input& input, const session_services& services);

/// How many sequences of the loaded document are not in the menu, because they have no uuid; 0 where they
/// are.
std::size_t left_out_sequences(const report_session& session);

/// Saves and empties the check boxes of both track tables.
void clone_and_clear_tableview_checkboxes(report_session& session);

/// Analyses the sequence with that uuid, or the bins' clips when no sequence has it ("" is the bin clips'
/// entry), into session.analysis; both track tables' check boxes are filled again. Closes the progress
/// display at the end. Throws analysis_error; the session then keeps its earlier analysis.
///
/// What it adds to the document counts for the analyses after it, until another document is opened.
void get_info_from_sequence_or_bins(report_session& session, std::string_view uuid,
                                    const session_services& services);

/// The same for the entry at that position of the menu. Of several sequences with one uuid it is the entry's
/// own, where get_info_from_sequence_or_bins finds the first. The entry is analysed as if it came first: it
/// neither sees the additions of other analyses nor leaves any. So are sequences without a uuid, which no
/// other operation analyses. `catalogues` is the caller's, empty at first, and goes from one entry of the
/// document to the next: the media files are then read once for all.
void get_info_from_entry(report_session& session, std::size_t menu_position, media_catalogues& catalogues,
                         const session_services& services);

/// The name of the project that is open in the editing application, for a host that wants one.
std::string get_project_name();

} // namespace tallyframe
