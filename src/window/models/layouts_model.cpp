// SPDX-License-Identifier: MIT
#include "window/models/layouts_model.h"

#include "window/models/qt_text.h"
#include "window/models/saved_layouts.h"

#include <utility>

namespace tallyframe::window {

namespace {

/// Where the layout of a row stands in the list of saved ones.
std::size_t position_of(int row)
{
    return static_cast<std::size_t>(row - 1);
}

} // namespace

layouts_model::layouts_model(std::vector<column_layout> layouts, QObject* parent)
    : QAbstractListModel(parent), layouts_(std::move(layouts))
{
}

column_layout layouts_model::layout_at(int row) const
{
    if (can_change(row))
        return layouts_[position_of(row)];
    return {std::string(default_layout_name), default_checkboxes()};
}

void layouts_model::set_column(int row, std::string_view title, bool on)
{
    if (can_change(row))
        set_on(layouts_[position_of(row)], title, on);
}

int layouts_model::add_copy(int row, const QString& wanted)
{
    column_layout copy = layout_at(row);
    copy.name = free_name(wanted.toStdString(), layouts_);
    const int last = rowCount();
    beginInsertRows({}, last, last);
    layouts_.push_back(std::move(copy));
    endInsertRows();
    return last;
}

void layouts_model::remove(int row)
{
    if (!can_change(row))
        return;
    beginRemoveRows({}, row, row);
    layouts_.erase(layouts_.begin() + (row - 1));
    endRemoveRows();
}

int layouts_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(layouts_.size()) + 1;
}

QVariant layouts_model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return qt_text(layout_at(index.row()).name);
    if (role == Qt::ToolTipRole && !can_change(index.row()))
        return tr("The default layout cannot be changed. Duplicate it to make your own");
    return {};
}

bool layouts_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !can_change(index.row()))
        return false;
    const std::string name = trimmed_name(value.toString().toStdString());
    switch (check_name(name, layouts_, position_of(index.row()))) {
    case name_fault::empty:
        emit name_refused(tr("A layout needs a name."));
        return false;
    case name_fault::taken:
        emit name_refused(
            tr("There is a layout named \"%1\" already. Choose another name.").arg(qt_text(name)));
        return false;
    case name_fault::none:
        break;
    }
    layouts_[position_of(index.row())].name = name;
    emit dataChanged(index, index);
    emit name_accepted();
    return true;
}

Qt::ItemFlags layouts_model::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return can_change(index.row()) ? flags | Qt::ItemIsEditable : flags;
}

} // namespace tallyframe::window
