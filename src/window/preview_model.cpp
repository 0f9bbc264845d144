// SPDX-License-Identifier: MIT
#include "window/preview_model.h"

#include "window/qt_text.h"

#include <QLocale>
#include <utility>

namespace tallyframe::window {

namespace {

/// A number as a spreadsheet shows it: "###,###,##0", "#,##0.00" or as it is.
QString number_text(double number, cell_kind kind)
{
    switch (kind) {
    case cell_kind::whole_number:
        return QLocale().toString(number, 'f', 0);
    case cell_kind::decimal:
        return QLocale().toString(number, 'f', 2);
    default:
        return QString::number(number, 'g', 10);
    }
}

Qt::Alignment alignment_of(cell_kind kind)
{
    switch (kind) {
    case cell_kind::text:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case cell_kind::centered:
        return Qt::AlignCenter;
    default:
        return Qt::AlignRight | Qt::AlignVCenter;
    }
}

} // namespace

preview_model::preview_model(QObject* parent) : QAbstractTableModel(parent)
{
    header_font_.setBold(true);
}

void preview_model::set_table(preview_table table)
{
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
}

void preview_model::set_row_colors(const QColor& video, const QColor& audio)
{
    video_color_ = video;
    audio_color_ = audio;
    if (rowCount() > 0 && columnCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::ForegroundRole});
}

int preview_model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(table_.row_count());
}

int preview_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(table_.column_count());
}

QVariant preview_model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return display_value(row, column);
    case Qt::ForegroundRole:
        return table_.is_audio_row(row) ? audio_color_ : video_color_;
    case Qt::TextAlignmentRole:
        return {alignment_of(table_.kind(column))};
    default:
        return {};
    }
}

QVariant preview_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) // the row as the workbook counts it, below the header row
        return role == Qt::DisplayRole ? QVariant(section + 2) : QVariant();
    const auto column = static_cast<std::size_t>(section);
    switch (role) {
    case Qt::DisplayRole:
        return qt_text(table_.header(column));
    case Qt::FontRole:
        return header_font_;
    case Qt::TextAlignmentRole:
        return {Qt::AlignLeft | Qt::AlignVCenter};
    case Qt::ToolTipRole:
        return table_.is_picture_column(column) ? tr("The pictures are made when the report is saved")
                                                : QVariant();
    default:
        return {};
    }
}

QVariant preview_model::display_value(std::size_t row, std::size_t column) const
{
    const cell_value value = table_.cell(row, column);
    if (const auto* text = std::get_if<std::string_view>(&value))
        return shown_text(*text);
    if (const auto* made_text = std::get_if<std::string>(&value))
        return shown_text(*made_text);
    if (const auto* number = std::get_if<double>(&value))
        return number_text(*number, table_.kind(column));
    return {};
}

} // namespace tallyframe::window
