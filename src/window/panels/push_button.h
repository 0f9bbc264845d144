// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>
#include <QString>

namespace tallyframe::window {

/// A button without a parent. The Enter key never presses it from another control of its dialog.
inline QPushButton* make_button(const QString& text, const QString& object_name, const QString& tool_tip)
{
    auto* button = new QPushButton(text);
    button->setObjectName(object_name);
    button->setToolTip(tool_tip);
    button->setAutoDefault(false);
    return button;
}

} // namespace tallyframe::window
