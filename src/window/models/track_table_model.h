// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/track_rows.h"

#include <QAbstractTableModel>
#include <vector>

namespace tallyframe::window {

/// The rows of a track table. The check box stands in the first column.
class track_table_model final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum track_column { label_column, name_column, item_count_column, column_count };

    using QAbstractTableModel::QAbstractTableModel;

    void set_rows(std::vector<track_row> rows);
    const std::vector<track_row>& rows() const { return rows_; }

    void tick_every_row(bool is_ticked);
    void tick_only_row(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void ticks_changed();

private:
    static QVariant display_text(const track_row& row, int column);
    void show_ticks();

    std::vector<track_row> rows_;
};

} // namespace tallyframe::window
