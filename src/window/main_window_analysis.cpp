// SPDX-License-Identifier: MIT
#include "window/main_window_analysis.h"

#include "window/main_window_page.h"
#include "window/models/qt_text.h"
#include "window/panels/preview_panel.h"
#include "window/panels/saved_banner.h"
#include "window/panels/tracks_panel.h"
#include "window/runs/document_texts.h"

namespace tallyframe::window {

namespace {

/// Rows of the tracks' table; none for tracks that the analysis has not read, whose ticks so stay what they
/// were.
std::vector<track_row> rows_of(const std::vector<track_description>& tracks, const track_checkboxes& ticks,
                               bool are_read)
{
    return are_read ? track_rows(tracks, ticks) : std::vector<track_row>();
}

track_counts counts_of(const main_window_page& page)
{
    track_counts counts;
    for (const tracks_panel* panel : {page.video_tracks, page.audio_tracks}) {
        for (const track_row& row : panel->model().rows()) {
            ++counts.all;
            counts.left_out += row.is_ticked ? 0 : 1;
        }
    }
    return counts;
}

} // namespace

QString analyzed_title(const report_session& session)
{
    return shown_text(session.menu.at(session.analyzed_sequence_index.value()).title);
}

void show_analysis(main_window_page& page, const report_session& session, const report_options& options)
{
    const report_scope scope = session.import_video_audio_preference;
    page.video_tracks->set_rows(
        rows_of(session.analysis.video_tracks, session.video_tracks_table_checkboxes, includes_video(scope)));
    page.audio_tracks->set_rows(
        rows_of(session.analysis.audio_tracks, session.audio_tracks_table_checkboxes, includes_audio(scope)));
    page.preview->set_summary(summary_of(session.analysis, analyzed_title(session)));
    show_clips(page, session, options);
    page.bring_preview_to_front();
}

void show_clips(main_window_page& page, const report_session& session, const report_options& options)
{
    const track_ticks ticks{session.video_tracks_table_checkboxes.current.value_or(std::vector<int>()),
                            session.audio_tracks_table_checkboxes.current.value_or(std::vector<int>())};
    page.preview->show_report(make_report(session.analysis, ticks, options), options, counts_of(page));
}

void clear_analysis(main_window_page& page)
{
    page.preview->clear();
    page.video_tracks->set_rows({});
    page.audio_tracks->set_rows({});
    page.banner->hide();
}

} // namespace tallyframe::window
