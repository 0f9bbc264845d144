// SPDX-License-Identifier: MIT
#include "window/patience.h"

#include <gtest/gtest.h>
#include <sys/types.h>

#include <QCoreApplication>
#include <QProcess>
#include <csignal>

namespace tallyframe::window {

namespace {

/// A process with a window that says when it is there and when it is closed.
struct window_process {
    QProcess process;

    window_process()
    {
        process.start(QCoreApplication::applicationFilePath(), {"--show-window"});
        process.waitForReadyRead(patience);
    }

    void send(int signal_number) const { kill(static_cast<pid_t>(process.processId()), signal_number); }
};

} // namespace

TEST(end_signals, close_the_window_as_its_button_does)
{
    for (const int signal_number : {SIGINT, SIGTERM, SIGHUP}) {
        window_process shown;
        shown.send(signal_number);
        ASSERT_TRUE(shown.process.waitForFinished(patience)) << signal_number;
        EXPECT_EQ(shown.process.exitStatus(), QProcess::NormalExit) << signal_number;
        EXPECT_EQ(shown.process.exitCode(), 0) << signal_number;
        EXPECT_EQ(shown.process.readAllStandardOutput(), "shown\nclosed\n") << signal_number;
    }
}

} // namespace tallyframe::window
