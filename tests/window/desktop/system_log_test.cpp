// SPDX-License-Identifier: MIT
#include "window/desktop/system_log.h"

#include <gtest/gtest.h>

#include <QString>

namespace tallyframe::window {

namespace {

QString logged; ///< for the handler, which Qt calls without any context of ours

void keep_message(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    logged = (type == QtWarningMsg ? "warning of " : "") + QString(context.category) + ": " + text;
}

} // namespace

TEST(system_log, takes_a_text_as_it_is_under_the_name_of_the_application)
{
    const QtMessageHandler before = qInstallMessageHandler(keep_message);
    write_system_log("This sequence has no timebase\nanalyze.cpp:42 in \"Zoë\"");
    qInstallMessageHandler(before);
    EXPECT_EQ(
        logged,
        QString::fromUtf8("warning of tallyframe: This sequence has no timebase\nanalyze.cpp:42 in \"Zoë\""));
}

} // namespace tallyframe::window
