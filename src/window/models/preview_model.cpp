// SPDX-License-Identifier: MIT
#include "window/models/preview_model.h"

#include "window/models/qt_text.h"

#include <QLocale>

namespace tallyframe::window {

namespace {

/// A number as a spreadsheet shows it: "###,###,##0", "#,##0.00" or as it is.
QString number_text(double number, cell_form form)
{
    switch (form) {
    case cell_form::whole_number:
        return QLocale().toString(number, 'f', 0);
    case cell_form::decimal:
        return QLocale().toString(number, 'f', 2);
    case cell_form::percent:
        return QLocale().toString(number * 100, 'f', 1) + '%';
    case cell_form::text:
    case cell_form::centered:
        break;
    }
    return QString::number(number, 'g', 10);
}

QVariant display_value(const sheet_cell& cell)
{
    if (const double* number = std::get_if<double>(&cell.value))
        return number_text(*number, cell.look.form);
    const auto text = text_in(cell.value);
    return text ? QVariant(shown_text(*text)) : QVariant();
}

Qt::Alignment alignment_of(const sheet_cell& cell)
{
    if (cell.look.form == cell_form::centered || cell.look.form == cell_form::percent)
        return Qt::AlignCenter;
    const bool is_number = std::holds_alternative<double>(cell.value);
    return (is_number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

preview_model::preview_model(QObject* parent) : QAbstractTableModel(parent)
{
    header_font_.setBold(true);
}

void preview_model::set_sheet(const sheet* shown)
{
    beginResetModel();
    sheet_ = shown;
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
    return parent.isValid() || sheet_ == nullptr ? 0 : static_cast<int>(sheet_->record_count);
}

int preview_model::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || sheet_ == nullptr ? 0 : static_cast<int>(sheet_->column_count);
}

QVariant preview_model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return display_value(cell_of(index));
    case Qt::ForegroundRole:
        return cell_of(index).look.color == text_color::audio ? audio_color_ : video_color_;
    case Qt::TextAlignmentRole:
        return {alignment_of(cell_of(index))};
    default:
        return {};
    }
}

QVariant preview_model::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (sheet_ == nullptr)
        return {};
    if (orientation == Qt::Horizontal)
        return column_title(section, role);
    const int row_in_workbook = static_cast<int>(sheet_->header_row) + 2 + section; // where rows count from 1
    return role == Qt::DisplayRole ? QVariant(row_in_workbook) : QVariant();
}

sheet_cell preview_model::cell_of(const QModelIndex& index) const
{
    const auto record = static_cast<std::size_t>(index.row());
    return sheet_->cell(sheet_->header_row + 1 + record, static_cast<std::size_t>(index.column()));
}

QVariant preview_model::column_title(int column, int role) const
{
    const auto place = static_cast<std::size_t>(column);
    switch (role) {
    case Qt::DisplayRole:
        return qt_text(text_in(sheet_->cell(sheet_->header_row, place).value).value_or(""));
    case Qt::FontRole:
        return header_font_;
    case Qt::TextAlignmentRole:
        return {Qt::AlignLeft | Qt::AlignVCenter};
    case Qt::ToolTipRole:
        return sheet_->picture_column == place ? tr("The pictures are made when the report is saved")
                                               : QVariant();
    default:
        return {};
    }
}

} // namespace tallyframe::window
