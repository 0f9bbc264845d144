// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/track_table_model.h"

#include <QGroupBox>

class QPushButton;
class QTableView;

namespace tallyframe::window {

/// The track table of one kind of tracks, with its buttons to tick all or none.
class tracks_panel final : public QGroupBox {
    Q_OBJECT

public:
    /// `table_name`: the table's object name; the buttons' names start with it too.
    tracks_panel(const QString& title, const QString& table_name, QWidget* parent = nullptr);

    track_table_model& model() { return model_; }
    const track_table_model& model() const { return model_; }
    void set_rows(std::vector<track_row> rows);

    /// Ticks the row that the keyboard is in and no other.
    void tick_only_current();

signals:
    void ticks_changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void add_buttons(const QString& table_name);

    track_table_model model_;
    QTableView* table_;
    QPushButton* tick_all_button_ = nullptr;
    QPushButton* tick_none_button_ = nullptr;
};

} // namespace tallyframe::window
