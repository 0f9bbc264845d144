// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/sheet.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>

namespace tallyframe::window {

/// The records of a sheet as a table view asks for them, under the titles of their columns.
class preview_model final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit preview_model(QObject* parent = nullptr);

    /// Null for nothing to show. The sheet has to stay until another one is set.
    void set_sheet(const sheet* shown);

    /// The colours of the rows' texts.
    void set_row_colors(const QColor& video, const QColor& audio);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    sheet_cell cell_of(const QModelIndex& index) const;
    QVariant column_title(int column, int role) const;

    const sheet* sheet_ = nullptr;
    QColor video_color_;
    QColor audio_color_;
    QFont header_font_;
};

} // namespace tallyframe::window
