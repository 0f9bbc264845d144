// SPDX-License-Identifier: MIT
#include "media_files/thumbnail_folder.h"
#include "support/temporary_folder.h"
#include "window/models/qt_text.h"
#include "window/runs/obstacles.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

namespace tallyframe::window {

namespace {

namespace fs = std::filesystem;

std::string both(const std::optional<alert_texts>& obstacle)
{
    return obstacle ? (obstacle->message_text + " | " + obstacle->informative_text).toStdString() : "none";
}

std::string to_opening(const fs::path& path)
{
    return both(obstacle_to_opening(qt_path(path)));
}

std::string to_saving(const fs::path& workbook, const fs::path& document, const report_options& options = {})
{
    return both(obstacle_to_saving(qt_path(workbook), qt_path(document), options));
}

void touch(const fs::path& path)
{
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "<xmeml/>";
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

TEST(obstacle_to_dropping, is_anything_but_a_single_file_of_this_computer)
{
    const QUrl file = QUrl::fromLocalFile("/films/cut.xml");
    EXPECT_EQ(both(obstacle_to_dropping({file})), "none");
    EXPECT_EQ(both(obstacle_to_dropping({file, file})),
              "One timeline can be opened at a time | Drop a single XML file.");
    EXPECT_EQ(both(obstacle_to_dropping({})),
              "One timeline can be opened at a time | Drop a single XML file.");
    EXPECT_EQ(both(obstacle_to_dropping({QUrl("https://example.com/cut.xml")})),
              "This is not a file on this computer | Save it to a disk, then drop the file.");
}

TEST(obstacle_to_reopening, is_a_document_that_is_gone)
{
    const testing_support::temporary_folder folder;
    touch(folder.path() / "cut.xml");
    EXPECT_EQ(both(obstacle_to_reopening(qt_path(folder.path() / "cut.xml"))), "none");
    EXPECT_EQ(both(obstacle_to_reopening("/films/gone.xml")),
              "gone.xml is not there any more | It was here:\n/films/gone.xml\nIs its disk connected?");
}

TEST(obstacle_to_saving, is_the_timeline_in_the_workbooks_place)
{
    const testing_support::temporary_folder folder;
    const fs::path document = folder.path() / "cut.xml";
    touch(document);
    EXPECT_EQ(to_saving(folder.path() / "cut.xls", document), "none");
    EXPECT_EQ(to_saving(document, document),
              "The report could not be saved | This is the timeline itself. Choose another name for the "
              "workbook.");
}

TEST(obstacle_to_saving, is_the_timeline_among_the_pictures_where_those_are_kept)
{
    const testing_support::temporary_folder folder;
    const fs::path workbook = folder.path() / "cut.xls";
    const fs::path document = place_of_thumbnails(workbook) / "cut.xml";
    touch(document);
    report_options options;
    options.keep_thumbnails = true;
    EXPECT_EQ(to_saving(workbook, document, options), "none") << "there are no pictures";
    options.inpoint_thumbnail_jpegs = true;
    EXPECT_EQ(to_saving(workbook, document, options),
              "The report could not be saved | The pictures would be kept in the timeline's own folder. "
              "Choose another name for the workbook.");
    options.keep_thumbnails = false;
    EXPECT_EQ(to_saving(workbook, document, options), "none");
}

} // namespace tallyframe::window
