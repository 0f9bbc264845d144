// SPDX-License-Identifier: MIT
#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace tallyframe::window {

/// Stands in for the desktop and notes the files and folders that it is asked to open.
class asked_desktop final : public QObject {
    Q_OBJECT

public:
    asked_desktop() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~asked_desktop() override { QDesktopServices::unsetUrlHandler("file"); }

    Q_SLOT void open(const QUrl& url) { opened << url.toLocalFile(); }

    QStringList opened;
};

} // namespace tallyframe::window
