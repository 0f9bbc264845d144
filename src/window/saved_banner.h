// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QLabel;

namespace tallyframe::window {

/// The line that says where the workbook was saved, and leads there.
class saved_banner final : public QFrame {
    Q_OBJECT

public:
    explicit saved_banner(QWidget* parent = nullptr);

    void show_saved(const QString& path);

private:
    void say_if_not(bool done, const QString& sentence);

    QLabel* text_;
    QString path_;
};

} // namespace tallyframe::window
