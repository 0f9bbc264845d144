// SPDX-License-Identifier: MIT
// Where a report may be written: never over the document, and nowhere when that would fail.
#include "cli/command_runs.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tallyframe::cli {

namespace {

namespace fs = std::filesystem;

using testing_support::content_of;
using testing_support::scratch_folder;
using testing_support::write_file;

} // namespace

TEST(report, never_replaces_the_document)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    fs::create_symlink("cut.xml", "link.xls");
    fs::create_hard_link("cut.xml", "twin.xls");
    for (const char* name : {"cut.xml", "link.xls", "twin.xls"}) {
        const outcome result = run_with({"report", "cut.xml", "-o", name});
        EXPECT_EQ(result.code, wrong_usage);
        EXPECT_EQ(result.err,
                  "tallyframe: The workbook \"" + std::string(name)
                      + "\" would replace the document itself. Choose another name with -o.\n");
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(content_of("cut.xml"), one_sequence);
    }
}

TEST(report, never_replaces_a_document_that_has_a_workbooks_name)
{
    const scratch_folder folder;
    write_file("cut.xls", one_sequence);
    fs::create_directory("out");
    write_file("out/list.xls", one_sequence);
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"report", "cut.xls"}, "cut.xls"},
        {{"report", "./cut.xls", "-o", "."}, "./cut.xls"},
        {{"report", "out/list.xls", "-o", "out"}, "out/list.xls"},
    };
    for (const auto& [arguments, name] : cases) {
        const outcome result = run_with(arguments);
        EXPECT_EQ(result.code, wrong_usage);
        EXPECT_EQ(result.err,
                  "tallyframe: The workbook \"" + name
                      + "\" would replace the document itself. Choose another name with -o.\n");
    }
    EXPECT_EQ(content_of("cut.xls"), one_sequence);
    EXPECT_EQ(content_of("out/list.xls"), one_sequence);
}

TEST(report, never_replaces_the_document_with_the_workbook_of_one_of_its_entries)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    fs::create_symlink("cut.xml", "cut - Reel 2.xls");
    const outcome result = run_with({"report", "cut.xml", "--all"});
    EXPECT_EQ(result.code, wrong_usage);
    EXPECT_EQ(
        result.err,
        "tallyframe: The workbook \"cut - Reel 2.xls\" would replace the document itself. Choose another "
        "name with -o.\n");
    EXPECT_EQ(content_of("cut.xml"), bins_and_two_sequences);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut - Reel 2.xls", "cut.xml"}));
}

TEST(report, keeps_no_thumbnails_around_the_document)
{
    const scratch_folder folder;
    fs::create_directory("cut thumbnails");
    write_file("cut thumbnails/0002 Shot.jpg", one_sequence);
    const outcome result = run_with(
        {"report", "cut thumbnails/0002 Shot.jpg", "-o", "cut.xls", "--thumbnails", "--keep-thumbnails"});
    EXPECT_EQ(result.code, wrong_usage);
    EXPECT_EQ(
        result.err,
        "tallyframe: The document lies in \"cut thumbnails\", where the thumbnails of this report are kept. "
        "Choose another name for the workbook with -o.\n");
    EXPECT_EQ(content_of("cut thumbnails/0002 Shot.jpg"), one_sequence);
}

TEST(report, is_refused_a_place_that_takes_no_workbook_before_the_document_is_read)
{
    const scratch_folder folder;
    fs::create_directory("folder.xls");
    write_file("locked.xls", "old");
    fs::permissions("locked.xls", fs::perms{0444});
    write_file("locked thumbnails", "");
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"-o", "no/such/cut.xls"},
         "The workbook \"no/such/cut.xls\" was not saved: its folder does not exist. Choose another folder."},
        {{"-o", "no/such/cut.xls", "--all"},
         "The workbook \"no/such/cut - ….xls\" was not saved: its folder does not exist. Choose another "
         "folder."},
        {{"-o", "locked.xls"},
         "The workbook \"locked.xls\" was not saved: there is a file of this name that is read-only. Choose "
         "another name or unlock the file."},
        {{"-o", "/dev/null"},
         "The workbook \"/dev/null\" was not saved: there is something of this name that is not a file. "
         "Choose "
         "another name."},
        {{"-o", std::string(300, 'x')},
         "The workbook \"" + std::string(300, 'x')
             + "\" was not saved: its name is too long. Choose a shorter name."},
        {{"-o", "locked", "--thumbnails", "--keep-thumbnails"},
         "The report was not saved. Its thumbnails cannot be kept in \""
             + (fs::current_path() / "locked thumbnails").string()
             + "\": there is a file of this name. Move it, or choose another name for the workbook."},
    };
    for (const auto& [flags, sentence] : cases) {
        std::vector<std::string> arguments = {"report", "nowhere.xml"};
        arguments.insert(arguments.end(), flags.begin(), flags.end());
        const outcome result = run_with(arguments);
        EXPECT_EQ(result.code, failed);
        EXPECT_EQ(result.err, "tallyframe: " + sentence + "\n");
    }
    EXPECT_EQ(folder.files(), std::vector<std::string>({"folder.xls", "locked thumbnails", "locked.xls"}));
}

TEST(report, leaves_nothing_behind_when_the_document_fails)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence.substr(0, 300));
    EXPECT_EQ(run_with({"report", "cut.xml", "--thumbnails", "--keep-thumbnails"}).code, failed);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml"}));
}

} // namespace tallyframe::cli
