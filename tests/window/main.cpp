// SPDX-License-Identifier: MIT
#include "platform/gui_mode.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLocale>

int main(int argument_count, char** arguments)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argument_count, arguments);
    tallyframe::gui_mode = true;
    testing::InitGoogleMock(&argument_count, arguments);
    return RUN_ALL_TESTS();
}
