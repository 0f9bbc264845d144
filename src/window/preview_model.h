// SPDX-License-Identifier: MIT
#pragma once

#include "window/preview_table.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>

namespace tallyframe::window {

/// The preview's cells as a table view asks for them.
class preview_model final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit preview_model(QObject* parent = nullptr);

    void set_table(preview_table table);
    const preview_table& table() const { return table_; }

    /// The colours of the rows' texts.
    void set_row_colors(const QColor& video, const QColor& audio);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant display_value(std::size_t row, std::size_t column) const;

    preview_table table_;
    QColor video_color_;
    QColor audio_color_;
    QFont header_font_;
};

} // namespace tallyframe::window
