// SPDX-License-Identifier: MIT
#include "run/gui_mode.h"
#include "window/desktop/end_signals.h"
#include "window/main_window.h"
#include "window/panels/layouts_editor.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QListView>
#include <QLocale>
#include <QSettings>
#include <cstdlib>
#include <iostream>

namespace {

/// What the helper process of a test does: a window of its own in which a layout is made and a choice.
int make_layout(const QString& settings_path, const QString& name)
{
    using namespace tallyframe::window;
    QSettings settings(settings_path, QSettings::IniFormat);
    tallyframe::no_diagnostics out;
    main_window window(settings, out);
    window.findChild<QAbstractButton*>("editLayoutsButton")->click();
    auto* editor = window.findChild<layouts_editor*>("layoutsEditor");
    editor->findChild<QAbstractButton*>("newLayoutButton")->click();
    auto* names = editor->findChild<QListView*>("layoutsListView");
    names->model()->setData(names->currentIndex(), name, Qt::EditRole);
    editor->accept();
    window.findChild<QCheckBox*>("summarySheetCheckbox")->click();
    return EXIT_SUCCESS;
}

/// What the helper process of another test does: says when a window of its own is shown, and when it is
/// closed.
int show_window(QApplication& app)
{
    struct told_window final : QWidget {
        void closeEvent(QCloseEvent*) override { std::cout << "closed" << std::endl; }
    } window;
    tallyframe::window::close_on_signals(app);
    window.show();
    std::cout << "shown" << std::endl;
    return QApplication::exec();
}

} // namespace

int main(int argument_count, char** arguments)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argument_count, arguments);
    tallyframe::gui_mode = true;
    const QStringList given = QApplication::arguments();
    if (given.value(1) == "--make-layout")
        return make_layout(given.value(2), given.value(3));
    if (given.value(1) == "--show-window")
        return show_window(app);
    testing::InitGoogleMock(&argument_count, arguments);
    return RUN_ALL_TESTS();
}
