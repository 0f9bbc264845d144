// SPDX-License-Identifier: MIT
#include "window/models/time_columns_model.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using testing::ElementsAre;

namespace tallyframe::window {

TEST(time_columns_model, keeps_the_rules_of_item_models)
{
    time_columns_model model(true);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.set_rows(time_column_rows({time_format::timecode}, {}));
    EXPECT_EQ(model.move(0, true), 1);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(time_columns_model(false).columnCount(), 1);
}

TEST(time_columns_model, takes_ticks_and_signed_adjustments_within_their_limits)
{
    time_columns_model model(true);
    model.set_rows(time_column_rows({time_format::timecode}, {}));
    const QSignalSpy changes(&model, &time_columns_model::changed);
    EXPECT_TRUE(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(model.setData(model.index(0, 1), 12, Qt::EditRole));
    EXPECT_EQ(model.index(0, 1).data().toString(), "+12");
    EXPECT_TRUE(model.setData(model.index(0, 1), -999999999, Qt::EditRole));
    EXPECT_EQ(model.rows()[0].adjustment, -adjustment_limit);
    EXPECT_FALSE(model.setData(model.index(0, 1), "a frame", Qt::EditRole));
    EXPECT_EQ(changes.count(), 3);
    EXPECT_THAT(chosen_formats(model.rows()), ElementsAre(time_format::timecode, time_format::clock));
}

} // namespace tallyframe::window
