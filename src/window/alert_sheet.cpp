// SPDX-License-Identifier: MIT
#include "window/alert_sheet.h"

#include <QLabel>
#include <QMessageBox>

namespace tallyframe::window {

QMessageBox* show_alert(QWidget* main_window, const QString& message_text, const QString& informative_text)
{
    auto* alert = new QMessageBox(QMessageBox::Information, QString(), message_text, QMessageBox::Ok,
                                  main_window, Qt::Dialog | Qt::Sheet);
    alert->setObjectName("alertSheet");
    alert->setWindowTitle(QMessageBox::tr("Tallyframe"));
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowModality(Qt::WindowModal);
    alert->setTextFormat(Qt::PlainText);
    alert->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    alert->setInformativeText(informative_text);
    if (auto* label = alert->findChild<QLabel*>("qt_msgbox_informativelabel"))
        label->setTextFormat(Qt::PlainText);
    alert->open();
    return alert;
}

} // namespace tallyframe::window
