// SPDX-License-Identifier: MIT
#include "window/system_log.h"

#include "window/qt_text.h"

#include <QLoggingCategory>

namespace tallyframe::window {

void write_system_log(std::string_view text)
{
    static const QLoggingCategory category("tallyframe");
    qCWarning(category).noquote() << qt_text(text);
}

} // namespace tallyframe::window
