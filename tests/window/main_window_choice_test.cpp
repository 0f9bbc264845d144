// SPDX-License-Identifier: MIT
// What is shown and saved is what is chosen, also when the choice comes while a run goes on.
#include "support/xmeml_builder.h"
#include "window/main_window_fixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QThread>

namespace tallyframe::window {

namespace {

/// Milliseconds in which the run of a small document ends, on a busy machine and under the sanitizers too.
constexpr unsigned long short_run = 1000;

using testing_support::clip;
using testing_support::xmeml;

class main_window_choice : public main_window_test {
protected:
    /// Three sequences, with one, two and three rows of video, and a row of audio each.
    void open_episodes()
    {
        open_text(xmeml()
                      .sequence("Episode 101", {.uuid = "one"})
                      .video_track({clip("A").at(0, 50)})
                      .audio_track({clip("S").at(0, 50)})
                      .sequence("Episode 102", {.uuid = "two"})
                      .video_track({clip("A").at(0, 50), clip("B").at(50, 90)})
                      .audio_track({clip("S").at(0, 50)})
                      .sequence("Episode 103", {.uuid = "three"})
                      .video_track({clip("A").at(0, 50), clip("B").at(50, 90), clip("C").at(90, 99)})
                      .audio_track({clip("S").at(0, 50)})
                      .text());
    }

    QButtonGroup& scopes() { return find<QButtonGroup>("importVideoAudioRadioButtons"); }

    QString headline() { return find<QLabel>("summaryLabel").text(); }

    bool can_save()
    {
        for (const QAction* action : window->findChildren<QAction*>()) {
            if (action->text().remove('&').startsWith("Save Report")) {
                EXPECT_EQ(action->isEnabled(), find<QAbstractButton>("saveReportButton").isEnabled());
            }
        }
        return find<QAbstractButton>("saveReportButton").isEnabled();
    }

    QString suggested_name()
    {
        find<QAbstractButton>("saveReportButton").click();
        auto& dialog = find<QFileDialog>("saveDialog");
        QString name = QFileInfo(dialog.selectedFiles().value(0)).fileName();
        delete &dialog;
        return name;
    }
};

} // namespace

TEST_F(main_window_choice, is_that_of_the_latest_key_press)
{
    open_episodes();
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    wait_for_run();
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").currentText(), "Episode 103");
    EXPECT_TRUE(headline().startsWith("Episode 103")) << headline().toStdString();
    EXPECT_EQ(window->runner().session().analysis.sequence_name, "Episode 103");
    EXPECT_EQ(rows_of("previewTableView"), 4);
    EXPECT_EQ(suggested_name(), "document - Episode 103.xls");
}

TEST_F(main_window_choice, may_go_back_to_what_the_run_was_for_at_first)
{
    open_episodes();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up})
        press<QComboBox>("sequencesPopupMenu", key);
    wait_for_run();
    EXPECT_TRUE(headline().startsWith("Episode 102")) << headline().toStdString();
    EXPECT_EQ(rows_of("previewTableView"), 3);
}

TEST_F(main_window_choice, takes_the_latest_scope)
{
    open_episodes();
    choose(2);
    scopes().button(2)->click();
    scopes().button(1)->click();
    wait_for_run();
    EXPECT_EQ(rows_of("previewTableView"), 3) << "video only";
    scopes().button(1)->click();
    scopes().button(0)->click();
    scopes().button(2)->click();
    wait_for_run();
    EXPECT_EQ(rows_of("previewTableView"), 1) << "audio only";
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, of_exact_figures_reads_the_sequence_anew)
{
    open(write("one.xml", xmeml().sequence("Only", {}).video_track({clip("12\" vinyl")}).text()));
    EXPECT_EQ(window->runner().session().analysis.video_clip_data_array.at(0).name, "12&quot; vinyl");
    find<QCheckBox>("exactFiguresCheckbox").click();
    wait_for_run();
    EXPECT_EQ(window->runner().session().analysis.video_clip_data_array.at(0).name, "12\" vinyl");
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, of_a_scope_counts_while_a_document_opens)
{
    window->open_document(qt_path(write(
        "one.xml", xmeml().sequence("Only", {}).video_track({clip("A")}).audio_track({clip("S")}).text())));
    scopes().button(2)->click();
    wait_for_run();
    EXPECT_EQ(window->runner().session().import_video_audio_preference, report_scope::audio);
    EXPECT_EQ(rows_of("previewTableView"), 1);
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, of_another_document_counts_while_one_is_read)
{
    open_episodes();
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    open(write("other.xml", xmeml().sequence("Other", {}).video_track({clip("A")}).text()));
    EXPECT_TRUE(headline().startsWith("Other")) << headline().toStdString();
    EXPECT_EQ(suggested_name(), "other.xls");
}

