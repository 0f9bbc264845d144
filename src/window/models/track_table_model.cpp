// SPDX-License-Identifier: MIT
#include "window/models/track_table_model.h"

#include "window/models/qt_text.h"

#include <QFont>
#include <QLocale>
#include <utility>

namespace tallyframe::window {

void track_table_model::set_rows(std::vector<track_row> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

void track_table_model::tick_every_row(bool is_ticked)
{
    tick_all(rows_, is_ticked);
    show_ticks();
}

void track_table_model::tick_only_row(int row)
{
    tick_only(rows_, static_cast<std::size_t>(row));
    show_ticks();
}

int track_table_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int track_table_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : column_count;
}

QVariant track_table_model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const track_row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return display_text(row, index.column());
    case Qt::CheckStateRole:
        return index.column() == label_column ? QVariant(row.is_ticked ? Qt::Checked : Qt::Unchecked)
                                              : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == item_count_column ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::FontRole: {
        QFont font;
        font.setItalic(row.is_disabled);
        return row.is_disabled ? QVariant(font) : QVariant();
    }
    case Qt::ToolTipRole:
        return tr("Tick the tracks to report. Alt-click ticks only this one.");
    case Qt::AccessibleTextRole:
        return row.is_disabled && index.column() == label_column
            ? tr("%1, disabled").arg(qt_text(row.label))
            : display_text(row, index.column()).toString();
    default:
        return {};
    }
}

bool track_table_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != label_column
        || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    tick(rows_, static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    emit dataChanged(index, index, {Qt::CheckStateRole});
    emit ticks_changed();
    return true;
}

QVariant track_table_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case label_column:
        return tr("Track");
    case name_column:
        return tr("Name");
    case item_count_column:
        return tr("Items");
    default:
        return {};
    }
}

Qt::ItemFlags track_table_model::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    if (index.column() == label_column)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant track_table_model::display_text(const track_row& row, int column)
{
    switch (column) {
    case label_column:
        return qt_text(row.label);
    case name_column:
        if (row.is_disabled)
            return row.name.empty() ? tr("disabled") : tr("%1 (disabled)").arg(shown_text(row.name));
        return shown_text(row.name);
    case item_count_column:
        return QLocale().toString(qlonglong{row.item_count});
    default:
        return {};
    }
}

void track_table_model::show_ticks()
{
    if (rows_.empty())
        return;
    emit dataChanged(index(0, label_column), index(rowCount() - 1, label_column), {Qt::CheckStateRole});
    emit ticks_changed();
}

} // namespace tallyframe::window
