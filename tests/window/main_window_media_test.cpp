// SPDX-License-Identifier: MIT
#include "cli/run.h"
#include "run/gui_mode.h"
#include "support/made_media.h"
#include "support/xmeml_builder.h"
#include "window/desktop/asked_desktop.h"
#include "window/main_window_fixture.h"
#include "window/models/media_places_model.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>

namespace tallyframe::window {

namespace {

using testing_support::clip;
using testing_support::made_media;
using testing_support::xmeml;

namespace fs = std::filesystem;

constexpr const char* title = "Lantern waltz"; ///< in the tags of the song

class main_window_media : public main_window_test {
protected:
    main_window_media()
    {
        media.film("film.mov", "25", 50, {"-c:v", "mjpeg", "-q:v", "3"});
        media.make("song.mp3",
                   {"-f", "lavfi", "-i", "sine=duration=0.2", "-metadata", std::string("title=") + title});
        fs::create_directory(desk);
        fs::create_directory(temporary);
        qputenv("TMPDIR", temporary.c_str());
    }

    ~main_window_media() override { qunsetenv("TMPDIR"); }

    /// A cut whose media has moved; with as many clips as asked.
    static std::string cut(std::int64_t clips)
    {
        std::vector<testing_support::track_item> items;
        items.reserve(static_cast<std::size_t>(clips));
        for (std::int64_t i = 0; i < clips; ++i) {
            items.emplace_back(clip("Clip")
                                   .at(i * 10, i * 10 + 10)
                                   .in_out(i % 40, i % 40 + 10)
                                   .file({.path = "/Volumes/Rushes/film.mov"}));
        }
        return xmeml()
            .sequence("Reel", {})
            .video_track(items)
            .audio_track({clip("Song").at(0, 5).file({.path = "/Volumes/Music/song.mp3"})})
            .text();
    }

    void want_pictures(const QString& width)
    {
        find<QCheckBox>("inpointThumbnailsCheckbox").setChecked(true);
        find<QComboBox>("thumbnailWidthPopup").setEditText(width);
    }

    media_places_model& places()
    {
        return dynamic_cast<media_places_model&>(*find<QTableView>("mediaPlacesTableView").model());
    }

    /// Writes line.xls on the desk.
    void report_by_command_line(const fs::path& document, const std::vector<std::string>& options) const
    {
        std::vector<std::string> arguments = {"report", document.string(), "-o", (desk / "line.xls").string(),
                                              "--quiet"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        std::ostringstream said;
        const int code = cli::run(arguments, said, said);
        gui_mode = true;
        ASSERT_EQ(code, 0) << said.str();
    }

    static std::vector<std::string> left_on(const fs::path& place)
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(place))
            names.push_back(entry.path().filename().string());
        return names;
    }

    made_media media;
    fs::path desk = folder.path() / "desk";
    fs::path temporary = folder.path() / "tmp";
};

} // namespace

TEST_F(main_window_media, writes_the_pictures_and_tags_that_the_command_line_writes)
{
    const fs::path document = write("cut.xml", cut(5));
    open(document);
    want_pictures("200");
    places().add(qt_path(media.folder()));
    save(desk / "window.xls");

    report_by_command_line(document, {"--thumbnails=200", "--media-search", media.folder().string()});
    const std::string by_window = bytes_of(desk / "window.xls");
    EXPECT_TRUE(by_window == bytes_of(desk / "line.xls"));
    EXPECT_TRUE(by_window.find("JFIF") != std::string::npos) << "a picture";
    EXPECT_TRUE(by_window.find(title) != std::string::npos);
    EXPECT_THAT(left_on(temporary), ::testing::IsEmpty());
    EXPECT_EQ(left_on(desk).size(), 2U);
}

TEST_F(main_window_media, finds_media_below_the_folder_that_stands_for_one_of_the_timeline)
{
    const fs::path document = write("cut.xml", cut(1));
    open(document);
    want_pictures("160");
    places().add(qt_path(media.folder()));
    places().setData(places().index(0, 0), "/Volumes/Rushes", Qt::EditRole);
    save(desk / "window.xls");
    report_by_command_line(document,
                           {"--thumbnails=160", "--media-map", "/Volumes/Rushes=" + media.folder().string()});
    const std::string by_window = bytes_of(desk / "window.xls");
    EXPECT_TRUE(by_window == bytes_of(desk / "line.xls"));
    EXPECT_TRUE(by_window.find(title) == std::string::npos) << "the song is elsewhere";
}

TEST_F(main_window_media, checks_media_as_the_command_line_does)
{
    const fs::path document = write("cut.xml", cut(5));
    open(document);
    places().add(qt_path(media.folder()));
    find<QCheckBox>("mediaSheetCheckbox").setChecked(true);
    save(desk / "window.xls");
    report_by_command_line(document, {"--media-sheet", "--media-search", media.folder().string()});
    const std::string by_window = bytes_of(desk / "window.xls");
    EXPECT_TRUE(by_window == bytes_of(desk / "line.xls"));
    EXPECT_TRUE(by_window.find("Media Check") != std::string::npos);
}