TEST_F(main_window_choice, can_be_saved_only_when_its_result_is_there)
{
    open_episodes();
    EXPECT_FALSE(can_save());
    choose(0);
    EXPECT_TRUE(can_save());
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    EXPECT_FALSE(can_save());
    EXPECT_EQ(rows_of("previewTableView"), 0);
    window->save_report_as(qt_path(folder.path() / "early.xls"));
    wait_for_run();
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "early.xls"));
    EXPECT_TRUE(can_save());
    scopes().button(1)->click();
    EXPECT_FALSE(can_save());
    EXPECT_EQ(rows_of("previewTableView"), 0);
    wait_for_run();
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, of_a_cancelled_run_is_not_saved_and_can_be_made_again)
{
    open_episodes();
    choose(0);
    cancel_next_run();
    choose(1);
    EXPECT_FALSE(can_save());
    EXPECT_EQ(find<QLabel>("messageHeadline").text(), "Choose what to report");
    choose(1);
    EXPECT_TRUE(headline().startsWith("Episode 102")) << headline().toStdString();
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, is_shown_when_its_result_came_too_late_and_it_is_made_again)
{
    open_episodes();
    choose(0);
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    QThread::msleep(short_run); // the run for 102 is over, and the window has not heard of it
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    emit find<progress_sheet>("progressWindow").cancel_requested();
    wait_for_run();
    EXPECT_FALSE(can_save());
    EXPECT_EQ(rows_of("previewTableView"), 0);
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Up);
    wait_for_run();
    EXPECT_TRUE(headline().startsWith("Episode 102")) << headline().toStdString();
    EXPECT_EQ(rows_of("previewTableView"), 3);
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, of_a_document_that_is_cancelled_early_leaves_the_one_before_under_its_own_name)
{
    const std::string other = xmeml().sequence("Other", {}).video_track({clip("A")}).text();
    window->open_document(qt_path(write("first.xml", other)));
    QThread::msleep(short_run); // it is open, and the window has not heard of it
    window->open_document(qt_path(write("second.xml", other)));
    emit find<progress_sheet>("progressWindow").cancel_requested();
    wait_for_run();
    ASSERT_TRUE(can_save());
    EXPECT_EQ(window->windowTitle(), "first.xml");
    EXPECT_EQ(suggested_name(), "first.xls");
}

TEST_F(main_window_choice, of_a_document_that_is_cancelled_early_leaves_the_menu_of_the_one_before)
{
    open_episodes();
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    window->open_document(qt_path(write("other.xml", xmeml().sequence("Other", {}).text())));
    emit find<progress_sheet>("progressWindow").cancel_requested();
    wait_for_run();
    EXPECT_EQ(find<QComboBox>("sequencesPopupMenu").count(), 3);
    EXPECT_EQ(window->windowTitle(), "document.xml");
    EXPECT_FALSE(can_save());
    choose(2);
    EXPECT_TRUE(headline().startsWith("Episode 103")) << headline().toStdString();
}

TEST_F(main_window_choice, of_a_scope_counts_while_another_document_waits)
{
    open_episodes();
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    window->open_document(qt_path(write(
        "one.xml", xmeml().sequence("Only", {}).video_track({clip("A")}).audio_track({clip("S")}).text())));
    scopes().button(2)->click();
    wait_for_run();
    EXPECT_EQ(rows_of("previewTableView"), 1);
    EXPECT_TRUE(can_save());
}

TEST_F(main_window_choice, ends_by_the_escape_key)
{
    open_episodes();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QObject::connect(
        &window->runner(), &session_runner::started, window.get(),
        [this] { QTest::keyClick(window.get(), Qt::Key_Escape); },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    choose(1);
    EXPECT_FALSE(window->runner().analyzed_subject().has_value());
    EXPECT_EQ(alert().first, "");
}

TEST_F(main_window_choice, rests_while_a_report_is_written)
{
    open_episodes();
    choose(1);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    auto& menu = find<QComboBox>("sequencesPopupMenu");
    menu.setFocus();
    window->save_report_as(qt_path(folder.path() / "report.xls"));
    EXPECT_FALSE(menu.isEnabled());
    EXPECT_FALSE(scopes().button(0)->isEnabled());
    EXPECT_FALSE(find<QAbstractButton>("openDocumentButton").isEnabled());
    EXPECT_FALSE(can_save());
    wait_for_run();
    EXPECT_TRUE(menu.isEnabled());
    EXPECT_TRUE(scopes().button(0)->isEnabled());
    EXPECT_TRUE(find<QAbstractButton>("openDocumentButton").isEnabled());
    EXPECT_TRUE(menu.hasFocus()) << "the next key goes where the last one went";
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "report.xls"));
}

TEST_F(main_window_choice, stays_possible_under_the_progress_sheet)
{
    open_episodes();
    EXPECT_EQ(find<progress_sheet>("progressWindow").windowModality(), Qt::NonModal);
    QObject::connect(
        &window->runner(), &session_runner::started, window.get(),
        [this] {
            find<progress_sheet>("progressWindow").show();
            EXPECT_TRUE(find<QComboBox>("sequencesPopupMenu").isEnabled());
            EXPECT_TRUE(scopes().button(0)->isEnabled());
        },
        static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    press<QComboBox>("sequencesPopupMenu", Qt::Key_Down);
    wait_for_run();
    EXPECT_FALSE(find<progress_sheet>("progressWindow").isVisible());
    EXPECT_TRUE(headline().startsWith("Episode 103")) << headline().toStdString();
}

TEST_F(main_window_choice, closes_the_question_where_to_save_what_is_gone)
{
    open_episodes();
    choose(0);
    find<QAbstractButton>("saveReportButton").click();
    ASSERT_TRUE(find<QFileDialog>("saveDialog").isVisible());
    open(write("other.xml", xmeml().sequence("Other", {}).video_track({clip("A")}).text()));
    QTest::qWait(1);
    EXPECT_EQ(window->findChild<QFileDialog*>("saveDialog"), nullptr);
}

} // namespace tallyframe::window
