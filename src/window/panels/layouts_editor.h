// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/layouts_model.h"

#include <QDialog>
#include <vector>

class QCheckBox;
class QLabel;
class QListView;
class QPushButton;

namespace tallyframe::window {

/// The dialog in which column layouts are made: their names on the left, the chosen one's 25 check boxes on
/// the right.
class layouts_editor final : public QDialog {
    Q_OBJECT

public:
    /// `chosen`: the name of the layout to start with; empty for the default one.
    layouts_editor(std::vector<column_layout> layouts, const std::string& chosen, QWidget* parent = nullptr);

    const std::vector<column_layout>& layouts() const { return model_.layouts(); }

    /// Name of the layout that is selected; empty for the default one.
    std::string chosen_name() const;

private:
    QWidget* make_names_side();
    QWidget* make_checkboxes_side();
    int current_row() const;
    void select(int row, bool edit_name);
    void show_current();
    void set_all(bool on);
    void set_message(const QString& text);

    layouts_model model_;
    QListView* names_;
    QPushButton* rename_button_ = nullptr;
    QPushButton* delete_button_ = nullptr;
    QPushButton* all_button_ = nullptr;
    QPushButton* none_button_ = nullptr;
    QLabel* message_ = nullptr;
    std::vector<QCheckBox*> boxes_; ///< in the order of all_column_switches
};

} // namespace tallyframe::window
