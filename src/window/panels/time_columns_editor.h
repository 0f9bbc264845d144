// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/time_columns_model.h"

#include <QGroupBox>

class QTableView;
class QToolButton;

namespace tallyframe::window {

/// Which time formats have columns, in which order, and what is added to them.
class time_columns_editor final : public QGroupBox {
    Q_OBJECT

public:
    /// `table_name`: the table's object name; the buttons' names start with it too.
    time_columns_editor(const QString& title, const QString& table_name, bool has_adjustments,
                        QWidget* parent = nullptr);

    time_columns_model& model() { return model_; }
    const time_columns_model& model() const { return model_; }

signals:
    void changed();

private:
    QToolButton* add_move_button(bool down, const QString& object_name);
    void move_current(bool down);
    void open_fields();
    void show_possible_moves();

    time_columns_model model_;
    QTableView* table_;
    QToolButton* up_button_;
    QToolButton* down_button_;
};

} // namespace tallyframe::window
