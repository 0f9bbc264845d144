// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <QWidget>
#include <span>
#include <vector>

class QCheckBox;

namespace tallyframe::window {

/// A check box of the window and the option that it stands for.
struct option_checkbox {
    const char* object_name; ///< also its key in the settings
    bool report_options::*option;
    const char* title;
    const char* tool_tip;
};

/// The sheets of the workbook beside "All Reels".
std::span<const option_checkbox> sheet_checkboxes();

/// Which clips get a row.
std::span<const option_checkbox> row_checkboxes();

/// The pictures of in-points.
std::span<const option_checkbox> picture_checkboxes();

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
