// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace tallyframe::window {

inline constexpr const char* save_dialog_name = "saveDialog";

/// Where a workbook would go: in `folder`, or beside the document when that is empty or gone; named after the
/// document and, unless it is empty, `entry_title`.
QString suggested_workbook(const QString& document, const QString& entry_title, const QString& folder);

/// Asks where to save; an existing file is asked about once. Calls `save` with the chosen path.
void ask_where_to_save(QWidget* main_window, const QString& suggested,
                       const std::function<void(const QString& path)>& save);

} // namespace tallyframe::window
