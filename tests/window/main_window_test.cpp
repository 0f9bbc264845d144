// SPDX-License-Identifier: MIT
#include "cli/run.h"
#include "media_files/thumbnail_folder.h"
#include "run/gui_mode.h"
#include "support/xmeml_builder.h"
#include "window/main_menu.h"
#include "window/main_window_fixture.h"
#include "window/panels/layouts_editor.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QProcess>
#include <QTabBar>
#include <QTableView>
#include <sstream>

namespace tallyframe::window {

namespace {

using tallyframe::testing_support::clip;
using tallyframe::testing_support::xmeml;

namespace fs = std::filesystem;

const fs::path harbour_lights = fs::path(EXAMPLES) / "harbour-lights-fcp7.xml";
const fs::path night_market = fs::path(EXAMPLES) / "night-market-premiere.xml";

std::string two_sequences()
{
    return xmeml()
        .sequence("Reel 1", {.uuid = "one"})
        .video_track({clip("A").at(0, 50)})
        .video_track({clip("B").at(0, 50)})
        .sequence("Reel 2", {.uuid = "two"})
        .video_track({clip("C").at(0, 50)})
        .video_track({clip("D").at(0, 50)})
        .video_track({clip("E").at(0, 50)})
        .text();
}

} // namespace

TEST_F(main_window_test, starts_with_nothing_to_report_and_says_what_to_do)
{
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "Drop an exported timeline here");
    EXPECT_FALSE(find<QComboBox>("sequencesPopupMenu").isEnabled());
    EXPECT_FALSE(find<QAbstractButton>("analyzeButton").isEnabled());
    EXPECT_FALSE(find<QAbstractButton>("saveReportButton").isEnabled());
}

TEST_F(main_window_test, fits_a_small_screen)
{
    const QSize least = window->minimumSizeHint();
    EXPECT_LE(least.width(), 1240);
    EXPECT_LE(least.height(), 640);
    EXPECT_LE(window->width(), 1280);
    EXPECT_LE(window->height(), 690);
}

TEST_F(main_window_test, lists_what_a_project_holds_and_waits_for_a_choice)
{
    open(harbour_lights);
    const auto& menu = find<QComboBox>("sequencesPopupMenu");
    EXPECT_EQ(menu.count(), 4);
    EXPECT_EQ(menu.itemText(0), "Bin Clips");
    EXPECT_TRUE(menu.isEnabled());
    EXPECT_TRUE(find<QAbstractButton>("analyzeButton").isEnabled());
    EXPECT_EQ(rows_of("videoTracksTableView"), 0);
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "Choose what to report");
    choose(2);
    EXPECT_EQ(rows_of("videoTracksTableView"), 4);
    EXPECT_EQ(rows_of("audioTracksTableView"), 9);
    EXPECT_GT(rows_of("previewTableView"), 60);
    EXPECT_TRUE(find<QAbstractButton>("saveReportButton").isEnabled());
}

TEST_F(main_window_test, analyzes_the_only_sequence_at_once)
{
    open(night_market);
    EXPECT_EQ(rows_of("videoTracksTableView"), 4);
    EXPECT_EQ(rows_of("audioTracksTableView"), 6);
    EXPECT_TRUE(find<QLabel>("summaryLabel").text().contains("25 fps"));
    EXPECT_TRUE(find<QTableView>("previewTableView").isVisible());
}

TEST_F(main_window_test, analyzes_the_chosen_entry_by_its_position)
{
    open_text(two_sequences());
    find<QComboBox>("sequencesPopupMenu").setCurrentIndex(1);
    find<QAbstractButton>("analyzeButton").click();
    wait_for_run();
    EXPECT_EQ(rows_of("videoTracksTableView"), 3);
    EXPECT_EQ(window->runner().session().analysis.sequence_name, "Reel 2");
}

