// SPDX-License-Identifier: MIT
#include "window/panels/progress_sheet.h"

#include "run/badge_text.h"
#include "window/models/qt_text.h"
#include "window/panels/elided_label.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>

namespace tallyframe::window {

namespace {

using namespace std::chrono_literals;

constexpr auto redraw_interval = 40ms;
constexpr auto opening_delay = 250ms;
constexpr int bar_steps = 1000; // finer than a bar's pixels; the run's own count may exceed what it can hold

} // namespace

progress_sheet::progress_sheet(QWidget* parent)
    : QDialog(parent), bar_(new QProgressBar), title_(new elided_label), message_(new elided_label),
      cancel_button_(new QPushButton(tr("Cancel")))
{
    setObjectName("progressWindow");
    setAttribute(Qt::WA_ShowWithoutActivating);
    constexpr int width_in_characters = 60;
    setMinimumWidth(fontMetrics().averageCharWidth() * width_in_characters);

    QFont bold = font();
    bold.setBold(true);
    title_->setFont(bold);
    bar_->setObjectName("progressIndicator");
    bar_->setAccessibleName(tr("Progress"));
    bar_->setTextVisible(false);
    message_->setObjectName("progressMessage");
    cancel_button_->setObjectName("cancelButton");
    cancel_button_->setToolTip(tr("Stop. Nothing is written (Esc)"));
    connect(cancel_button_, &QPushButton::clicked, this, &progress_sheet::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel_button_);
    auto* column = new QVBoxLayout(this);
    column->addWidget(title_);
    column->addWidget(bar_);
    column->addWidget(message_);
    column->addLayout(buttons);

    open_timer_.setSingleShot(true);
    connect(&open_timer_, &QTimer::timeout, this, &QWidget::show);
    connect(&redraw_timer_, &QTimer::timeout, this, &progress_sheet::redraw);
}

void progress_sheet::follow(const run_progress& display, const QString& title)
{
    display_ = &display;
    setWindowTitle(title_text(title));
    title_->setText(title);
    message_->clear();
    cancel_button_->setEnabled(true);
    redraw();
    redraw_timer_.start(redraw_interval);
    open_timer_.start(opening_delay);
}

void progress_sheet::finish()
{
    display_ = nullptr;
    redraw_timer_.stop();
    open_timer_.stop();
    hide();
    badge_.clear();
    emit badge_changed({});
}

void progress_sheet::reject()
{
    if (display_ == nullptr || !cancel_button_->isEnabled())
        return;
    cancel_button_->setEnabled(false);
    message_->setText(tr("Stopping…"));
    emit cancel_requested();
}

void progress_sheet::closeEvent(QCloseEvent* event)
{
    reject();
    event->accept();
}

void progress_sheet::redraw()
{
    const progress_state state = display_->state();
    const bool is_determinate = state.is_determinate && state.progress_bar_length > 0;
    bar_->setRange(0, is_determinate ? bar_steps : 0);
    if (is_determinate) {
        const double share =
            static_cast<double>(state.value) / static_cast<double>(state.progress_bar_length);
        bar_->setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * bar_steps));
    }
    const bool is_reading = !is_determinate && state.message.empty();
    if (cancel_button_->isEnabled())
        message_->setText(is_reading ? tr("Reading…") : shown_text(state.message));
    const QString badge = state.progress_bar_length > 0
        ? qt_text(badge_text(state.value, state.progress_bar_length)) // stays while the bar spins
        : QString();
    if (badge != badge_) {
        badge_ = badge;
        emit badge_changed(badge);
    }
}

} // namespace tallyframe::window
