// SPDX-License-Identifier: MIT
#include "window/panels/time_columns_editor.h"

#include <gmock/gmock.h>

#include <QTableView>
#include <QToolButton>

namespace tallyframe::window {

TEST(time_columns_editor, moves_the_selected_format_with_its_buttons)
{
    time_columns_editor editor("Timeline times", "timelineColumnsTableView", true);
    editor.model().set_rows(time_column_rows({time_format::timecode}, {}));
    auto* down = editor.findChild<QToolButton*>("timelineColumnsTableViewMoveDownButton");
    auto* up = editor.findChild<QToolButton*>("timelineColumnsTableViewMoveUpButton");
    EXPECT_FALSE(down->isEnabled());
    auto* table = editor.findChild<QTableView*>("timelineColumnsTableView");
    table->setCurrentIndex(editor.model().index(0, 0));
    EXPECT_FALSE(up->isEnabled());
    down->click();
    down->click();
    up->click();
    EXPECT_EQ(editor.model().rows()[1].format, time_format::timecode);
    EXPECT_EQ(table->currentIndex().row(), 1);
}

} // namespace tallyframe::window
