// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/option_checkboxes.h"

#include <QWidget>
#include <span>
#include <vector>

class QCheckBox;

namespace tallyframe::window {

/// Check boxes one below the other.
class option_checkbox_list final : public QWidget {
    Q_OBJECT

public:
    explicit option_checkbox_list(std::span<const option_checkbox> entries, QWidget* parent = nullptr);

    void set_options(const report_options& options);
    void apply_to(report_options& options) const;

    QCheckBox* box_for(bool report_options::*option) const;

signals:
    void changed();

private:
    std::span<const option_checkbox> entries_;
    std::vector<QCheckBox*> boxes_;
};

} // namespace tallyframe::window
