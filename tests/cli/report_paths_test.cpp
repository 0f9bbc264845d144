// SPDX-License-Identifier: MIT
#include "cli/report_paths.h"
#include "sequence_to_spreadsheet/file_name_part.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tallyframe::cli {

TEST(report_path, is_the_documents_name_in_the_current_folder)
{
    EXPECT_EQ(report_path("/far/away/cut.v2.xml", {}), "cut.v2.xls");
}

TEST(report_path, goes_into_a_folder_that_exists)
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    EXPECT_EQ(report_path("cut.xml", folder), folder / "cut.xls");
    EXPECT_EQ(report_path("cut.xml", "list.xls"), "list.xls");
}

TEST(file_name_part, replaces_what_no_file_name_may_hold)
{
    EXPECT_EQ(file_name_part("A/B\\C:D*E?F\"G<H>I|J"), "A-B-C-D-E-F-G-H-I-J");
    EXPECT_EQ(file_name_part("two\nlines\t"), "two-lines-");
    EXPECT_EQ(file_name_part("  Årsrevy …  "), "Årsrevy …");
    EXPECT_EQ(file_name_part("ends with dots..."), "ends with dots");
}

TEST(file_name_part, is_never_empty_nor_a_folder_of_its_own)
{
    EXPECT_EQ(file_name_part(""), "Untitled");
    EXPECT_EQ(file_name_part(".."), "Untitled");
    EXPECT_EQ(file_name_part("../../etc/passwd"), "..-..-etc-passwd");
}

TEST(file_name_part, keeps_a_hundred_characters_of_a_long_title)
{
    std::string title;
    for (int i = 0; i < 500; ++i)
        title += "😀";
    EXPECT_EQ(file_name_part(title).size(), 400U);
}

TEST(report_paths, never_gives_one_path_twice)
{
    report_paths paths("cut.xml", "out/list.xls");
    EXPECT_EQ(paths.next("Reel 1"), "out/list - Reel 1.xls");
    EXPECT_EQ(paths.next("REEL 1"), "out/list - REEL 1 2.xls");
    EXPECT_EQ(paths.next("Reel 1 2"), "out/list - Reel 1 2 2.xls");
    EXPECT_EQ(paths.next("Reel 1"), "out/list - Reel 1 3.xls");
}

} // namespace tallyframe::cli
