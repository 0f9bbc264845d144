// SPDX-License-Identifier: MIT
#include "window/models/layouts_model.h"
#include "window/models/made_rows.h"
#include "window/models/saved_layouts.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using testing::ElementsAre;
using testing::Field;

namespace tallyframe::window {

namespace {

const auto has_name = [](const char* name) { return Field(&column_layout::name, name); };

} // namespace

TEST(layouts_model, keeps_the_rules_of_item_models)
{
    layouts_model model(two_layouts());
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.add_copy(1, "Conform copy"), 3);
    model.remove(2);
    model.remove(0);
    EXPECT_THAT(model.layouts(), ElementsAre(has_name("Conform"), has_name("Conform copy")));
}

TEST(layouts_model, has_the_default_first_and_never_changes_it)
{
    layouts_model model(two_layouts());
    EXPECT_EQ(model.index(0).data().toString(), "Default");
    EXPECT_FALSE(model.flags(model.index(0)).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model.setData(model.index(0), "Mine", Qt::EditRole));
    model.set_column(0, "Track", false);
    EXPECT_TRUE(is_on(model.layout_at(0), "Track"));
}

TEST(layouts_model, refuses_a_name_that_is_taken_and_says_why)
{
    layouts_model model(two_layouts());
    QSignalSpy refusals(&model, &layouts_model::name_refused);
    EXPECT_FALSE(model.setData(model.index(2), " conform ", Qt::EditRole));
    EXPECT_EQ(refusals.takeFirst().at(0).toString(),
              "There is a layout named \"conform\" already. Choose another name.");
    EXPECT_FALSE(model.setData(model.index(2), " ", Qt::EditRole));
    EXPECT_EQ(refusals.takeFirst().at(0).toString(), "A layout needs a name.");
    EXPECT_TRUE(model.setData(model.index(2), "Sound ", Qt::EditRole));
    EXPECT_EQ(model.layouts()[1].name, "Sound");
}

TEST(layouts_model, adds_a_copy_under_a_name_of_its_own)
{
    layouts_model model(two_layouts());
    QSignalSpy additions(&model, &layouts_model::rowsInserted);
    EXPECT_EQ(model.add_copy(2, "Music"), 3);
    EXPECT_EQ(model.add_copy(0, "New layout"), 4);
    EXPECT_EQ(additions.count(), 2);
    EXPECT_THAT(
        model.layouts(),
        ElementsAre(has_name("Conform"), has_name("Music"), has_name("Music 2"), has_name("New layout")));
    EXPECT_EQ(model.layouts()[2].checkboxes, two_layouts()[1].checkboxes);
    EXPECT_EQ(model.layouts()[3].checkboxes, default_checkboxes());
}

TEST(layouts_model, keeps_what_is_switched_on_and_off)
{
    layouts_model model(two_layouts());
    model.set_column(1, "Scene", true);
    model.set_column(1, "Track", false);
    EXPECT_FALSE(is_on(model.layout_at(1), "Track"));
    EXPECT_TRUE(is_on(model.layout_at(1), "Scene"));
    EXPECT_FALSE(is_on(model.layout_at(2), "Scene"));
}

TEST(layouts_model, tells_why_the_default_cannot_be_edited_and_nothing_of_the_others)
{
    const layouts_model model(two_layouts());
    EXPECT_EQ(model.index(0).data(Qt::ToolTipRole).toString(),
              "The default layout cannot be changed. Duplicate it to make your own");
    EXPECT_FALSE(model.index(1).data(Qt::ToolTipRole).isValid());
    EXPECT_TRUE(model.flags(model.index(1)).testFlag(Qt::ItemIsEditable));
}

TEST(layouts_model, tells_of_a_name_that_it_has_taken)
{
    layouts_model model(two_layouts());
    const QSignalSpy accepted(&model, &layouts_model::name_accepted);
    const QSignalSpy changes(&model, &layouts_model::dataChanged);
    EXPECT_TRUE(model.setData(model.index(1), "conform", Qt::EditRole)) << "its own name in other letters";
    EXPECT_EQ(model.index(1).data(Qt::EditRole).toString(), "conform");
    EXPECT_EQ(accepted.count(), 1);
    EXPECT_EQ(changes.count(), 1);
}

} // namespace tallyframe::window
