// SPDX-License-Identifier: MIT
#include "window/panels/wheel_with_focus.h"

#include <QEvent>
#include <QWidget>

namespace tallyframe::window {

namespace {

class wheel_filter final : public QObject {
public:
    explicit wheel_filter(QWidget& field) : QObject(&field), field_(field) { field.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Wheel || field_.hasFocus())
            return QObject::eventFilter(watched, event);
        event->ignore(); // so that it goes on to what is behind the field
        return true;
    }

private:
    QWidget& field_;
};

} // namespace

void take_wheel_with_focus_only(QWidget& field)
{
    field.setFocusPolicy(Qt::StrongFocus); // the wheel alone does not give it
    new wheel_filter(field);
}

} // namespace tallyframe::window
