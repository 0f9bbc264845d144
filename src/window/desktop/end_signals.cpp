// SPDX-License-Identifier: MIT
#include "window/desktop/end_signals.h"

#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <csignal>

namespace tallyframe::window {

namespace {

int notes[2]; ///< a pipe: a handler may do little more than write a byte

void note_end(int signal_number)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = write(notes[1], &byte, 1);
    std::signal(signal_number, SIG_DFL);
}

} // namespace

void close_on_signals(QApplication& app)
{
    if (pipe(notes) != 0)
        return; // a signal then ends the process at once, as it always did
    auto* notifier = new QSocketNotifier(notes[0], QSocketNotifier::Read, &app);
    QObject::connect(notifier, &QSocketNotifier::activated, &app, [notifier] {
        notifier->setEnabled(false);
        QApplication::closeAllWindows();
        QApplication::exit(); // whatever refuses to be closed
    });
    for (const int signal_number : {SIGINT, SIGTERM, SIGHUP}) {
        if (std::signal(signal_number, note_end) == SIG_IGN)
            std::signal(signal_number, SIG_IGN); // as nohup asks
    }
}

} // namespace tallyframe::window
