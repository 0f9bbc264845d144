// SPDX-License-Identifier: MIT
#pragma once

class QMessageBox;
class QObject;
class QWidget;

namespace tallyframe::window {

struct alert_texts;

/// From now on every message of the application shows its texts as they are, also those that Qt asks with:
/// it would take names that look like markup for markup. For as long as `parent` lives.
void show_plain_messages_only(QObject* parent);

/// Opens an alert of informational style as a sheet on the window; it goes when the user has seen it.
QMessageBox* show_alert(QWidget* main_window, const alert_texts& texts);

} // namespace tallyframe::window
