// SPDX-License-Identifier: MIT
#include "window/main_window.h"

#include "window/desktop/badge.h"
#include "window/desktop/look.h"
#include "window/main_menu.h"
#include "window/main_window_analysis.h"
#include "window/main_window_page.h"
#include "window/models/qt_text.h"
#include "window/models/settings.h"
#include "window/panels/alert_sheet.h"
#include "window/panels/document_bar.h"
#include "window/panels/help_dialogs.h"
#include "window/panels/left_out_line.h"
#include "window/panels/message_page.h"
#include "window/panels/open_dialog.h"
#include "window/panels/options_panel.h"
#include "window/panels/progress_sheet.h"
#include "window/panels/save_dialog.h"
#include "window/panels/tracks_panel.h"
#include "window/runs/obstacles.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QSettings>
#include <QShortcut>
#include <utility>

namespace tallyframe::window {

main_window::main_window(QSettings& settings, diagnostics& out, QWidget* parent)
    : QMainWindow(parent), settings_(settings), choices_(load_choices(settings)), runner_(out),
      menu_(new main_menu), page_(new main_window_page), progress_(new progress_sheet(this)),
      cancel_shortcut_(new QShortcut(Qt::Key_Escape, this))
{
    setObjectName("mainWindow");
    setAcceptDrops(true);
    show_plain_messages_only(this);
    setMenuBar(menu_);
    setCentralWidget(page_);
    apply_appearance(choices_.look);
    page_->options->set_choices(choices_);
    menu_->set_recent_documents(choices_.recent_documents);
    menu_->set_appearance(choices_.look);
    clips_timer_.setSingleShot(true);
    connect(&clips_timer_, &QTimer::timeout, this, &main_window::update_clips);
    connect_menu();
    connect_panels();
    connect_runner();
    show_message();
    update_enabled();

    constexpr QSize first_size(1240, 660); // with its frame it fits a screen of 1280 × 720
    resize(first_size);
    restoreGeometry(settings_.value("geometry").toByteArray());
}

void main_window::dragEnterEvent(QDragEnterEvent* event)
{
    if (!runner_.is_running(run_kind::saving) && event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void main_window::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // The source of the drag waits for this to return.
    QTimer::singleShot(0, this, [this, urls = event->mimeData()->urls()] { open_dropped(urls); });
}

void main_window::closeEvent(QCloseEvent* event)
{
    cancel_run();
    progress_->finish(); // or the application would wait for it
    settings_.setValue("geometry", saveGeometry());
    settings_.sync();
    QMainWindow::closeEvent(event);
}

void main_window::connect_menu()
{
    connect(menu_, &main_menu::open_requested, this, &main_window::ask_for_document);
    connect(menu_, &main_menu::document_chosen, this, &main_window::open_recent_document);
    connect(menu_, &main_menu::save_requested, this, &main_window::ask_where_to_save_report);
    connect(menu_, &main_menu::analyze_requested, this, &main_window::analyze);
    connect(menu_, &main_menu::tick_all_requested, this, [this](bool ticked) {
        page_->video_tracks->model().tick_every_row(ticked);
        page_->audio_tracks->model().tick_every_row(ticked);
    });
    connect(menu_, &main_menu::layouts_requested, page_->options, &options_panel::edit_layouts);
    connect(menu_, &main_menu::appearance_chosen, this, &main_window::choose_appearance);
    connect(menu_, &main_menu::guide_requested, this, [this] { show_guide(this); });
    connect(menu_, &main_menu::about_requested, this, [this] { show_about(this); });
}

void main_window::connect_panels()
{
    connect(page_->bar, &document_bar::open_requested, this, &main_window::ask_for_document);
    connect(page_->message, &message_page::open_requested, this, &main_window::ask_for_document);
    connect(page_->bar, &document_bar::save_requested, this, &main_window::ask_where_to_save_report);
    connect(page_->bar, &document_bar::analyze_requested, this, &main_window::analyze);
    connect(page_->bar, &document_bar::entry_chosen, this, &main_window::analyze_if_new);
    connect(page_->left_out, &left_out_line::listing_requested, this, &main_window::list_unidentified);
    connect(page_->video_tracks, &tracks_panel::ticks_changed, this, &main_window::take_ticks);
    connect(page_->audio_tracks, &tracks_panel::ticks_changed, this, &main_window::take_ticks);
    connect(page_->options, &options_panel::changed, this, &main_window::take_choices);
    connect(page_->options, &options_panel::scope_changed, this, &main_window::choose_scope);
}

void main_window::connect_runner()
{
    connect(&runner_, &session_runner::started, this, &main_window::show_run);
    connect(&runner_, &session_runner::opened, this, &main_window::show_opened);
    connect(&runner_, &session_runner::analyzed, this, &main_window::show_analyzed);
    connect(&runner_, &session_runner::saved, this, &main_window::show_saved);
    connect(progress_, &progress_sheet::cancel_requested, this, &main_window::cancel_run);
    connect(cancel_shortcut_, &QShortcut::activated, progress_, &progress_sheet::reject);
    connect(progress_, &progress_sheet::badge_changed, this, [](const QString& text) { show_badge(text); });
}

void main_window::ask_for_document()
{
    ask_what_to_open(this, choices_.recent_documents.value(0, document_),
                     [this](const QString& path) { open_document(path); });
}

void main_window::open_dropped(const QList<QUrl>& urls)
{
    if (const auto obstacle = obstacle_to_dropping(urls))
        show_alert(this, *obstacle);
    else
        open_document(urls.constFirst().toLocalFile());
}

void main_window::open_recent_document(const QString& path)
{
    const auto obstacle = obstacle_to_reopening(path);
    if (!obstacle) {
        open_document(path);
        return;
    }
    choices changed = choices_;
    changed.recent_documents.removeAll(path);
    keep(std::move(changed));
    show_alert(this, *obstacle);
}

void main_window::ask_where_to_save_report()
{
    if (!is_analyzed())
        return;
    const QString title = runner_.session().menu.size() > 1 ? analyzed_title(runner_.session()) : QString();
    ask_where_to_save(this, suggested_workbook(document_, title, choices_.save_folder),
                      [this](const QString& path) { save_report_as(path); });
}

void main_window::choose_scope()
{
    const bool has_analysis = runner_.analyzed_subject().has_value();
    take_choices();
    if (runner_.is_running(run_kind::opening))
        start_opening(); // it may come to an analysis
    else if (runner_.is_running() || has_analysis)
        analyze();
}

void main_window::choose_appearance(appearance look)
{
    apply_appearance(look);
    choices changed = choices_;
    changed.look = look;
    keep(std::move(changed));
}

/// What another window has kept meanwhile is shown here too.
void main_window::keep(choices changed)
{
    const std::vector<column_layout> layouts = changed.options.layouts_array;
    save_choices(settings_, choices_, changed);
    if (changed.recent_documents != choices_.recent_documents)
        menu_->set_recent_documents(changed.recent_documents);
    choices_ = std::move(changed);
    if (choices_.options.layouts_array != layouts)
        page_->options->set_layouts(choices_.options);
}

void main_window::take_choices()
{
    choices changed = choices_;
    page_->options->apply_to(changed);
    keep(std::move(changed));
    if (is_analyzed())
        clips_timer_.start(); // several changes at once are shown once
}

void main_window::take_ticks()
{
    if (!is_analyzed())
        return;
    runner_.set_ticks(checkbox_states(page_->video_tracks->model().rows()),
                      checkbox_states(page_->audio_tracks->model().rows()));
    clips_timer_.start();
}

void main_window::update_clips()
{
    if (is_analyzed())
        show_clips(*page_, runner_.session(), choices_.options);
}

void main_window::update_enabled()
{
    const bool can_choose = !runner_.is_running(run_kind::saving);
    const bool can_analyze = can_choose && is_menu_useful_ && page_->bar->position() >= 0;
    page_->bar->set_open_enabled(can_choose);
    page_->bar->set_menu_enabled(can_analyze);
    page_->bar->set_save_enabled(is_analyzed());
    page_->options->set_scope_enabled(can_choose);
    menu_->set_enabled(
        {.open = can_choose, .analyze = can_analyze, .save = is_analyzed(), .tick = page_->shows_preview()});
    cancel_shortcut_->setEnabled(runner_.is_running());
    const bool is_open = !runner_.is_running() && runner_.session().document && unread_document_.isEmpty();
    setWindowTitle(is_open ? title_text(QFileInfo(document_).fileName()) : QString());
}

} // namespace tallyframe::window
