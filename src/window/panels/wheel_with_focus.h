// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace tallyframe::window {

/// Lets a field take the mouse wheel only while it has the keyboard: otherwise a wheel that scrolls the page
/// would change, unseen, whatever field comes below the pointer. What the field does not take scrolls the
/// page.
void take_wheel_with_focus_only(QWidget& field);

} // namespace tallyframe::window
