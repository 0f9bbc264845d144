// SPDX-License-Identifier: MIT
#include "window/runs/obstacles.h"

#include "sequence_to_spreadsheet/output_place.h"
#include "window/models/qt_text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tallyframe::window {

namespace {

struct texts {
    Q_DECLARE_TR_FUNCTIONS(obstacles)
};

/// The last name of a path, also of a folder's.
QString name_of(const QString& path)
{
    const QString clean = QDir::cleanPath(path);
    const QString name = QFileInfo(clean).fileName();
    return name.isEmpty() ? QDir::toNativeSeparators(clean) : name;
}

} // namespace

std::optional<alert_texts> obstacle_to_opening(const QString& path)
{
    const QFileInfo file(path);
    const QString name = name_of(path);
    if (!file.exists()) {
        return alert_texts{texts::tr("%1 is not there").arg(name),
                           texts::tr("It was looked for here:\n%1\nCheck the name, and whether its disk is "
                                     "connected.")
                               .arg(QDir::toNativeSeparators(file.absoluteFilePath()))};
    }
    if (file.isDir())
        return alert_texts{texts::tr("%1 is a folder").arg(name),
                           texts::tr("Choose the XML file of a timeline.")};
    if (!file.isFile()) {
        return alert_texts{texts::tr("%1 is not a file").arg(name),
                           texts::tr("Choose the XML file of a timeline.")};
    }
    if (!file.isReadable()) {
        return alert_texts{texts::tr("You may not read %1").arg(name),
                           texts::tr("Ask its owner for the permission, or for a copy.")};
    }
    return std::nullopt;
}

std::optional<alert_texts> obstacle_to_dropping(const QList<QUrl>& urls)
{
    if (urls.size() != 1) {
        return alert_texts{texts::tr("One timeline can be opened at a time"),
                           texts::tr("Drop a single XML file.")};
    }
    if (!urls.constFirst().isLocalFile()) {
        return alert_texts{texts::tr("This is not a file on this computer"),
                           texts::tr("Save it to a disk, then drop the file.")};
    }
    return std::nullopt;
}

std::optional<alert_texts> obstacle_to_reopening(const QString& path)
{
    if (QFileInfo(path).isFile())
        return std::nullopt;
    return alert_texts{
        texts::tr("%1 is not there any more").arg(QFileInfo(path).fileName()),
        texts::tr("It was here:\n%1\nIs its disk connected?").arg(QDir::toNativeSeparators(path))};
}

std::optional<alert_texts> obstacle_to_saving(const QString& workbook, const QString& document,
                                              const report_options& options)
{
    const QString headline = texts::tr("The report could not be saved");
    if (replaces_document(file_path(workbook), file_path(document))) {
        return alert_texts{headline,
                           texts::tr("This is the timeline itself. Choose another name for the workbook.")};
    }
    if (options.inpoint_thumbnail_jpegs && options.keep_thumbnails
        && keeps_thumbnails_around_document(file_path(workbook), file_path(document))) {
        return alert_texts{headline,
                           texts::tr("The pictures would be kept in the timeline's own folder. Choose "
                                     "another name for the workbook.")};
    }
    return std::nullopt;
}

} // namespace tallyframe::window
