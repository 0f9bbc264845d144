// SPDX-License-Identifier: MIT
#include "window/panels/alert_sheet.h"

#include "window/runs/failure_texts.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>

namespace tallyframe::window {

namespace {

class plain_texts final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Polish && qobject_cast<QMessageBox*>(watched) != nullptr) {
            for (QLabel* label : watched->findChildren<QLabel*>())
                label->setTextFormat(Qt::PlainText);
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void show_plain_messages_only(QObject* parent)
{
    qApp->installEventFilter(new plain_texts(parent));
}

QMessageBox* show_alert(QWidget* main_window, const alert_texts& texts)
{
    auto* alert = new QMessageBox(QMessageBox::Information, QString(), texts.message_text, QMessageBox::Ok,
                                  main_window, Qt::Dialog | Qt::Sheet);
    alert->setObjectName("alertSheet");
    alert->setWindowTitle(QMessageBox::tr("Tallyframe"));
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowModality(Qt::WindowModal);
    alert->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    alert->setInformativeText(texts.informative_text);
    alert->open();
    return alert;
}

} // namespace tallyframe::window
