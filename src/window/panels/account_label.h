// SPDX-License-Identifier: MIT
#pragma once

#include "run/account.h"

#include <QLabel>

namespace tallyframe::window {

/// What a run has lost without failing, a sentence a line. Is not there when nothing was lost.
class account_label final : public QLabel {
    Q_OBJECT

public:
    explicit account_label(QWidget* parent = nullptr);

    void show_account(const account& lost);
};

} // namespace tallyframe::window
