// SPDX-License-Identifier: MIT
#pragma once

#include "run/account.h"

#include <QFrame>

class QLabel;

namespace tallyframe::window {

class account_label;

/// The line that says where the workbook was saved, and leads there; below it what the workbook lost.
class saved_banner final : public QFrame {
    Q_OBJECT

public:
    explicit saved_banner(QWidget* parent = nullptr);

    void show_saved(const QString& path, const account& lost);

private:
    void say_if_not(bool done, const QString& sentence);

    QLabel* text_;
    account_label* lost_;
    QString path_;
};

} // namespace tallyframe::window
