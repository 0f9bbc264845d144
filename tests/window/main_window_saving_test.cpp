// SPDX-License-Identifier: MIT
// Reports on the way to the disk.
#include "cli/run.h"
#include "media_files/thumbnail_folder.h"
#include "run/gui_mode.h"
#include "window/main_window_fixture.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <sstream>

namespace tallyframe::window {

namespace {

namespace fs = std::filesystem;

const fs::path harbour_lights = fs::path(EXAMPLES) / "harbour-lights-fcp7.xml";
const fs::path night_market = fs::path(EXAMPLES) / "night-market-premiere.xml";

class main_window_saving : public main_window_test { };

} // namespace

TEST_F(main_window_saving, saves_a_report_and_leads_to_it)
{
    open(night_market);
    const fs::path workbook = folder.path() / "night.xls";
    window->save_report_as(qt_path(workbook));
    EXPECT_TRUE(find<QTableView>("previewTableView").isVisible()) << "while it is saved";
    wait_for_run();
    EXPECT_TRUE(find<QTableView>("previewTableView").isVisible()) << "and after";
    EXPECT_GT(fs::file_size(workbook), 10000U);
    EXPECT_TRUE(find<QWidget>("savedBanner").isVisible());
    EXPECT_EQ(find<QLabel>("savedText").text(), "Saved night.xls");
    EXPECT_TRUE(find<QAbstractButton>("openWorkbookButton").isVisible());
    EXPECT_TRUE(find<QAbstractButton>("showInFolderButton").isVisible());
}

TEST_F(main_window_saving, suggests_a_name_and_adds_the_suffix)
{
    open(harbour_lights);
    choose(2);
    find<QAbstractButton>("saveReportButton").click();
    auto& dialog = find<QFileDialog>("saveDialog");
    EXPECT_TRUE(dialog.selectedFiles().value(0).startsWith(QString(EXAMPLES) + "/harbour-lights-fcp7 - "));
    dialog.setDirectory(qt_path(folder.path()));
    dialog.selectFile("mine");
    dialog.findChild<QLineEdit*>()->setText("mine");
    QMetaObject::invokeMethod(&dialog, "accept");
    wait_for_run();
    EXPECT_TRUE(fs::exists(folder.path() / "mine.xls"));
}

TEST_F(main_window_saving, writes_the_bytes_that_the_command_line_writes)
{
    open(harbour_lights);
    choose(2);
    tick("videoTracksTableView", 3, false);
    find<QCheckBox>("motionSheetCheckbox").setChecked(false);
    find<QCheckBox>("enabledOnlyCheckbox").setChecked(true);
    find<QComboBox>("audioRowColorPopup").setCurrentText("navy");
    QAbstractItemModel* times = find<QTableView>("timelineColumnsTableView").model();
    times->setData(times->index(2, 0), Qt::Checked, Qt::CheckStateRole);
    times->setData(times->index(2, 1), 1, Qt::EditRole);
    save(folder.path() / "window.xls");

    std::ostringstream said;
    const int code = cli::run({"report", harbour_lights.string(), "-o", (folder.path() / "line.xls").string(),
                               "--item", "3", "--quiet", "--tracks", "V1,V2,V3,A1,A2,A3,A4,A5,A6,A7,A8,A9",
                               "--no-motion", "--enabled-only", "--audio-color", "navy", "--timeline-columns",
                               "Timecode,Frames", "--adjust", "Frames=+1"},
                              said, said);
    gui_mode = true;
    ASSERT_EQ(code, 0) << said.str();
    const std::string by_window = bytes_of(folder.path() / "window.xls");
    EXPECT_GT(by_window.size(), 10000U);
    EXPECT_EQ(by_window == bytes_of(folder.path() / "line.xls"), true);
}

TEST_F(main_window_saving, says_in_words_why_a_report_could_not_be_saved)
{
    open(night_market);
    save(folder.path() / "no such folder" / "night.xls");
    const auto [message, information] = alert();
    EXPECT_EQ(message, "The report could not be saved");
    EXPECT_THAT(information, ::testing::HasSubstr("no such folder"));
    EXPECT_FALSE(find<QWidget>("savedBanner").isVisible());
    EXPECT_TRUE(find<QAbstractButton>("saveReportButton").isEnabled());
}

TEST_F(main_window_saving, never_writes_over_the_timeline)
{
    open_text(two_sequences());
    choose(0);
    const std::string before = bytes_of(folder.path() / "document.xml");
    fs::create_symlink(folder.path() / "document.xml", folder.path() / "soft.xls");
    fs::create_hard_link(folder.path() / "document.xml", folder.path() / "hard.xls");
    fs::create_directory_symlink(folder.path(), folder.path() / "here");
    for (const char* name : {"document.xml", "soft.xls", "hard.xls", "here/document.xml"}) {
        save(folder.path() / name);
        EXPECT_EQ(
            alert(),
            std::pair(std::string("The report could not be saved"),
                      std::string("This is the timeline itself. Choose another name for the workbook.")))
            << name;
        EXPECT_EQ(bytes_of(folder.path() / name), before) << name;
    }
    EXPECT_TRUE(fs::is_symlink(folder.path() / "soft.xls"));
}

TEST_F(main_window_saving, never_keeps_pictures_around_the_timeline)
{
    fs::create_directory(place_of_thumbnails(folder.path() / "cut.xls"));
    const fs::path document = place_of_thumbnails(folder.path() / "cut.xls") / "document.xml";
    std::ofstream(document) << two_sequences();
    open(document);
    choose(0);
    find<QCheckBox>("inpointThumbnailsCheckbox").setChecked(true);
    find<QCheckBox>("keepThumbnailsCheckbox").setChecked(true);
    save(folder.path() / "cut.xls");
    EXPECT_EQ(alert(),
              std::pair(std::string("The report could not be saved"),
                        std::string("The pictures would be kept in the timeline's own folder. Choose another "
                                    "name for the workbook.")));
    EXPECT_FALSE(fs::exists(folder.path() / "cut.xls"));
}

TEST_F(main_window_saving, leaves_an_older_workbook_alone_when_saving_is_cancelled)
{
    open(night_market);
    const fs::path workbook = write("night.xls", "older");
    cancel_next_run();
    window->save_report_as(qt_path(workbook));
    wait_for_run();
    EXPECT_EQ(bytes_of(workbook), "older");
    EXPECT_FALSE(find<QWidget>("savedBanner").isVisible());
    EXPECT_EQ(alert().first, "");
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
        files += entry.path().extension() == ".ini" ? 0 : 1;
    EXPECT_EQ(files, 1) << "nothing is left behind";
    EXPECT_GT(rows_of("previewTableView"), 0) << "the preview is still there";
}

} // namespace tallyframe::window
