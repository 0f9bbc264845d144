// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <QWidget>

class QComboBox;

namespace tallyframe::window {

class color_popups;
class option_checkbox_list;

/// What the workbook looks like: the rows' colours and the pictures of in-points.
class looks_panel final : public QWidget {
    Q_OBJECT

public:
    explicit looks_panel(QWidget* parent = nullptr);

    void set_options(const report_options& options);
    void apply_to(report_options& options) const;

signals:
    void changed();

private:
    QWidget* make_pictures_group();
    void show_picture_choices();

    color_popups* colors_;
    option_checkbox_list* pictures_;
    QComboBox* width_popup_;
};

} // namespace tallyframe::window
