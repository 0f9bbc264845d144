// SPDX-License-Identifier: MIT
// What the window runs, and what it shows when a run is over.
#include "window/desktop/system_log.h"
#include "window/main_window.h"
#include "window/main_window_analysis.h"
#include "window/main_window_page.h"
#include "window/models/qt_text.h"
#include "window/panels/account_label.h"
#include "window/panels/alert_sheet.h"
#include "window/panels/document_bar.h"
#include "window/panels/left_out_line.h"
#include "window/panels/options_panel.h"
#include "window/panels/progress_sheet.h"
#include "window/panels/save_dialog.h"
#include "window/panels/saved_banner.h"
#include "window/runs/document_texts.h"
#include "window/runs/failure_texts.h"
#include "window/runs/obstacles.h"

#include <QFileDialog>
#include <QFileInfo>
#include <utility>

namespace tallyframe::window {

void main_window::open_document(const QString& path)
{
    if (runner_.is_running(run_kind::saving)) {
        show_alert(this, {tr("A report is being saved"), tr("Open the timeline when it is done.")});
        return;
    }
    if (const auto obstacle = obstacle_to_opening(path)) {
        show_alert(this, *obstacle);
        return;
    }
    document_ = path;
    without_uuid_ = unidentified_sequences::left_out;
    start_opening();
}

void main_window::start_opening()
{
    run_title_ = tr("Opening %1").arg(QFileInfo(document_).fileName());
    analyzing_.reset();
    unread_document_.clear();
    page_->document_losses->hide();
    page_->left_out->hide();
    page_->bar->set_entries({});
    leave_analysis();
    runner_.open(file_path(document_), page_->options->chosen_scope(), without_uuid_,
                 page_->options->chosen_figures());
    show_message();
    update_enabled();
}

void main_window::list_unidentified()
{
    if (runner_.is_running())
        return;
    without_uuid_ = unidentified_sequences::listed;
    start_opening();
}

void main_window::analyze()
{
    const std::optional<report_subject> wanted = wanted_subject();
    const bool is_on_its_way = runner_.is_running(run_kind::analysis) && analyzing_ == wanted;
    if (!wanted || is_on_its_way || runner_.is_running(run_kind::saving))
        return;
    run_title_ = tr("Analyzing %1").arg(page_->bar->title());
    analyzing_ = wanted;
    leave_analysis();
    runner_.analyze(*wanted);
    show_message();
    update_enabled();
}

void main_window::analyze_if_new()
{
    const bool is_shown = is_analyzed() && page_->shows_preview();
    if (!is_shown) // an analysis that came too late for a choice between is there and is not shown
        analyze();
}

void main_window::save_report_as(const QString& path)
{
    if (!is_analyzed())
        return;
    if (const auto obstacle = obstacle_to_saving(path, document_, choices_.options)) {
        show_alert(this, *obstacle);
        return;
    }
    workbook_ = path;
    run_title_ = tr("Saving %1").arg(QFileInfo(path).fileName());
    page_->banner->hide();
    take_ticks();
    focus_before_saving_ = focusWidget();
    runner_.save(file_path(path), choices_.options, media_choice_of(choices_.options, choices_.media_places));
    focus_while_saving_ = focusWidget();
}

void main_window::cancel_run()
{
    analyzing_.reset();
    runner_.cancel();
}

void main_window::show_run()
{
    progress_->follow(*runner_.display(), run_title_);
    update_enabled();
}

void main_window::show_opened(const run_outcome& outcome)
{
    progress_->finish();
    document_ = qt_path(runner_.document()); // that of a run before, when the latest was cancelled early
    page_->bar->set_entries(runner_.session().menu);
    if (!outcome.is_good() && !outcome.was_cancelled && runner_.session().menu.empty())
        unread_document_ = QFileInfo(document_).fileName();
    if (const auto& document = runner_.session().document)
        page_->document_losses->show_account(document->losses);
    page_->left_out->set_count(left_out_sequences(runner_.session()));
    if (outcome.enables_menu)
        is_menu_useful_ = *outcome.enables_menu;
    if (outcome.is_good() && !runner_.session().menu.empty()) {
        choices changed = choices_;
        remember_document(changed, QFileInfo(document_).absoluteFilePath());
        keep(std::move(changed));
    }
    show_analyzed(outcome);
}

void main_window::show_analyzed(const run_outcome& outcome)
{
    progress_->finish();
    if (outcome.alert) {
        if (!outcome.system_log_text.empty())
            write_system_log(outcome.system_log_text);
        show_alert(this, {qt_text(outcome.alert->message_text), qt_text(outcome.alert->informative_text)});
    } else if (outcome.failure) {
        show_alert(this, texts_for_analysis(outcome.failure));
    }
    if (is_analyzed())
        show_analysis(*page_, runner_.session(), choices_.options);
    else
        show_message();
    update_enabled();
}

void main_window::show_saved(const run_outcome& outcome)
{
    progress_->finish();
    update_enabled();
    if (focus_before_saving_ != nullptr && focusWidget() == focus_while_saving_)
        focus_before_saving_->setFocus();
    take_ticks(); // as they may have changed meanwhile
    if (outcome.failure) {
        show_alert(this, texts_for_saving(outcome.failure));
    } else if (!outcome.was_cancelled) {
        choices changed = choices_;
        changed.save_folder = QFileInfo(workbook_).absolutePath();
        keep(std::move(changed));
        page_->banner->show_saved(workbook_, outcome.losses);
    }
}

void main_window::leave_analysis()
{
    clips_timer_.stop();
    if (auto* dialog = findChild<QFileDialog*>(save_dialog_name))
        dialog->reject(); // it has asked about what is not there any more
    clear_analysis(*page_);
}

void main_window::show_message()
{
    page_->show_message(texts_of_message(runner_, unread_document_));
}

std::optional<report_subject> main_window::wanted_subject() const
{
    if (page_->bar->position() < 0)
        return std::nullopt;
    return report_subject{static_cast<std::size_t>(page_->bar->position()), page_->options->chosen_scope(),
                          page_->options->chosen_figures()};
}

bool main_window::is_analyzed() const
{
    const std::optional<report_subject> analyzed = runner_.analyzed_subject();
    return analyzed && analyzed == wanted_subject();
}

} // namespace tallyframe::window
