// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include <QString>

namespace tallyframe::window {

class main_window_page;

/// The title of the entry that the session's analysis tells of.
QString analyzed_title(const report_session& session);

/// Shows the session's analysis: its tracks with their ticks, its line of facts, the sheet of its clips.
void show_analysis(main_window_page& page, const report_session& session, const report_options& options);

/// Shows the sheet of the clips anew, as ticks and options make it now.
void show_clips(main_window_page& page, const report_session& session, const report_options& options);

/// Takes all of that away, and what was said of a report that was saved.
void clear_analysis(main_window_page& page);

} // namespace tallyframe::window
