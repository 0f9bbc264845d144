// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/media_places_model.h"

#include <QGroupBox>

class QPushButton;
class QTableView;

namespace tallyframe::window {

/// Edits the list of places where media is looked for.
class media_places_editor final : public QGroupBox {
    Q_OBJECT

public:
    explicit media_places_editor(QWidget* parent = nullptr);

    media_places_model& model() { return model_; }
    const media_places_model& model() const { return model_; }

signals:
    void changed();

private:
    QWidget* make_buttons();
    void ask_for_folder();
    void remove_current();
    void show_what_can_be_removed();

    media_places_model model_;
    QTableView* table_;
    QPushButton* remove_button_ = nullptr;
};

} // namespace tallyframe::window