TEST_F(main_window_test, keeps_ticks_from_one_analysis_to_the_next_by_position)
{
    open_text(two_sequences());
    choose(0);
    tick("videoTracksTableView", 1, false);
    EXPECT_EQ(rows_of("previewTableView"), 1);
    choose(1);
    const QAbstractItemModel* tracks = find<QTableView>("videoTracksTableView").model();
    EXPECT_EQ(tracks->index(0, 0).data(Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(tracks->index(1, 0).data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_EQ(tracks->index(2, 0).data(Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(rows_of("previewTableView"), 2);
}

TEST_F(main_window_test, analyzes_anew_when_the_scope_changes)
{
    open(night_market);
    const int all_rows = rows_of("previewTableView");
    auto& buttons = find<QButtonGroup>("importVideoAudioRadioButtons");
    auto& skip = find<QCheckBox>("videoClipAudioCheckbox");
    skip.setChecked(true);
    buttons.button(1)->click();
    wait_for_run();
    EXPECT_LT(rows_of("previewTableView"), all_rows);
    EXPECT_FALSE(skip.isChecked());
    EXPECT_FALSE(skip.isEnabled());
    EXPECT_EQ(window->runner().session().import_video_audio_preference, report_scope::video);
    buttons.button(0)->click();
    wait_for_run();
    EXPECT_EQ(rows_of("previewTableView"), all_rows);
    EXPECT_TRUE(skip.isEnabled());
}

TEST_F(main_window_test, says_that_a_broken_document_is_broken_and_stays_usable)
{
    open(night_market);
    open_text(R"(<?xml version="1.0"?><xmeml version="5"><sequence)");
    EXPECT_EQ(alert(),
              std::pair(std::string("This XML file is incomplete or broken"),
                        std::string("Please export the XML file again.")));
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 0);
    EXPECT_EQ(rows_of("videoTracksTableView"), 0);
    EXPECT_EQ(rows_of("previewTableView"), 0);
    EXPECT_FALSE(find<QAbstractButton>("saveReportButton").isEnabled());
    open(night_market);
    EXPECT_EQ(alert().first, "");
    EXPECT_EQ(rows_of("videoTracksTableView"), 4);
}

TEST_F(main_window_test, says_that_a_file_is_no_timeline)
{
    open_text("");
    EXPECT_EQ(alert(),
              std::pair(std::string("This is not a Final Cut Pro XML file"),
                        std::string("Please choose an XML file exported from\nPremiere Pro CC or Final "
                                    "Cut Pro.")));
}

TEST_F(main_window_test, says_why_a_document_is_refused)
{
    std::string deep;
    for (int i = 0; i < 300; ++i)
        deep = "<bin>" + deep + "</bin>";
    open_text("<xmeml>" + deep + "</xmeml>");
    EXPECT_EQ(alert(),
              std::pair(std::string("This XML file cannot be opened"),
                        std::string("The document nests elements more than 256 deep. Please export a simpler "
                                    "sequence.")));
}

TEST_F(main_window_test, asks_to_report_an_unexpected_failure_of_the_catalogue)
{
    open_text(R"(<xmeml version="5"><sequence id="s"><uuid>one</uuid></sequence></xmeml>)");
    const auto [message, information] = alert();
    EXPECT_EQ(message, "There was a problem converting this XML");
    EXPECT_THAT(information,
                ::testing::StartsWith("Please zip up the XML file and email it with the subject "
                                      "“Tallyframe 1.0 error” to "));
    EXPECT_THAT(information, ::testing::EndsWith("\n\n\tThanks for helping us improve Tallyframe!"));
}

TEST_F(main_window_test, asks_to_report_a_failure_of_the_analysis)
{
    open_text(xmeml().sequence("Odd", {.timebase = 17}).video_track({clip("A")}).text());
    const auto [message, information] = alert();
    EXPECT_EQ(message, "There was a problem converting this XML");
    EXPECT_THAT(information, ::testing::HasSubstr("\n\n\tThis sequence has no timebase\n\n\t"));
    EXPECT_EQ(rows_of("videoTracksTableView"), 0);
    EXPECT_FALSE(find<QAbstractButton>("saveReportButton").isEnabled());
}

TEST_F(main_window_test, explains_a_document_without_anything_to_report)
{
    open_text("<other/>");
    EXPECT_EQ(alert().first, "");
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "There is nothing to report in this file");
    EXPECT_FALSE(find<QComboBox>("sequencesPopupMenu").isEnabled());
    EXPECT_FALSE(find<QAbstractButton>("analyzeButton").isEnabled());
}

TEST_F(main_window_test, shows_names_that_look_like_markup_as_they_are)
{
    open_text(xmeml().sequence("<b>Bold</b>", {}).video_track({clip("A")}).text());
    EXPECT_EQ(find<QLabel>("summaryLabel").textFormat(), Qt::PlainText);
    EXPECT_TRUE(find<QLabel>("summaryLabel").text().startsWith("<b>Bold</b>"));
}

TEST_F(main_window_test, opens_what_is_dropped_on_it)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(qt_path(night_market))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows_of("videoTracksTableView") == 4; }, patience));
}

