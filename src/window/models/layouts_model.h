// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"

#include <QAbstractListModel>
#include <QString>
#include <vector>

namespace tallyframe::window {

/// The names of the layouts: "Default" in row 0, which cannot be changed, then the saved ones. It is given
/// the layouts and edits its copy.
class layouts_model final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit layouts_model(std::vector<column_layout> layouts, QObject* parent = nullptr);

    const std::vector<column_layout>& layouts() const { return layouts_; }

    /// The layout of a row; row 0 is the default one.
    column_layout layout_at(int row) const;
    void set_column(int row, std::string_view title, bool on);
    bool can_change(int row) const { return row > 0 && row < rowCount(); }

    /// Adds a copy of a row's layout under a name of its own that starts with `wanted`. Gives its row.
    int add_copy(int row, const QString& wanted);
    void remove(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Renames a layout, unless the name is empty or taken: then name_refused says why and nothing changes.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void name_refused(const QString& why);
    void name_accepted();

private:
    std::vector<column_layout> layouts_;
};

} // namespace tallyframe::window
