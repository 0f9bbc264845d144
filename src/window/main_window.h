// SPDX-License-Identifier: MIT
#pragma once

#include "window/choices.h"
#include "window/session_runner.h"

#include <QMainWindow>
#include <QTimer>

class QSettings;
class QStackedWidget;

namespace tallyframe::window {

class document_bar;
class main_menu;
class message_page;
class options_panel;
class preview_panel;
class progress_sheet;
class saved_banner;
class tracks_panel;

/// The one window: lays its parts out and connects them with the runs.
class main_window final : public QMainWindow {
    Q_OBJECT

public:
    /// `settings` keeps the choices from one start to the next and has to outlive the window.
    main_window(QSettings& settings, diagnostics& out, QWidget* parent = nullptr);

    void open_document(const QString& path);

    /// Writes the report without asking for a place.
    void save_report_as(const QString& path);

    const session_runner& runner() const { return runner_; }
    const choices& kept_choices() const { return choices_; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* make_middle();
    void lay_out();
    void connect_menu();
    void connect_panels();
    void connect_runner();

    void ask_for_document();
    void open_recent_document(const QString& path);
    void ask_where_to_save_report();
    void analyze();
    void analyze_if_new(int position);
    void choose_appearance(appearance look);

    void take_choices();
    void take_ticks();
    void show_run(const QString& title);
    void show_opened(const run_outcome& outcome);
    void show_analyzed(const run_outcome& outcome);
    void show_saved(const run_outcome& outcome);
    void show_analysis();
    void clear_analysis();
    void show_message();
    void update_preview();
    void update_enabled();
    bool is_analyzed() const;

    QSettings& settings_;
    choices choices_;
    session_runner runner_;
    QString document_;
    QString workbook_; ///< the one that is being saved, or was saved last
    QTimer preview_timer_;

    main_menu* menu_;
    document_bar* bar_;
    tracks_panel* video_tracks_;
    tracks_panel* audio_tracks_;
    options_panel* options_;
    preview_panel* preview_;
    message_page* message_;
    saved_banner* banner_;
    QStackedWidget* pages_;
    progress_sheet* progress_;
};

} // namespace tallyframe::window