TEST_F(main_window_test, previews_the_columns_of_the_chosen_layout)
{
    open(night_market);
    const int default_columns = find<QTableView>("previewTableView").model()->columnCount();
    find<QAbstractButton>("editLayoutsButton").click();
    auto& editor = find<layouts_editor>("layoutsEditor");
    editor.findChild<QAbstractButton*>("newLayoutButton")->click();
    editor.findChild<QCheckBox*>("Row Numbers")->click();
    editor.accept();
    QTest::qWait(1);
    EXPECT_EQ(find<QComboBox>("layoutsAppPopupMenu").itemText(0), "Default");
    EXPECT_EQ(find<QComboBox>("layoutsAppPopupMenu").currentText(), "New layout");
    EXPECT_EQ(find<QTableView>("previewTableView").model()->columnCount(), default_columns + 1);
}

TEST_F(main_window_test, brings_choices_and_layouts_back_at_the_next_start)
{
    find<QAbstractButton>("editLayoutsButton").click();
    auto& editor = find<layouts_editor>("layoutsEditor");
    editor.findChild<QAbstractButton*>("newLayoutButton")->click();
    editor.accept();
    find<QCheckBox>("summarySheetCheckbox").click();
    find<QComboBox>("markerRowColorPopup").setCurrentText("purple");
    find<QButtonGroup>("importVideoAudioRadioButtons").button(2)->click();
    open(night_market);
    start();
    EXPECT_EQ(find<QComboBox>("layoutsAppPopupMenu").currentText(), "New layout");
    EXPECT_FALSE(find<QCheckBox>("summarySheetCheckbox").isChecked());
    EXPECT_EQ(find<QComboBox>("markerRowColorPopup").currentText(), "purple");
    EXPECT_EQ(find<QButtonGroup>("importVideoAudioRadioButtons").checkedId(), 2);
    EXPECT_FALSE(find<QCheckBox>("videoClipAudioCheckbox").isEnabled());
    EXPECT_EQ(window->kept_choices().recent_documents.value(0), qt_path(night_market));
}

TEST_F(main_window_test, keeps_what_another_process_has_kept_meanwhile)
{
    const QString settings_path = settings->fileName();
    find<QCheckBox>("motionSheetCheckbox").click();
    settings->sync();
    ASSERT_EQ(
        QProcess::execute(QApplication::applicationFilePath(), {"--make-layout", settings_path, "Theirs"}),
        0);
    find<QCheckBox>("filtersSheetCheckbox").click();
    make_layout("Mine");
    EXPECT_EQ(find<QComboBox>("layoutsAppPopupMenu").count(), 3) << "the other's layout is here too";
    EXPECT_EQ(find<QComboBox>("layoutsAppPopupMenu").currentText(), "Mine");
    start();
    const auto& layouts = find<QComboBox>("layoutsAppPopupMenu");
    ASSERT_EQ(layouts.count(), 3);
    EXPECT_EQ(layouts.itemText(1), "Theirs");
    EXPECT_EQ(layouts.itemText(2), "Mine");
    EXPECT_FALSE(find<QCheckBox>("summarySheetCheckbox").isChecked()) << "switched off there";
    EXPECT_FALSE(find<QCheckBox>("motionSheetCheckbox").isChecked());
    EXPECT_FALSE(find<QCheckBox>("filtersSheetCheckbox").isChecked());
}

TEST_F(main_window_test, keeps_what_another_window_has_kept_meanwhile)
{
    QSettings other_settings(settings->fileName(), QSettings::IniFormat);
    main_window other(other_settings, out);
    make_layout("Mine");
    make_layout("Theirs", other);
    find<QCheckBox>("filtersSheetCheckbox").click();
    other.findChild<QCheckBox*>("motionSheetCheckbox")->click();
    start();
    EXPECT_EQ(find<QComboBox>("layoutsAppPopupMenu").count(), 3);
    EXPECT_FALSE(find<QCheckBox>("motionSheetCheckbox").isChecked());
    EXPECT_FALSE(find<QCheckBox>("filtersSheetCheckbox").isChecked());
}

