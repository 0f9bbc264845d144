// SPDX-License-Identifier: MIT
#include "window/panels/open_dialog.h"

#include <QFileDialog>
#include <QFileInfo>

namespace tallyframe::window {

void ask_what_to_open(QWidget* main_window, const QString& latest,
                      const std::function<void(const QString& path)>& open)
{
    auto* dialog = new QFileDialog(main_window, QFileDialog::tr("Open Timeline"));
    dialog->setObjectName("openDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({QFileDialog::tr("Exported timelines (*.xml)"), QFileDialog::tr("All files (*)")});
    if (!latest.isEmpty())
        dialog->setDirectory(QFileInfo(latest).absolutePath());
    QObject::connect(dialog, &QFileDialog::fileSelected, main_window, open);
    dialog->open();
}

} // namespace tallyframe::window
