// SPDX-License-Identifier: MIT
#include "window/models/time_columns_model.h"

#include "window/models/qt_text.h"

#include <algorithm>
#include <utility>

namespace tallyframe::window {

namespace {

QString format_name(time_format format)
{
    return qt_text(std::ranges::find(time_formats, format, &time_format_name::format)->name);
}

/// "+1", "0", "-2".
QString signed_text(std::int64_t number)
{
    return (number > 0 ? "+" : "") + QString::number(number);
}

} // namespace

void time_columns_model::set_rows(std::vector<time_column_row> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int time_columns_model::move(int row, bool down)
{
    const auto from = static_cast<std::size_t>(row);
    const auto to = static_cast<int>(down ? move_down(rows_, from) : move_up(rows_, from));
    if (to != row) {
        emit dataChanged(index(std::min(row, to), 0), index(std::max(row, to), columnCount() - 1));
        emit changed();
    }
    return to;
}

int time_columns_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int time_columns_model::columnCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    return has_adjustments_ ? 2 : 1;
}

QVariant time_columns_model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const time_column_row& row = rows_[static_cast<std::size_t>(index.row())];
    if (index.column() == adjustment_column) {
        switch (role) {
        case Qt::DisplayRole:
            return signed_text(row.adjustment);
        case Qt::EditRole:
            return static_cast<int>(row.adjustment);
        case Qt::TextAlignmentRole:
            return {Qt::AlignRight | Qt::AlignVCenter};
        case Qt::ToolTipRole:
            return tr(
                "Frames to add to Sequence In and Sequence Out in this format. The column's header tells "
                "the number");
        default:
            return {};
        }
    }
    switch (role) {
    case Qt::DisplayRole:
        return format_name(row.format);
    case Qt::CheckStateRole:
        return row.is_shown ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool time_columns_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    time_column_row& row = rows_[static_cast<std::size_t>(index.row())];
    if (index.column() == format_column && role == Qt::CheckStateRole) {
        row.is_shown = value.toInt() == Qt::Checked;
    } else if (index.column() == adjustment_column && role == Qt::EditRole) {
        bool is_number = false;
        const qlonglong frames = value.toLongLong(&is_number);
        if (!is_number)
            return false;
        const auto adjustment = std::clamp<std::int64_t>(frames, -adjustment_limit, adjustment_limit);
        if (adjustment == row.adjustment)
            return true;
        row.adjustment = adjustment;
    } else {
        return false;
    }
    emit dataChanged(index, index);
    emit changed();
    return true;
}

QVariant time_columns_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == format_column ? tr("Shown as") : tr("Add frames");
}

Qt::ItemFlags time_columns_model::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return flags | (index.column() == format_column ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

} // namespace tallyframe::window
