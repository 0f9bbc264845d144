// SPDX-License-Identifier: MIT
#include "window/panels/save_dialog.h"

#include "sequence_to_spreadsheet/file_name_part.h"
#include "window/models/qt_text.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace tallyframe::window {

QString suggested_workbook(const QString& document, const QString& entry_title, const QString& folder)
{
    const QFileInfo file(document);
    const QString place = !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : file.absolutePath();
    QString name = file.completeBaseName();
    if (!entry_title.isEmpty())
        name += " - " + qt_text(file_name_part(entry_title.toStdString()));
    return QDir(place).filePath(name + ".xls");
}

void ask_where_to_save(QWidget* main_window, const QString& suggested,
                       const std::function<void(const QString& path)>& save)
{
    auto* dialog = new QFileDialog(main_window, QFileDialog::tr("Save Report"));
    dialog->setObjectName(save_dialog_name);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setNameFilter(QFileDialog::tr("Excel workbooks (*.xls)"));
    dialog->setDefaultSuffix("xls");
    dialog->setDirectory(QFileInfo(suggested).absolutePath());
    dialog->selectFile(QFileInfo(suggested).fileName());
    QObject::connect(dialog, &QFileDialog::fileSelected, main_window, save);
    dialog->open();
}

} // namespace tallyframe::window
