// SPDX-License-Identifier: MIT
#include "window/desktop/badge.h"

#ifdef TALLYFRAME_HAS_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#endif

namespace tallyframe::window {

QVariantMap launcher_entry_properties(const QString& percentage)
{
    constexpr double hundred = 100;
    const double share = percentage.chopped(percentage.isEmpty() ? 0 : 1).toDouble() / hundred;
    return {{"progress", share}, {"progress-visible", !percentage.isEmpty()}};
}

#ifdef TALLYFRAME_HAS_DBUS

// The signal of the launcher-entry protocol, to which the docks and task bars of the free desktops listen.
void show_badge(const QString& percentage)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    QDBusMessage update = QDBusMessage::createSignal("/com/canonical/unity/launcherentry/tallyframe",
                                                     "com.canonical.Unity.LauncherEntry", "Update");
    update << "application://" + QGuiApplication::desktopFileName() + ".desktop"
           << launcher_entry_properties(percentage);
    bus.send(update);
}

#else

void show_badge(const QString& percentage)
{
    Q_UNUSED(percentage)
}

#endif

} // namespace tallyframe::window
