// SPDX-License-Identifier: MIT
#include "window/models/media_places_model.h"

#include "window/models/qt_text.h"

#include <QGuiApplication>
#include <QPalette>
#include <utility>

namespace tallyframe::window {

namespace {

std::string& text_in(media_place& place, int column)
{
    return column == media_places_model::timeline_column ? place.named_in_timeline : place.folder;
}

} // namespace

void media_places_model::set_places(std::vector<media_place> places)
{
    beginResetModel();
    places_ = std::move(places);
    endResetModel();
}

int media_places_model::add(const QString& folder)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    places_.push_back({{}, folder.toStdString()});
    endInsertRows();
    emit changed();
    return row;
}

void media_places_model::remove(int row)
{
    beginRemoveRows({}, row, row);
    places_.erase(places_.begin() + row);
    endRemoveRows();
    emit changed();
}

int media_places_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
}

int media_places_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant media_places_model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const media_place& place = places_[static_cast<std::size_t>(index.row())];
    const bool is_anywhere = index.column() == timeline_column && place.named_in_timeline.empty();
    switch (role) {
    case Qt::DisplayRole:
        if (is_anywhere)
            return tr("any");
        [[fallthrough]];
    case Qt::EditRole:
        return qt_text(index.column() == timeline_column ? place.named_in_timeline : place.folder);
    case Qt::ForegroundRole:
        return is_anywhere ? QGuiApplication::palette().color(QPalette::PlaceholderText) : QVariant();
    case Qt::ToolTipRole:
        return tool_tip_text(
            place.named_in_timeline.empty()
                ? tr("%1 and all below it are searched by the files' names").arg(qt_text(place.folder))
                : tr("What the timeline names below %1 is below %2 now")
                      .arg(qt_text(place.named_in_timeline), qt_text(place.folder)));
    default:
        return {};
    }
}

bool media_places_model::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole)
        return false;
    std::string text = value.toString().trimmed().toStdString();
    if (index.column() == folder_column && text.empty())
        return false;
    std::string& kept = text_in(places_[static_cast<std::size_t>(index.row())], index.column());
    if (kept == text)
        return true;
    kept = std::move(text);
    emit dataChanged(index.siblingAtColumn(timeline_column), index.siblingAtColumn(folder_column));
    emit changed();
    return true;
}

QVariant media_places_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == timeline_column ? tr("In the timeline") : tr("Look in");
}

Qt::ItemFlags media_places_model::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

} // namespace tallyframe::window
