// SPDX-License-Identifier: MIT
// What a window finds again: choices at the next start, ticks at the next analysis.
#include "window/main_window_fixture.h"
#include "window/panels/layouts_editor.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QProcess>
#include <QTableView>

namespace tallyframe::window {

namespace {

namespace fs = std::filesystem;

const fs::path night_market = fs::path(EXAMPLES) / "night-market-premiere.xml";

class main_window_kept : public main_window_test { };

} // namespace

TEST_F(main_window_kept, keeps_ticks_from_one_analysis_to_the_next_by_position)
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

TEST_F(main_window_kept, brings_choices_and_layouts_back_at_the_next_start)
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

TEST_F(main_window_kept, keeps_what_another_process_has_kept_meanwhile)
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

TEST_F(main_window_kept, keeps_what_another_window_has_kept_meanwhile)
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

TEST_F(main_window_kept, keeps_ticks_when_an_analysis_is_cancelled)
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

} // namespace tallyframe::window