TEST_F(main_window_media, tells_of_a_folder_that_stands_for_none_of_the_timeline)
{
    open(write("cut.xml", cut(1)));
    places().add(qt_path(media.folder()));
    places().setData(places().index(0, 0), "/Volumes/Elsewhere", Qt::EditRole);
    save(desk / "window.xls");
    EXPECT_THAT(
        find<QLabel>("savedLosses").text().toStdString(),
        ::testing::HasSubstr("1 mapping of media folders fits no file of the document (/Volumes/Elsewhere="
                             + media.folder().string() + ")."));
}

TEST_F(main_window_media, keeps_the_pictures_beside_the_workbook_and_opens_their_folder)
{
    asked_desktop desktop;
    open(write("cut.xml", cut(3)));
    want_pictures("160");
    find<QCheckBox>("keepThumbnailsCheckbox").setChecked(true);
    save(desk / "Reel.xls");
    EXPECT_THAT(left_on(desk / "Reel thumbnails"),
                ::testing::UnorderedElementsAre("0003 Clip.jpg", "0004 Clip.jpg", "0005 Clip.jpg"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !desktop.opened.isEmpty(); }, patience));
    EXPECT_EQ(desktop.opened, QStringList{qt_path(desk / "Reel thumbnails")});
}

TEST_F(main_window_media, leaves_nothing_when_saving_is_cancelled)
{
    open(write("cut.xml", cut(2000)));
    places().add(qt_path(media.folder()));
    want_pictures("1920");
    for (const bool kept : {false, true}) {
        find<QCheckBox>("keepThumbnailsCheckbox").setChecked(kept);
        window->save_report_as(qt_path(desk / "Reel.xls"));
        const fs::path place = kept ? desk : temporary;
        ASSERT_TRUE(QTest::qWaitFor([&] { return !left_on(place).empty(); }, patience));
        find<QAbstractButton>("cancelButton").click();
        wait_for_run();
        EXPECT_THAT(left_on(desk), ::testing::IsEmpty());
        EXPECT_THAT(left_on(temporary), ::testing::IsEmpty());
        EXPECT_FALSE(find<QWidget>("savedBanner").isVisible());
    }
}

TEST_F(main_window_media, offers_the_choices_of_pictures_with_the_pictures)
{
    auto& wanted = find<QCheckBox>("inpointThumbnailsCheckbox");
    EXPECT_FALSE(find<QCheckBox>("keepThumbnailsCheckbox").isEnabled());
    EXPECT_FALSE(find<QComboBox>("thumbnailWidthPopup").isEnabled());
    wanted.click();
    EXPECT_TRUE(find<QCheckBox>("keepThumbnailsCheckbox").isEnabled());
    const auto& widths = find<QComboBox>("thumbnailWidthPopup");
    EXPECT_TRUE(widths.isEnabled());
    EXPECT_EQ(widths.currentText(), "320");
    EXPECT_EQ(widths.itemText(0), "160");
    EXPECT_EQ(widths.itemText(2), "640");
    open(write("cut.xml", cut(1)));
    const int columns = find<QTableView>("previewTableView").model()->columnCount();
    wanted.click();
    QTest::qWait(1);
    EXPECT_EQ(find<QTableView>("previewTableView").model()->columnCount(), columns - 1);
}

TEST_F(main_window_media, takes_any_width_within_the_bounds_and_none_beyond)
{
    find<QCheckBox>("inpointThumbnailsCheckbox").setChecked(true);
    auto& widths = find<QComboBox>("thumbnailWidthPopup");
    widths.setEditText("777");
    EXPECT_EQ(window->kept_choices().options.thumbnail_width, 777);
    widths.lineEdit()->selectAll();
    QTest::keyClicks(widths.lineEdit(), "5");
    EXPECT_EQ(window->kept_choices().options.thumbnail_width, 777) << "still being typed";
    QTest::keyClick(widths.lineEdit(), Qt::Key_Return);
    EXPECT_EQ(widths.currentText(), "16");
    EXPECT_EQ(window->kept_choices().options.thumbnail_width, 16);
}

TEST_F(main_window_media, brings_the_choices_of_pictures_and_places_back_at_the_next_start)
{
    want_pictures("480");
    find<QCheckBox>("keepThumbnailsCheckbox").setChecked(true);
    find<QAbstractButton>("addMediaPlaceButton").click();
    auto& dialog = find<QFileDialog>("mediaFolderDialog");
    emit dialog.fileSelected(qt_path(media.folder()));
    dialog.close();
    start();
    EXPECT_TRUE(find<QCheckBox>("inpointThumbnailsCheckbox").isChecked());
    EXPECT_TRUE(find<QCheckBox>("keepThumbnailsCheckbox").isChecked());
    EXPECT_EQ(find<QComboBox>("thumbnailWidthPopup").currentText(), "480");
    EXPECT_THAT(places().places(), ::testing::ElementsAre(media_place{"", media.folder().string()}));
}

} // namespace tallyframe::window
