// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <QWidget>
#include <vector>

class QComboBox;

namespace tallyframe::window {

/// The menus of the three row colours; each item is a colour's name and a swatch of it.
class color_popups final : public QWidget {
    Q_OBJECT

public:
    explicit color_popups(QWidget* parent = nullptr);

    void set_options(const report_options& options);
    void apply_to(report_options& options) const;

signals:
    void changed();

private:
    std::vector<QComboBox*> popups_;
};

} // namespace tallyframe::window
