// SPDX-License-Identifier: MIT
#include "report/column_switches.h"
#include "window/layouts_editor.h"
#include "window/qt_text.h"
#include "window/saved_layouts.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>

using testing::ElementsAre;
using testing::Field;

namespace tallyframe::window {

namespace {

const auto has_name = [](const char* name) { return Field(&column_layout::name, name); };

std::vector<column_layout> two_layouts()
{
    return {{"Conform", {{"Track", 1}}}, {"Music", {{"ID3 Metadata", 1}}}};
}

template <class Widget>
Widget& find(const QWidget& parent, const char* name)
{
    auto* widget = parent.findChild<Widget*>(name);
    if (widget == nullptr)
        throw std::runtime_error(std::string("there is no ") + name);
    return *widget;
}

void rename_current(layouts_editor& editor, const QString& name)
{
    auto& list = find<QListView>(editor, "layoutsListView");
    list.model()->setData(list.currentIndex(), name);
}

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

TEST(layouts_editor, has_a_check_box_for_each_of_the_25_column_groups)
{
    const layouts_editor editor(two_layouts(), "Conform");
    int boxes = 0;
    for (const column_switch_entry& entry : all_column_switches) {
        const auto* box = editor.findChild<QCheckBox*>(qt_text(entry.title));
        ASSERT_NE(box, nullptr) << entry.title;
        EXPECT_EQ(box->isChecked(), entry.title == "Track") << entry.title;
        ++boxes;
    }
    EXPECT_EQ(boxes, 25);
}

TEST(layouts_editor, makes_a_new_layout_from_the_default_columns)
{
    layouts_editor editor({}, "");
    find<QPushButton>(editor, "newLayoutButton").click();
    rename_current(editor, "Archive");
    find<QCheckBox>(editor, "Comments").click();
    ASSERT_THAT(editor.layouts(), ElementsAre(has_name("Archive")));
    EXPECT_TRUE(is_on(editor.layouts()[0], "Comments"));
    EXPECT_TRUE(is_on(editor.layouts()[0], "Scene"));
    EXPECT_EQ(editor.chosen_name(), "Archive");
}

TEST(layouts_editor, duplicates_renames_and_deletes)
{
    layouts_editor editor(two_layouts(), "Music");
    find<QPushButton>(editor, "duplicateLayoutButton").click();
    EXPECT_EQ(editor.chosen_name(), "Music copy");
    EXPECT_TRUE(find<QCheckBox>(editor, "ID3 Metadata").isChecked());
    rename_current(editor, "Conform");
    EXPECT_EQ(editor.chosen_name(), "Music copy");
    EXPECT_TRUE(find<QLabel>(editor, "layoutsMessage").text().contains("Conform"));
    find<QPushButton>(editor, "deleteLayoutButton").click();
    EXPECT_EQ(editor.chosen_name(), "Music");
    EXPECT_THAT(editor.layouts(), ElementsAre(has_name("Conform"), has_name("Music")));
}

TEST(layouts_editor, leaves_the_default_layout_alone)
{
    const layouts_editor editor(two_layouts(), "");
    EXPECT_FALSE(find<QCheckBox>(editor, "Track").isEnabled());
    EXPECT_FALSE(find<QPushButton>(editor, "deleteLayoutButton").isEnabled());
    EXPECT_FALSE(find<QPushButton>(editor, "renameLayoutButton").isEnabled());
    EXPECT_TRUE(find<QPushButton>(editor, "duplicateLayoutButton").isEnabled());
    EXPECT_EQ(editor.chosen_name(), "");
}

TEST(layouts_editor, switches_all_columns_on_and_off)
{
    layouts_editor editor(two_layouts(), "Conform");
    find<QPushButton>(editor, "allColumnsButton").click();
    EXPECT_TRUE(is_on(editor.layouts()[0], "Lab Roll"));
    find<QPushButton>(editor, "noColumnsButton").click();
    EXPECT_FALSE(is_on(editor.layouts()[0], "Track"));
}

} // namespace tallyframe::window
