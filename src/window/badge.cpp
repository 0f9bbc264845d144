// SPDX-License-Identifier: MIT
#include "window/badge.h"

#include <QtGlobal>

#ifdef TALLYFRAME_HAS_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QVariantMap>
#endif

namespace tallyframe::window {

#ifdef TALLYFRAME_HAS_DBUS

// The signal of the launcher-entry protocol, to which the docks and task bars of the free desktops listen.
void show_badge(const QString& percentage)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    constexpr double hundred = 100;
    const double share = percentage.chopped(percentage.isEmpty() ? 0 : 1).toDouble() / hundred;
    QDBusMessage update = QDBusMessage::createSignal("/com/canonical/unity/launcherentry/tallyframe",
                                                     "com.canonical.Unity.LauncherEntry", "Update");
    update << "application://" + QGuiApplication::desktopFileName() + ".desktop"
           << QVariantMap{{"progress", share}, {"progress-visible", !percentage.isEmpty()}};
    bus.send(update);
}

#else

void show_badge(const QString& percentage)
{
    Q_UNUSED(percentage)
}

#endif

} // namespace tallyframe::window
