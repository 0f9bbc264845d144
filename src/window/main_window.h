// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/choices.h"
#include "window/runs/session_runner.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <optional>

class QSettings;
class QShortcut;

namespace tallyframe::window {

class main_menu;
class main_window_page;
class progress_sheet;

/// The one window: connects its menu and its page with the runs.
///
/// The sequence menu and the scope buttons say what is wanted; what is shown, and named, is what was
/// analysed. Only where the two are the same can a report be saved. Both stay alive while something is read,
/// and another choice then ends that run for its own; while a report is written they rest.
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

private:
    void connect_menu();
    void connect_panels();
    void connect_runner();

    void ask_for_document();
    void open_dropped(const QList<QUrl>& urls);
    void open_recent_document(const QString& path);
    void ask_where_to_save_report();

    void choose_scope();
    void choose_appearance(appearance look);
    void keep(choices changed);
    void take_choices();
    void take_ticks();
    void update_clips();
    void update_enabled();

    void start_opening();
    void list_unidentified();
    void analyze();
    void analyze_if_new();
    void cancel_run();
    void show_run();
    void show_opened(const run_outcome& outcome);
    void show_analyzed(const run_outcome& outcome);
    void show_saved(const run_outcome& outcome);
    void leave_analysis();
    void show_message();
    std::optional<report_subject> wanted_subject() const;
    bool is_analyzed() const;

    QSettings& settings_;
    choices choices_;
    session_runner runner_;
    QString document_; ///< the one that is open, or is being opened
    unidentified_sequences without_uuid_ = unidentified_sequences::left_out; ///< of that document
    QString unread_document_; ///< the name of the last one, where it could not be read
    QString workbook_; ///< the one that is being saved, or was saved last
    QString run_title_; ///< of the run that was started last
    std::optional<report_subject> analyzing_; ///< what the latest run is to analyse, unless it opens or saves
    bool is_menu_useful_ = false; ///< what the catalogue said
    QPointer<QWidget> focus_before_saving_, focus_while_saving_;
    QTimer clips_timer_;

    main_menu* menu_;
    main_window_page* page_;
    progress_sheet* progress_;
    QShortcut* cancel_shortcut_;
};

} // namespace tallyframe::window
