// SPDX-License-Identifier: MIT
#include "report/column_switches.h"
#include "window/models/made_rows.h"
#include "window/models/qt_text.h"
#include "window/models/saved_layouts.h"
#include "window/panels/layouts_editor.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>

using testing::ElementsAre;
using testing::Field;

namespace tallyframe::window {

namespace {

const auto has_name = [](const char* name) { return Field(&column_layout::name, name); };

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