TEST_F(main_window_test, saves_a_report_and_leads_to_it)
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

TEST_F(main_window_test, suggests_a_name_and_adds_the_suffix)
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

TEST_F(main_window_test, writes_the_bytes_that_the_command_line_writes)
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

TEST_F(main_window_test, says_in_words_why_a_report_could_not_be_saved)
{
    open(night_market);
    save(folder.path() / "no such folder" / "night.xls");
    const auto [message, information] = alert();
    EXPECT_EQ(message, "The report could not be saved");
    EXPECT_THAT(information, ::testing::HasSubstr("no such folder"));
    EXPECT_FALSE(find<QWidget>("savedBanner").isVisible());
    EXPECT_TRUE(find<QAbstractButton>("saveReportButton").isEnabled());
}

TEST_F(main_window_test, never_writes_over_the_timeline)
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

TEST_F(main_window_test, never_keeps_pictures_around_the_timeline)
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

TEST_F(main_window_test, leaves_an_older_workbook_alone_when_saving_is_cancelled)
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

TEST_F(main_window_test, ends_its_run_when_it_goes)
{
    open(night_market);
    window->save_report_as(qt_path(folder.path() / "night.xls"));
    window.reset();
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
        EXPECT_TRUE(entry.path().extension() == ".ini" || entry.path() == folder.path() / "night.xls")
            << entry.path();
}

TEST_F(main_window_test, tells_of_a_recent_document_that_is_gone)
{
    const fs::path document = write("gone.xml", two_sequences());
    open(document);
    fs::remove(document);
    emit find<main_menu>("mainMenu").document_chosen(qt_path(document));
    EXPECT_EQ(alert().first, "gone.xml is not there any more");
    EXPECT_TRUE(window->kept_choices().recent_documents.isEmpty());
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 2) << "what is open stays open";
}

TEST_F(main_window_test, keeps_ticks_when_an_analysis_is_cancelled)
{
    open_text(two_sequences());
    choose(0);
    tick("videoTracksTableView", 1, false);
    cancel_next_run();
    find<QAbstractButton>("analyzeButton").click();
    wait_for_run();
    find<QAbstractButton>("analyzeButton").click();
    wait_for_run();
    const QAbstractItemModel* tracks = find<QTableView>("videoTracksTableView").model();
    EXPECT_EQ(tracks->index(1, 0).data(Qt::CheckStateRole), Qt::Unchecked);
}

TEST_F(main_window_test, has_a_name_and_a_tip_for_every_control)
{
    int controls = 0;
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->focusPolicy() == Qt::NoFocus || qobject_cast<const QTabBar*>(button->parent()) != nullptr
            || qobject_cast<const QTableView*>(button->parent()) != nullptr
            || button->objectName().startsWith("qt_"))
            continue; // Qt's own
        ++controls;
        EXPECT_FALSE(button->toolTip().isEmpty())
            << button->metaObject()->className() << " " << button->objectName().toStdString()
            << button->text().toStdString();
        EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty())
            << button->objectName().toStdString();
    }
    for (const auto* popup : window->findChildren<QComboBox*>()) {
        ++controls;
        EXPECT_FALSE(popup->toolTip().isEmpty()) << popup->objectName().toStdString();
    }
    for (const auto* table : window->findChildren<QTableView*>()) {
        ++controls;
        EXPECT_FALSE(table->accessibleName().isEmpty()) << table->objectName().toStdString();
    }
    EXPECT_GT(controls, 35);
}

TEST_F(main_window_test, shows_the_beginning_of_names_of_megabytes)
{
    const std::string name(5'000'000, 'x');
    open_text(xmeml().sequence(name, {}).video_track({clip(name)}).text());
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").currentText().size(), 1001);
    EXPECT_LT(find<QLabel>("summaryLabel").text().size(), 1100);
    const auto& preview = find<QTableView>("previewTableView");
    EXPECT_EQ(preview.model()->index(0, 1).data().toString().size(), 1001);
    EXPECT_EQ(find<QLabel>("countsLabel").text(), "1 row, 33 columns");
}

} // namespace tallyframe::window
