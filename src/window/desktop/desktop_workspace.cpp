// SPDX-License-Identifier: MIT
#include "window/desktop/desktop_workspace.h"

#include "window/models/qt_text.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#ifdef TALLYFRAME_HAS_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#endif

namespace tallyframe::window {

namespace {

/// Asks the file browser itself to select the file. False when no browser answers to that.
bool select_in_browser(const QString& path)
{
#ifdef TALLYFRAME_HAS_DBUS
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    QDBusMessage show =
        QDBusMessage::createMethodCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                       "org.freedesktop.FileManager1", "ShowItems");
    show << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    constexpr int patience = 2000; // milliseconds
    return bus.call(show, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
#else
    Q_UNUSED(path)
    return false;
#endif
}

} // namespace

void desktop_workspace::open_folder(const std::filesystem::path& folder)
{
    const QUrl url = QUrl::fromLocalFile(qt_path(folder));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [url] { QDesktopServices::openUrl(url); }, Qt::QueuedConnection);
}

bool open_file(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

bool show_in_folder(const QString& path)
{
    return select_in_browser(path)
        || QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

} // namespace tallyframe::window
