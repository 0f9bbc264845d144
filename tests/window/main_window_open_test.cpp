// SPDX-License-Identifier: MIT
// What is said about documents that cannot be opened, and about what an opened one lost.
#include "support/xmeml_builder.h"
#include "window/main_window_fixture.h"

#include <QButtonGroup>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>

namespace tallyframe::window {

namespace {

using testing::StartsWith;
using testing_support::clip;
using testing_support::xmeml;

namespace fs = std::filesystem;

class main_window_open : public main_window_test {
protected:
    void drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent dropped(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window.get(), &dropped);
        QTest::qWait(1);
        wait_for_run();
    }

    void expect_nothing_open()
    {
        EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 0);
        EXPECT_FALSE(find<QComboBox>("sequencesPopupMenu").isEnabled());
        EXPECT_FALSE(find<QAbstractButton>("analyzeButton").isEnabled());
        EXPECT_FALSE(find<QAbstractButton>("saveReportButton").isEnabled());
        EXPECT_TRUE(find<QAbstractButton>("openDocumentButton").isEnabled());
        EXPECT_EQ(rows_of("videoTracksTableView"), 0);
        EXPECT_EQ(rows_of("previewTableView"), 0);
        EXPECT_EQ(window->windowTitle(), "");
        EXPECT_TRUE(find<QAbstractButton>("openButton").isVisible());
    }

    const std::string one_sequence = xmeml()
                                         .sequence("Reel", {})
                                         .video_track({clip("A")})
                                         .video_track({clip("B")})
                                         .audio_track({clip("S")})
                                         .text();
};

} // namespace

TEST_F(main_window_open, says_that_a_file_is_not_there_and_keeps_what_is_open)
{
    open_text(one_sequence);
    open(folder.path() / "none.xml");
    EXPECT_EQ(alert(),
              std::pair(std::string("none.xml is not there"),
                        "It was looked for here:\n" + (folder.path() / "none.xml").string()
                            + "\nCheck the name, and whether its disk is connected."));
    EXPECT_EQ(rows_of("videoTracksTableView"), 2);
    EXPECT_EQ(window->windowTitle(), "document.xml");
}

TEST_F(main_window_open, says_that_a_folder_is_one)
{
    fs::create_directory(folder.path() / "Exports");
    const std::pair<std::string, std::string> texts("Exports is a folder",
                                                    "Choose the XML file of a timeline.");
    open(folder.path() / "Exports");
    EXPECT_EQ(alert(), texts);
    open(folder.path() / "Exports/");
    EXPECT_EQ(alert(), texts);
    drop({QUrl::fromLocalFile(qt_path(folder.path() / "Exports"))});
    EXPECT_EQ(alert(), texts);
    expect_nothing_open();
}

TEST_F(main_window_open, says_that_a_device_is_no_file)
{
    drop({QUrl::fromLocalFile("/dev/null")});
    EXPECT_EQ(
        alert(),
        std::pair(std::string("null is not a file"), std::string("Choose the XML file of a timeline.")));
}

TEST_F(main_window_open, refuses_what_is_dropped_and_is_no_single_file)
{
    drop({QUrl("https://example.com/cut.xml")});
    EXPECT_EQ(alert(),
              std::pair(std::string("This is not a file on this computer"),
                        std::string("Save it to a disk, then drop the file.")));
    const QUrl document = QUrl::fromLocalFile(qt_path(write("document.xml", one_sequence)));
    drop({document, document});
    EXPECT_EQ(alert(),
              std::pair(std::string("One timeline can be opened at a time"),
                        std::string("Drop a single XML file.")));
    expect_nothing_open();
    drop({document});
    EXPECT_EQ(rows_of("videoTracksTableView"), 2);
}

TEST_F(main_window_open, does_not_say_that_an_unread_document_is_empty)
{
    open_text(R"(<xmeml version="5"><sequence id="s"><uuid>one</uuid></sequence></xmeml>)");
    EXPECT_THAT(alert().first, StartsWith("There was a problem"));
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "document.xml could not be read");
    EXPECT_EQ(find<QLabel>("messageText").text(), "Export the sequence again, or open another file.");
    expect_nothing_open();
    open_text("<other/>");
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "There is nothing to report in this file");
}

TEST_F(main_window_open, can_be_cancelled_while_the_document_is_read)
{
    open_text(one_sequence);
    cancel_next_run();
    open_text(one_sequence);
    EXPECT_EQ(alert().first, "");
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "Drop an exported timeline here");
    expect_nothing_open();
    open_text(one_sequence);
    EXPECT_EQ(rows_of("videoTracksTableView"), 2);
}

TEST_F(main_window_open, tells_of_tracks_that_an_earlier_document_has_left_unticked)
{
    open_text(one_sequence);
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "3 rows, 33 columns");
    tick("videoTracksTableView", 1, false);
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "2 rows, 33 columns, 1 of 3 tracks left out");
    open(write("other.xml", one_sequence));
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "2 rows, 33 columns, 1 of 3 tracks left out");
    tick("videoTracksTableView", 1, true);
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "3 rows, 33 columns");
}

TEST_F(main_window_open, keeps_the_ticks_of_tracks_that_a_scope_leaves_out)
{
    open_text(one_sequence);
    auto& video_only = *find<QButtonGroup>("importVideoAudioRadioButtons").button(1);
    video_only.click();
    wait_for_run();
    EXPECT_EQ(rows_of("audioTracksTableView"), 0);
    tick("videoTracksTableView", 1, false);
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "1 row, 33 columns, 1 of 2 tracks left out");
    find<QButtonGroup>("importVideoAudioRadioButtons").button(0)->click();
    wait_for_run();
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "2 rows, 33 columns, 1 of 3 tracks left out");
}

TEST_F(main_window_open, tells_what_mending_took_from_the_document)
{
    std::string text = one_sequence;
    text.replace(text.find("<name>Reel"), 10, "<name>Re\xFFl");
    open_text(text);
    const auto& label = find<QLabel>("documentLosses");
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.text().toStdString(),
              "1 line of the document held bad characters and was mended (5).\n"
              "1 bad character was dropped from the document.");
    open_text(one_sequence);
    EXPECT_FALSE(label.isVisible());
}

TEST_F(main_window_open, tells_what_the_workbook_lost)
{
    open_text(xmeml().sequence("Reel", {}).video_track({clip(std::string(40'000, 'x'))}).text());
    save(folder.path() / "cut.xls");
    EXPECT_TRUE(find<QLabel>("savedLosses").isVisible());
    EXPECT_THAT(find<QLabel>("savedLosses").text().toStdString(),
                ::testing::HasSubstr("cut at the 32,767 characters that a cell takes (All Reels, row 2"));
}

} // namespace tallyframe::window
