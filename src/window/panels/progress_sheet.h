// SPDX-License-Identifier: MIT
#pragma once

#include "window/runs/run_progress.h"

#include <QDialog>
#include <QTimer>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tallyframe::window {

/// The sheet over the window while a run goes on: a bar, a message line and a button that ends the run. It
/// takes neither the keyboard nor the window: what the window allows during a run it allows all the time.
class progress_sheet final : public QDialog {
    Q_OBJECT

public:
    explicit progress_sheet(QWidget* parent = nullptr);

    /// Follows a run from now on. The sheet opens after a moment, so that a short run does not flash.
    void follow(const run_progress& display, const QString& title);

    /// The run is over.
    void finish();

signals:
    void cancel_requested();

    /// What the application's badge shows: a whole percentage, or nothing for a bar that only moves.
    void badge_changed(const QString& text);

public slots:
    /// Escape asks for the run's end too; the sheet closes when the run has ended.
    void reject() override;

protected:
    /// Who closes the sheet, or quits, wants the run's end and does not wait for it.
    void closeEvent(QCloseEvent* event) override;

private:
    void redraw();

    const run_progress* display_ = nullptr;
    QProgressBar* bar_;
    QLabel* title_;
    QLabel* message_;
    QPushButton* cancel_button_;
    QString badge_;
    QTimer redraw_timer_;
    QTimer open_timer_;
};

} // namespace tallyframe::window
