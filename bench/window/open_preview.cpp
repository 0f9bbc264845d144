// SPDX-License-Identifier: MIT
// open_preview FILE.xml: opens the document in the window, off any screen, and ends once its preview has been
// painted. bench/run holds the time that this takes against the command line's.
#include "run/gui_mode.h"
#include "window/main_window.h"

#include <QApplication>
#include <QEvent>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

namespace {

/// Ends the program with the first painting of a table that has rows.
class first_painting final : public QObject {
public:
    explicit first_painting(QTableView& table) : QObject(&table), table_(table)
    {
        table.viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && table_.model()->rowCount() > 0)
            QMetaObject::invokeMethod(qApp, &QApplication::quit, Qt::QueuedConnection);
        return QObject::eventFilter(watched, event);
    }

private:
    QTableView& table_;
};

} // namespace

int main(int argument_count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argument_count, arguments);
    if (argument_count != 2)
        return EXIT_FAILURE;
    tallyframe::gui_mode = true;
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    tallyframe::no_diagnostics out;
    tallyframe::window::main_window window(settings, out);
    new first_painting(*window.findChild<QTableView*>("previewTableView"));
    window.show();
    window.open_document(QString::fromLocal8Bit(arguments[1]));
    return QApplication::exec();
}
