// SPDX-License-Identifier: MIT
#include "support/xmeml_builder.h"
#include "window/main_window_fixture.h"
#include "window/panels/layouts_editor.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QTabBar>
#include <QTableView>

namespace tallyframe::window {

namespace {

using tallyframe::testing_support::clip;
using tallyframe::testing_support::xmeml;

namespace fs = std::filesystem;

const fs::path harbour_lights = fs::path(EXAMPLES) / "harbour-lights-fcp7.xml";
const fs::path night_market = fs::path(EXAMPLES) / "night-market-premiere.xml";

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

TEST_F(main_window_test, ends_its_run_when_it_goes)
{
    open(night_market);
    window->save_report_as(qt_path(folder.path() / "night.xls"));
    window.reset();
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
        EXPECT_TRUE(entry.path().extension() == ".ini" || entry.path() == folder.path() / "night.xls")
            << entry.path();
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
