// SPDX-License-Identifier: MIT
#include "support/temporary_folder.h"
#include "window/models/qt_text.h"
#include "window/runs/failure_texts.h"
#include "writers/writer.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <new>

namespace tallyframe::window {

namespace {

namespace fs = std::filesystem;

std::string both(const alert_texts& texts)
{
    return (texts.message_text + " | " + texts.informative_text).toStdString();
}

std::string to_opening(const fs::path& path)
{
    const auto obstacle = obstacle_to_opening(qt_path(path));
    return obstacle ? both(*obstacle) : "none";
}

template <class Failure>
std::string after_saving(const Failure& failure)
{
    return both(texts_for_saving(std::make_exception_ptr(failure)));
}

} // namespace

TEST(obstacle_to_opening, is_whatever_cannot_be_read_as_a_file)
{
    const testing_support::temporary_folder folder;
    const fs::path document = folder.path() / "cut.xml";
    EXPECT_EQ(to_opening(document),
              "cut.xml is not there | It was looked for here:\n" + document.string()
                  + "\nCheck the name, and whether its disk is connected.");
    std::ofstream(document) << "<xmeml/>";
    EXPECT_EQ(to_opening(document), "none");
    EXPECT_EQ(to_opening(folder.path() / ""),
              folder.path().filename().string() + " is a folder | Choose the XML file of a timeline.");
    EXPECT_EQ(to_opening("/"), "/ is a folder | Choose the XML file of a timeline.");
    EXPECT_EQ(to_opening("/dev/null"), "null is not a file | Choose the XML file of a timeline.");
}

TEST(obstacle_to_opening, is_a_file_that_its_owner_keeps_closed)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the superuser reads all files";
    const testing_support::temporary_folder folder;
    const fs::path document = folder.path() / "cut.xml";
    std::ofstream(document) << "<xmeml/>";
    fs::permissions(document, fs::perms::none);
    EXPECT_EQ(to_opening(document),
              "You may not read cut.xml | Ask its owner for the permission, or for a copy.");
}

TEST(texts_for_saving, tell_what_helps_against_a_sheet_that_is_too_long)
{
    EXPECT_EQ(after_saving(sheet_too_long("Filters", "The sheet \"Filters\" has 70000 rows.")),
              "The report could not be saved | The sheet \"Filters\" has 70000 rows.\n"
              "Tick fewer tracks, or leave that sheet out on the page \"Content\".");
    EXPECT_EQ(after_saving(sheet_too_long("All Reels", "The sheet \"All Reels\" has 70000 rows.")),
              "The report could not be saved | The sheet \"All Reels\" has 70000 rows.\n"
              "Tick fewer tracks, or report enabled clips only.");
}

TEST(texts_for_saving, are_the_sentence_of_the_failure_or_what_the_machine_lacks)
{
    EXPECT_EQ(after_saving(failure("The disk is full.")),
              "The report could not be saved | The disk is full.");
    EXPECT_EQ(after_saving(std::bad_alloc()), "The report could not be saved | There is not enough memory.");
}

TEST(texts_for_saving, ask_to_report_what_nobody_expected)
{
    const std::string texts = after_saving(std::logic_error("vector::at"));
    EXPECT_TRUE(texts.starts_with("There was a problem converting this XML | Please zip up the XML file"))
        << texts;
    EXPECT_NE(texts.find("\n\n\tvector::at\n\n\t"), std::string::npos) << texts;
}

} // namespace tallyframe::window
