// SPDX-License-Identifier: MIT
#include "cli/report_paths.h"
#include "sequence_to_spreadsheet/file_name_part.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tallyframe::cli {

TEST(report_path, is_the_documents_name_in_the_current_folder)
{
    EXPECT_EQ(report_path("/far/away/cut.v2.xml", {}), "cut.v2.xls");
}

TEST(report_path, goes_into_a_folder_that_exists)
{
    const testing_support::temporary_folder folder;
    EXPECT_EQ(report_path("cut.xml", folder.path()), folder / "cut.xls");
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
    EXPECT_EQ(file_name_part(std::string(500, 'x')), std::string(100, 'x'));
    std::string title;
    for (int i = 0; i < 500; ++i)
        title += "😀";
    EXPECT_EQ(file_name_part(title, 1000).size(), 400U);
    EXPECT_EQ(file_name_part(title).size(), 252U) << "disks take 255 bytes";
}

TEST(file_name_part, keeps_whole_characters_within_the_bytes_that_there_are)
{
    EXPECT_EQ(file_name_part("日本語", 9), "日本語");
    EXPECT_EQ(file_name_part("日本語", 8), "日本");
    EXPECT_EQ(file_name_part("A  日本語", 4), "A") << "no blank at the end";
}

TEST(entry_file_name, leaves_what_disks_take_as_it_is)
{
    EXPECT_EQ(entry_file_name("cut", "Reel 1"), "cut - Reel 1");
    const std::string name(150, 'n');
    const std::string title(91, 't');
    EXPECT_EQ(entry_file_name(name, title), name + " - " + title) << "244 bytes, and \" thumbnails\"";
}

TEST(entry_file_name, cuts_the_title_first_and_then_the_name)
{
    std::string japanese;
    for (int i = 0; i < 100; ++i)
        japanese += "語";
    EXPECT_EQ(entry_file_name("cut", japanese).size(), 6U + 79 * 3);
    EXPECT_EQ(entry_file_name("cut", japanese, " 2").size(), 6U + 78 * 3 + 2);
    const std::string name(250, 'n');
    EXPECT_EQ(entry_file_name(name, "Reel 1"), std::string(100, 'n') + " - Reel 1");
    EXPECT_EQ(entry_file_name(japanese, japanese).size(), 47 * 3 + 3 + 33 * 3U);
}

TEST(report_paths, gives_names_that_every_disk_takes)
{
    std::string title;
    for (int i = 0; i < 100; ++i)
        title += "語";
    const std::string document = title.substr(0, 246) + ".xml";
    for (const char* output : {"list.xls", "list", "list.a longer ending"}) {
        report_paths paths(document, output);
        for (int i = 0; i < 12; ++i) {
            const std::filesystem::path path = paths.next(title);
            EXPECT_LE(path.filename().string().size(), 255U);
            EXPECT_LE(path.stem().string().size() + std::string(" thumbnails").size(), 255U);
        }
    }
    EXPECT_LE(report_paths(document, {}).next(title).string().size(), 255U);
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
