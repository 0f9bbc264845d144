// SPDX-License-Identifier: MIT
#include "window/desktop/system_log.h"

#include "window/models/qt_text.h"

#include <QLoggingCategory>

namespace tallyframe::window {

void write_system_log(std::string_view text)
{
    static const QLoggingCategory category("tallyframe");
    qCWarning(category).noquote() << qt_text(text);
}

} // namespace tallyframe::window
