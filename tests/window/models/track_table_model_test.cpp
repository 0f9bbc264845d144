// SPDX-License-Identifier: MIT
#include "window/models/made_rows.h"
#include "window/models/track_table_model.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>

namespace tallyframe::window {

TEST(track_table_model, keeps_the_rules_of_item_models)
{
    track_table_model model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.set_rows(three_tracks());
    model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    model.tick_every_row(true);
    model.set_rows({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(track_table_model, shows_label_name_count_and_whether_a_track_is_disabled)
{
    track_table_model model;
    model.set_rows(three_tracks());
    const auto text = [&](int row, int column) {
        return model.index(row, column).data().toString().toStdString();
    };
    EXPECT_EQ(text(0, 0), "V1");
    EXPECT_EQ(text(0, 1), "Pictures");
    EXPECT_EQ(text(1, 1), "disabled");
    EXPECT_EQ(text(2, 1), "Titles (disabled)");
    EXPECT_EQ(text(0, 2), "12");
    EXPECT_EQ(model.index(2, 0).data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(model.index(1, 0).data(Qt::AccessibleTextRole).toString(), "V2, disabled");
}

} // namespace tallyframe::window
