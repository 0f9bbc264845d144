// SPDX-License-Identifier: MIT
// What a user reaches, and how: menus, shortcuts, the Tab key, dialogs, the desktop.
#include "window/desktop/asked_desktop.h"
#include "window/main_window_fixture.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTimer>

namespace tallyframe::window {

namespace {

class main_window_reach : public main_window_test {
protected:
    const std::filesystem::path example = std::filesystem::path(EXAMPLES) / "night-market-premiere.xml";

    void activate()
    {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// The action of a menu whose text holds this.
    QAction* action(const QString& text)
    {
        for (QAction* entry : window->findChildren<QAction*>()) {
            if (entry->text().remove('&').contains(text))
                return entry;
        }
        return nullptr;
    }

    /// Presses a button of the question that the save dialog is about to ask. Counts the questions.
    void answer_next_question(QMessageBox::StandardButton button, int& questions)
    {
        auto* asked = new QTimer(window.get());
        QObject::connect(asked, &QTimer::timeout, asked, [asked, button, &questions] {
            if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                asked->deleteLater();
                ++questions;
                question->button(button)->click();
            }
        });
        asked->start(5);
    }
};

} // namespace

TEST_F(main_window_reach, opens_a_document_by_its_shortcut_and_again_from_the_recent_ones)
{
    activate();
    QTest::keySequence(window.get(), QKeySequence::Open);
    emit find<QFileDialog>("openDialog").fileSelected(qt_path(example));
    wait_for_run();
    EXPECT_EQ(rows_of("videoTracksTableView"), 4);
    start();
    EXPECT_EQ(rows_of("videoTracksTableView"), 0);
    QAction* recent = action("night-market-premiere.xml");
    ASSERT_NE(recent, nullptr);
    recent->trigger();
    wait_for_run();
    EXPECT_EQ(rows_of("videoTracksTableView"), 4);
}

TEST_F(main_window_reach, asks_once_before_it_writes_over_a_workbook)
{
    open(example);
    const std::filesystem::path workbook = write("night.xls", "older");
    int questions = 0;
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        find<QAbstractButton>("saveReportButton").click();
        const QPointer<QFileDialog> dialog = &find<QFileDialog>("saveDialog");
        dialog->setDirectory(qt_path(folder.path()));
        dialog->findChild<QLineEdit*>()->setText("night");
        answer_next_question(answer, questions);
        QMetaObject::invokeMethod(dialog, "accept");
        wait_for_run();
        EXPECT_EQ(bytes_of(workbook) == "older", answer == QMessageBox::No);
        delete dialog; // it stays open where the answer was no
    }
    EXPECT_EQ(questions, 2) << "one for each time that it is saved";
    EXPECT_EQ(find<QLabel>("savedText").text(), "Saved night.xls");
}

TEST_F(main_window_reach, opens_the_workbook_and_its_folder)
{
    const asked_desktop desktop;
    open(example);
    save(folder.path() / "night.xls");
    find<QAbstractButton>("openWorkbookButton").click();
    find<QAbstractButton>("showInFolderButton").click();
    EXPECT_EQ(desktop.opened, (QStringList{qt_path(folder.path() / "night.xls"), qt_path(folder.path())}));
    EXPECT_EQ(alert().first, "");
}

TEST_F(main_window_reach, comes_to_every_control_with_the_tab_key)
{
    open(example);
    activate();
    find<QCheckBox>("inpointThumbnailsCheckbox").setChecked(true);
    QSet<QString> reached;
    auto& pages = find<QTabWidget>("optionsTabs");
    for (int page = 0; page < pages.count(); ++page) {
        pages.setCurrentIndex(page);
        for (int step = 0; step < 60; ++step) {
            QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window.get(),
                            Qt::Key_Tab);
            if (window->focusWidget() != nullptr)
                reached << window->focusWidget()->objectName();
        }
    }
    for (const char* name : {"openDocumentButton",
                             "sequencesPopupMenu",
                             "analyzeButton",
                             "saveReportButton",
                             "videoTracksTableView",
                             "audioTracksTableView",
                             "videoTracksTableViewTickAllButton",
                             "previewTableView",
                             "enabledOnlyCheckbox",
                             "videoClipAudioCheckbox",
                             "markersSheetsCheckbox",
                             "reelSheetsCheckbox",
                             "layoutsAppPopupMenu",
                             "editLayoutsButton",
                             "timelineColumnsTableView",
                             "sourceColumnsTableView",
                             "videoRowColorPopup",
                             "markerRowColorPopup",
                             "inpointThumbnailsCheckbox",
                             "keepThumbnailsCheckbox",
                             "thumbnailWidthPopup",
                             "mediaPlacesTableView",
                             "addMediaPlaceButton"}) {
        EXPECT_TRUE(reached.contains(name)) << name;
    }
}

TEST_F(main_window_reach, shows_the_times_that_are_chosen_in_the_preview)
{
    open(example);
    const QAbstractItemModel* preview = find<QTableView>("previewTableView").model();
    const auto headers = [&] {
        QStringList texts;
        for (int column = 0; column < preview->columnCount(); ++column)
            texts << preview->headerData(column, Qt::Horizontal).toString();
        return texts;
    };
    EXPECT_EQ(headers().count("Clip Duration"), 1);
    QAbstractItemModel* times = find<QTableView>("timelineColumnsTableView").model();
    times->setData(times->index(2, 0), Qt::Checked, Qt::CheckStateRole);
    times->setData(times->index(2, 1), -2, Qt::EditRole);
    QAbstractItemModel* source_times = find<QTableView>("sourceColumnsTableView").model();
    source_times->setData(source_times->index(4, 0), Qt::Checked, Qt::CheckStateRole);
    QTest::qWait(1);
    EXPECT_EQ(headers().count("Clip Duration"), 2);
    EXPECT_EQ(headers().count("Source In"), 2);
    EXPECT_TRUE(headers().contains("Sequence In"));
    EXPECT_TRUE(headers().contains("Sequence In -2"));
    EXPECT_EQ(preview->index(1, static_cast<int>(headers().indexOf("Sequence In -2"))).data().toString(),
              "900,198");
}

TEST_F(main_window_reach, explains_itself)
{
    activate();
    QTest::keySequence(window.get(), QKeySequence::HelpContents);
    const QString guide = find<QDialog>("guide").findChild<QTextBrowser*>()->toPlainText();
    for (const char* option :
         {"Enabled clips only", "Skip audio of video clips", "Exact figures", "Markers", "Graphics & Titles",
          "Transitions", "Filters", "Motion Effects", "Files Summary", "Reels", "Layout", "Timeline times",
          "Source times", "Add frames", "Row colors", "Pictures", "Media that has moved"}) {
        EXPECT_TRUE(guide.contains(option)) << option;
    }
    EXPECT_TRUE(guide.contains("the frames covered")) << "the table of what is exact";
    action("About Tallyframe")->trigger();
    const auto& about = find<QMessageBox>("aboutBox");
    EXPECT_EQ(about.text(), "Tallyframe 1.0.0");
    EXPECT_TRUE(about.informativeText().contains("Qt 6."));
    EXPECT_TRUE(about.informativeText().contains("libxml"));
}

} // namespace tallyframe::window
