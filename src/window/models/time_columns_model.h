// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/time_column_rows.h"

#include <QAbstractTableModel>
#include <vector>

namespace tallyframe::window {

/// The list of time formats: a check box and a name in the first column, the adjustment in the second.
class time_columns_model final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum time_column { format_column, adjustment_column };

    /// `has_adjustments`: false for the source's times, which have no second column.
    explicit time_columns_model(bool has_adjustments, QObject* parent = nullptr)
        : QAbstractTableModel(parent), has_adjustments_(has_adjustments)
    {
    }

    void set_rows(std::vector<time_column_row> rows);
    const std::vector<time_column_row>& rows() const { return rows_; }

    /// Moves a row by one place, down or up. Gives its new row.
    int move(int row, bool down);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void changed();

private:
    std::vector<time_column_row> rows_;
    bool has_adjustments_;
};

} // namespace tallyframe::window
