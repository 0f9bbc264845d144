// SPDX-License-Identifier: MIT
#include "window/panels/save_dialog.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace tallyframe::window {

TEST(suggested_workbook, lies_beside_the_document_at_first)
{
    EXPECT_EQ(suggested_workbook("/films/night/cut.v3.xml", "", ""), "/films/night/cut.v3.xls");
    EXPECT_EQ(suggested_workbook("/films/night/cut.xml", "", "/gone/for/good"), "/films/night/cut.xls");
}

TEST(suggested_workbook, lies_where_the_last_one_was_saved)
{
    const QTemporaryDir folder;
    EXPECT_EQ(suggested_workbook("/films/cut.xml", "", folder.path()), folder.filePath("cut.xls"));
}

TEST(suggested_workbook, tells_which_of_several_entries_it_reports)
{
    EXPECT_EQ(suggested_workbook("/films/cut.xml", "Reel 1", ""), "/films/cut - Reel 1.xls");
    EXPECT_EQ(suggested_workbook("/films/cut.xml", "A/B: \"temp\"", ""), "/films/cut - A-B- -temp-.xls");
    EXPECT_EQ(suggested_workbook("/films/cut.xml", QString(300, 'x'), "").size(), 117);
}

} // namespace tallyframe::window
