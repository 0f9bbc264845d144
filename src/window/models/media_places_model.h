// SPDX-License-Identifier: MIT
#pragma once

#include "window/models/media_places.h"

#include <QAbstractTableModel>
#include <vector>

namespace tallyframe::window {

/// The list of places where media is looked for: what the timeline says, and the folder. Both can be edited.
class media_places_model final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum place_column { timeline_column, folder_column };

    using QAbstractTableModel::QAbstractTableModel;

    void set_places(std::vector<media_place> places);
    const std::vector<media_place>& places() const { return places_; }

    /// Adds a folder to search. Gives its row.
    int add(const QString& folder);
    void remove(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void changed();

private:
    std::vector<media_place> places_;
};

} // namespace tallyframe::window
