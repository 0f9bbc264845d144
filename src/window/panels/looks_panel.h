// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/choices.h"

#include <QWidget>

class QComboBox;

namespace tallyframe::window {

class color_popups;
class media_places_editor;
class option_checkbox_list;

/// What the workbook looks like, the rows' colours and the pictures of in-points, and where the media for
/// those is.
class looks_panel final : public QWidget {
    Q_OBJECT

public:
    explicit looks_panel(QWidget* parent = nullptr);

    void set_choices(const choices& kept);
    void apply_to(choices& kept) const;

signals:
    void changed();

private:
    QWidget* make_pictures_group();
    void set_up_widths();
    void show_picture_choices();

    color_popups* colors_;
    option_checkbox_list* pictures_;
    QComboBox* width_popup_;
    media_places_editor* media_places_;
};

} // namespace tallyframe::window
