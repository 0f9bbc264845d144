// SPDX-License-Identifier: MIT
#include "window/run_window.h"

#include "document/parse_xml.h"
#include "platform/application.h"
#include "platform/sibling_program.h"
#include "run/gui_mode.h"
#include "window/desktop/end_signals.h"
#include "window/desktop/window_arguments.h"
#include "window/main_window.h"
#include "window/models/qt_text.h"
#include "window/runs/stdout_diagnostics.h"

#include <QApplication>
#include <QFile>
#include <QFileOpenEvent>
#include <QIcon>
#include <QLocale>
#include <QSettings>
#include <QTranslator>
#include <cstdlib>
#include <iostream>

namespace tallyframe::window {

namespace {

/// Opens the documents that the desktop hands over while the window is there, as macOS does.
class document_opener final : public QObject {
public:
    document_opener(main_window& window, QObject* parent) : QObject(parent), window_(window) { }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::FileOpen)
            return QObject::eventFilter(watched, event);
        window_.open_document(static_cast<QFileOpenEvent*>(event)->file());
        return true;
    }

private:
    main_window& window_;
};

constexpr int wrong_usage = 2; ///< the exit code, as of the command line

std::string own_path; ///< argv[0], for the handler below, which Qt calls without any context of ours

/// Qt ends the process when it finds no display: the user then learns why, and what works without one.
void explain_missing_display(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type != QtFatalMsg)
        return; // the reasons that the fatal one sums up
    std::cerr << "tallyframe: there is no display to open the window on; this is the command line.\n\n"
              << std::flush;
    become_sibling_program(own_path, "tallyframe", {"--help"});
    std::_Exit(EXIT_FAILURE);
}

void name_application()
{
    QApplication::setApplicationName(qt_text(application::name));
    QApplication::setApplicationVersion(qt_text(application::version));
    QApplication::setOrganizationName(qt_text(application::name));
    QGuiApplication::setApplicationDisplayName(qt_text(application::name));
    QGuiApplication::setDesktopFileName("tallyframe");
    QIcon icon;
    for (const int side : {16, 32, 48, 128, 256})
        icon.addFile(QString(":/icons/tallyframe-%1.png").arg(side));
    QApplication::setWindowIcon(icon);
}

} // namespace

int run_window(int argument_count, char** arguments)
{
    const window_request request = read_window_arguments({arguments + 1, arguments + argument_count});
    std::cout << request.answer << std::flush;
    std::cerr << request.complaint << std::flush;
    if (!request.complaint.empty())
        return wrong_usage;
    if (!request.answer.empty())
        return EXIT_SUCCESS;
    gui_mode = true;
    own_path = arguments[0];
    const QtMessageHandler usual_handler = qInstallMessageHandler(explain_missing_display);
    QApplication app(argument_count, arguments);
    qInstallMessageHandler(usual_handler);
    name_application();

    QTranslator translator;
    if (translator.load(QLocale(), "tallyframe", "_", ":/translations"))
        QApplication::installTranslator(&translator);

    stdout_diagnostics out;
    out.write(xml_library_version() + "\n");
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, QApplication::organizationName(),
                       "tallyframe");
    main_window window(settings, out);
    app.installEventFilter(new document_opener(window, &app));
    close_on_signals(app);
    window.show();
    if (!request.document.empty())
        window.open_document(QFile::decodeName(request.document.c_str()));
    return QApplication::exec();
}

} // namespace tallyframe::window
