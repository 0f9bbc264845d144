// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QMessageBox;
class QWidget;

namespace tallyframe::window {

/// Opens an alert of informational style as a sheet on the window; it goes when the user has seen it. The
/// texts are shown as they are, whatever markup a document's names look like.
QMessageBox* show_alert(QWidget* main_window, const QString& message_text, const QString& informative_text);

} // namespace tallyframe::window
