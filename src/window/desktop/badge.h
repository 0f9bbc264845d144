// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariantMap>

namespace tallyframe::window {

/// Shows the percentage of a run, such as "42%", on the application's icon in the task bar or dock; the empty
/// text takes it away. A desktop that offers no such thing shows nothing.
void show_badge(const QString& percentage);

/// What the launcher-entry protocol of the free desktops calls that.
QVariantMap launcher_entry_properties(const QString& percentage);

} // namespace tallyframe::window
