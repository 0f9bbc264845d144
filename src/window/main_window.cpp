// SPDX-License-Identifier: MIT
#include "window/main_window.h"

#include "window/alert_sheet.h"
#include "window/badge.h"
#include "window/document_bar.h"
#include "window/document_texts.h"
#include "window/failure_texts.h"
#include "window/help_dialogs.h"
#include "window/look.h"
#include "window/main_menu.h"
#include "window/message_page.h"
#include "window/options_panel.h"
#include "window/preview_panel.h"
#include "window/progress_sheet.h"
#include "window/qt_text.h"
#include "window/save_dialog.h"
#include "window/saved_banner.h"
#include "window/settings.h"
#include "window/system_log.h"
#include "window/tracks_panel.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tallyframe::window {

namespace {

/// The file that is dragged over the window; empty when what is dragged is none on this computer.
QString dragged_file(const QMimeData& data)
{
    const QString path = data.hasUrls() ? data.urls().constFirst().toLocalFile() : QString();
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

main_window::main_window(QSettings& settings, diagnostics& out, QWidget* parent)
    : QMainWindow(parent), settings_(settings), choices_(load_choices(settings)), runner_(out),
      menu_(new main_menu), bar_(new document_bar),
      video_tracks_(new tracks_panel(tr("Video tracks"), "videoTracksTableView")),
      audio_tracks_(new tracks_panel(tr("Audio tracks"), "audioTracksTableView")),
      options_(new options_panel), preview_(new preview_panel), message_(new message_page),
      banner_(new saved_banner), pages_(new QStackedWidget), progress_(new progress_sheet(this))
{
    setObjectName("mainWindow");
    setAcceptDrops(true);
    lay_out();
    apply_appearance(choices_.look);
    options_->set_choices(choices_);
    menu_->set_recent_documents(choices_.recent_documents);
    menu_->set_appearance(choices_.look);
    preview_timer_.setSingleShot(true);
    connect(&preview_timer_, &QTimer::timeout, this, &main_window::update_preview);
    connect_menu();
    connect_panels();
    connect_runner();
    show_message();
    update_enabled();

    constexpr QSize first_size(1240, 660); // with its frame it fits a screen of 1280 × 720
    resize(first_size);
    restoreGeometry(settings_.value("geometry").toByteArray());
}

void main_window::open_document(const QString& path)
{
    if (runner_.is_running())
        return;
    document_ = path;
    bar_->set_entries({});
    clear_analysis();
    runner_.open(file_path(path), options_->chosen_scope().import_video_audio_preference);
    show_run(tr("Opening %1").arg(QFileInfo(path).fileName()));
    show_message();
}

void main_window::save_report_as(const QString& path)
{
    if (!is_analyzed())
        return;
    if (QFileInfo(path) == QFileInfo(document_)) {
        show_alert(this, tr("The report could not be saved"),
                   tr("This is the timeline itself. Choose another name for the workbook."));
        return;
    }
    workbook_ = path;
    banner_->hide();
    take_ticks();
    runner_.save(file_path(path), choices_.options, media_choice_of(choices_.options, choices_.media_places));
    show_run(tr("Saving %1").arg(QFileInfo(path).fileName()));
}

void main_window::dragEnterEvent(QDragEnterEvent* event)
{
    if (!runner_.is_running() && !dragged_file(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void main_window::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    // The source of the drag waits for this to return.
    QTimer::singleShot(0, this, [this, path = dragged_file(*event->mimeData())] { open_document(path); });
}

void main_window::closeEvent(QCloseEvent* event)
{
    runner_.cancel();
    settings_.setValue("geometry", saveGeometry());
    settings_.sync();
    QMainWindow::closeEvent(event);
}

void main_window::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange && is_analyzed())
        preview_->show_colors(choices_.options);
    QMainWindow::changeEvent(event);
}

QWidget* main_window::make_middle()
{
    pages_->addWidget(message_);
    pages_->addWidget(preview_);
    auto* middle = new QWidget;
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->addWidget(banner_);
    column->addWidget(pages_, 1);
    return middle;
}

void main_window::lay_out()
{
    setMenuBar(menu_);
    auto* tracks = new QSplitter(Qt::Vertical);
    tracks->addWidget(video_tracks_);
    tracks->addWidget(audio_tracks_);
    tracks->setChildrenCollapsible(false);

    auto* sides = new QSplitter;
    sides->addWidget(tracks);
    sides->addWidget(make_middle());
    sides->addWidget(options_);
    sides->setChildrenCollapsible(false);
    constexpr int tracks_width = 230;
    constexpr int middle_width = 710;
    sides->setSizes({tracks_width, middle_width, options_->minimumSizeHint().width()});
    sides->setStretchFactor(0, 0);
    sides->setStretchFactor(1, 1);
    sides->setStretchFactor(2, 0);

    auto* whole = new QWidget;
    auto* column = new QVBoxLayout(whole);
    column->addWidget(bar_);
    column->addWidget(sides, 1);
    setCentralWidget(whole);
}

void main_window::connect_menu()
{
    connect(menu_, &main_menu::open_requested, this, &main_window::ask_for_document);
    connect(menu_, &main_menu::document_chosen, this, &main_window::open_recent_document);
    connect(menu_, &main_menu::save_requested, this, &main_window::ask_where_to_save_report);
    connect(menu_, &main_menu::analyze_requested, this, &main_window::analyze);
    connect(menu_, &main_menu::tick_all_requested, this, [this](bool ticked) {
        video_tracks_->model().tick_every_row(ticked);
        audio_tracks_->model().tick_every_row(ticked);
    });
    connect(menu_, &main_menu::layouts_requested, options_, &options_panel::edit_layouts);
    connect(menu_, &main_menu::appearance_chosen, this, &main_window::choose_appearance);
    connect(menu_, &main_menu::guide_requested, this, [this] { show_guide(this); });
    connect(menu_, &main_menu::about_requested, this, [this] { show_about(this); });
}

void main_window::connect_panels()
{
    connect(bar_, &document_bar::open_requested, this, &main_window::ask_for_document);
    connect(message_, &message_page::open_requested, this, &main_window::ask_for_document);
    connect(bar_, &document_bar::save_requested, this, &main_window::ask_where_to_save_report);
    connect(bar_, &document_bar::analyze_requested, this, &main_window::analyze);
    connect(bar_, &document_bar::entry_chosen, this, &main_window::analyze_if_new);
    connect(video_tracks_, &tracks_panel::ticks_changed, this, &main_window::take_ticks);
    connect(audio_tracks_, &tracks_panel::ticks_changed, this, &main_window::take_ticks);
    connect(options_, &options_panel::changed, this, &main_window::take_choices);
    connect(options_, &options_panel::scope_changed, this, [this] {
        take_choices();
        if (is_analyzed())
            analyze();
    });
}

void main_window::connect_runner()
{
    connect(&runner_, &session_runner::opened, this, &main_window::show_opened);
    connect(&runner_, &session_runner::analyzed, this, &main_window::show_analyzed);
    connect(&runner_, &session_runner::saved, this, &main_window::show_saved);
    connect(progress_, &progress_sheet::cancel_requested, &runner_, &session_runner::cancel);
    connect(progress_, &progress_sheet::badge_changed, this, [](const QString& text) { show_badge(text); });
}

void main_window::ask_for_document()
{
    auto* dialog = new QFileDialog(this, tr("Open Timeline"));
    dialog->setObjectName("openDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({tr("Exported timelines (*.xml)"), tr("All files (*)")});
    const QString latest = choices_.recent_documents.value(0, document_);
    if (!latest.isEmpty())
        dialog->setDirectory(QFileInfo(latest).absolutePath());
    connect(dialog, &QFileDialog::fileSelected, this, &main_window::open_document);
    dialog->open();
}

void main_window::open_recent_document(const QString& path)
{
    if (QFileInfo(path).isFile()) {
        open_document(path);
        return;
    }
    choices_.recent_documents.removeAll(path);
    menu_->set_recent_documents(choices_.recent_documents);
    save_choices(settings_, choices_);
    show_alert(this, tr("%1 is not there any more").arg(QFileInfo(path).fileName()),
               tr("It was here:\n%1\nIs its disk connected?").arg(QDir::toNativeSeparators(path)));
}

void main_window::ask_where_to_save_report()
{
    if (!is_analyzed())
        return;
    const QString title = runner_.session().menu.size() > 1 ? bar_->title() : QString();
    ask_where_to_save(this, suggested_workbook(document_, title, choices_.save_folder),
                      [this](const QString& path) { save_report_as(path); });
}

void main_window::analyze()
{
    if (runner_.is_running() || bar_->position() < 0)
        return;
    clear_analysis();
    runner_.analyze(static_cast<std::size_t>(bar_->position()),
                    options_->chosen_scope().import_video_audio_preference);
    show_run(tr("Analyzing %1").arg(bar_->title()));
    show_message();
}

void main_window::analyze_if_new(int position)
{
    const auto& analyzed = runner_.session().analyzed_sequence_index;
    if (!runner_.is_running() && analyzed != static_cast<std::size_t>(position))
        analyze();
}

void main_window::choose_appearance(appearance look)
{
    choices_.look = look;
    apply_appearance(look);
    save_choices(settings_, choices_);
}

void main_window::take_choices()
{
    options_->apply_to(choices_);
    save_choices(settings_, choices_);
    if (is_analyzed())
        preview_timer_.start(); // several changes at once are shown once
}

void main_window::take_ticks()
{
    if (!is_analyzed())
        return;
    runner_.set_ticks(checkbox_states(video_tracks_->model().rows()),
                      checkbox_states(audio_tracks_->model().rows()));
    preview_timer_.start();
}

void main_window::show_run(const QString& title)
{
    progress_->follow(*runner_.display(), title);
    update_enabled();
}

void main_window::show_opened(const run_outcome& outcome)
{
    progress_->finish();
    bar_->set_entries(runner_.session().menu);
    if (outcome.enables_menu)
        bar_->set_menu_enabled(*outcome.enables_menu);
    if (outcome.is_good() && !runner_.session().menu.empty()) {
        remember_document(choices_, QFileInfo(document_).absoluteFilePath());
        menu_->set_recent_documents(choices_.recent_documents);
        save_choices(settings_, choices_);
    }
    show_analyzed(outcome);
}

void main_window::show_analyzed(const run_outcome& outcome)
{
    progress_->finish();
    if (outcome.alert) {
        if (!outcome.system_log_text.empty())
            write_system_log(outcome.system_log_text);
        show_alert(this, qt_text(outcome.alert->message_text), qt_text(outcome.alert->informative_text));
    } else if (outcome.failure) {
        const alert_texts texts = texts_for_analysis(outcome.failure, runner_.session().error_tracker);
        show_alert(this, texts.message_text, texts.informative_text);
    }
    if (is_analyzed())
        show_analysis();
    else
        show_message();
    update_enabled();
}

void main_window::show_saved(const run_outcome& outcome)
{
    progress_->finish();
    update_enabled();
    take_ticks(); // as they may have changed before the sheet opened
    if (outcome.failure) {
        const alert_texts texts = texts_for_saving(outcome.failure);
        show_alert(this, texts.message_text, texts.informative_text);
    } else if (!outcome.was_cancelled) {
        choices_.save_folder = QFileInfo(workbook_).absolutePath();
        save_choices(settings_, choices_);
        banner_->show_saved(workbook_);
    }
}

void main_window::show_analysis()
{
    const report_session& session = runner_.session();
    video_tracks_->set_rows(track_rows(session.analysis.video_tracks, session.video_tracks_table_checkboxes));
    audio_tracks_->set_rows(track_rows(session.analysis.audio_tracks, session.audio_tracks_table_checkboxes));
    preview_->set_summary(summary_of(session.analysis, bar_->title()));
    update_preview();
    pages_->setCurrentWidget(preview_);
}

void main_window::clear_analysis()
{
    preview_timer_.stop();
    preview_->clear();
    video_tracks_->set_rows({});
    audio_tracks_->set_rows({});
    banner_->hide();
}

void main_window::show_message()
{
    const page_texts texts = texts_of_message(runner_);
    message_->set_texts(texts.headline, texts.text, texts.offers_open);
    pages_->setCurrentWidget(message_);
}

void main_window::update_preview()
{
    if (!is_analyzed())
        return;
    const report_session& session = runner_.session();
    const track_ticks ticks{session.video_tracks_table_checkboxes.current.value_or(std::vector<int>()),
                            session.audio_tracks_table_checkboxes.current.value_or(std::vector<int>())};
    preview_->show_table(preview_table(session.analysis, ticks, choices_.options), choices_.options);
}

void main_window::update_enabled()
{
    const bool is_free = !runner_.is_running();
    bar_->set_save_enabled(is_analyzed());
    menu_->set_enabled(is_free && bar_->is_menu_enabled() && bar_->position() >= 0, is_analyzed());
    setWindowTitle(is_free && runner_.session().document ? QFileInfo(document_).fileName() : QString());
}

bool main_window::is_analyzed() const
{
    return !runner_.is_running() && runner_.session().analyzed_sequence_index.has_value();
}

} // namespace tallyframe::window
