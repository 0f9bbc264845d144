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

} // namespace

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
