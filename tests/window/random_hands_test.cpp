// SPDX-License-Identifier: MIT
// Hands that do anything, at any moment, with the window, held against a small model of what it must show.
//
// TALLYFRAME_RANDOM_SECONDS: how long (5 when it is not set). TALLYFRAME_RANDOM_SEED: which hands (1 when it
// is not set, so that the suite says of one tree the same each time).
#include "report/row_assembly.h"
#include "run/gui_mode.h"
#include "support/analyzed_document.h"
#include "support/xmeml_builder.h"
#include "window/main_menu.h"
#include "window/main_window_fixture.h"
#include "window/models/scope.h"
#include "window/models/settings.h"

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <iostream>
#include <map>
#include <random>

namespace tallyframe::window {

namespace {

using testing_support::analyzed_document;
using testing_support::clip;
using testing_support::track_item;
using testing_support::xmeml;

std::vector<track_item> clips(const std::string& name, std::int64_t count)
{
    std::vector<track_item> items;
    for (std::int64_t i = 0; i < count; ++i)
        items.emplace_back(clip(name).at(i * 10, i * 10 + 10));
    return items;
}

/// Bin clips, then sequences of different sizes; reading the larger takes long enough to be disturbed.
std::string make_document(std::int64_t size)
{
    xmeml document;
    document.bin_clip("Bin", testing_support::bin_clip("loose", 100, "video", {clip("Loose")}));
    for (const std::int64_t episode : {1, 2, 3, 4}) {
        document.sequence("Episode " + std::to_string(episode), {.uuid = "uuid-" + std::to_string(episode)})
            .video_track(clips("V", size * episode))
            .audio_track(clips("A", episode + 10))
            .audio_track({clip("Off").enabled("FALSE")});
        if (episode % 2 == 0)
            document.video_track(clips("W", 3));
    }
    return document.text();
}

class random_hands : public main_window_test {
protected:
    random_hands()
    {
        for (const std::int64_t size : {7, 300}) {
            documents.push_back(make_document(size));
            paths.push_back(write("cut " + std::to_string(size) + ".xml", documents.back()));
        }
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    // What the model knows.

    std::vector<std::string> documents;
    std::vector<std::filesystem::path> paths;
    std::size_t opened = 0;
    std::map<std::string, std::unique_ptr<analyzed_document>> analyses;

    /// The analysis made without the window.
    const analysis_result& expected_analysis(const report_subject& subject)
    {
        const std::string uuid = window->runner().session().menu.at(subject.menu_position).uuid;
        const std::string key = std::to_string(opened) + " " + uuid + " "
            + std::to_string(tag_for_scope(subject.import_video_audio_preference))
            + (subject.figures == figure_style::exact ? " exact" : "");
        auto& known = analyses[key];
        if (!known) {
            known = std::make_unique<analyzed_document>(
                documents[opened], uuid, subject.import_video_audio_preference, subject.figures);
            gui_mode = true;
        }
        return known->result;
    }

    std::vector<int> ticks_in(const char* table)
    {
        const QAbstractItemModel& model = *find<QTableView>(table).model();
        std::vector<int> ticks;
        for (int row = 0; row < model.rowCount(); ++row)
            ticks.push_back(model.index(row, 0).data(Qt::CheckStateRole) == Qt::Checked ? 1 : 0);
        return ticks;
    }

    std::size_t expected_rows(const report_subject& subject)
    {
        return assemble_rows(expected_analysis(subject),
                             {ticks_in("videoTracksTableView"), ticks_in("audioTracksTableView")},
                             find<QCheckBox>("enabledOnlyCheckbox").isChecked(),
                             find<QCheckBox>("videoClipAudioCheckbox").isChecked())
            .clip_data_array.size();
    }

    // What the window shows.

    std::map<QWidget*, QString> texts_of_fields()
    {
        std::map<QWidget*, QString> texts;
        for (QWidget* field : fields())
            texts[field] = text_in(*field);
        return texts;
    }

    /// What a button may change: adjustments move with their formats.
    std::vector<const QWidget*> adjustments()
    {
        const QList<QAbstractSpinBox*> found = window->findChildren<QAbstractSpinBox*>();
        return {found.begin(), found.end()};
    }

    report_subject chosen()
    {
        return {static_cast<std::size_t>(find<QComboBox>("sequencesPopupMenu").currentIndex()),
                scope_for_tag(find<QButtonGroup>("importVideoAudioRadioButtons").checkedId(), {}),
                find<QCheckBox>("exactFiguresCheckbox").isChecked() ? figure_style::exact
                                                                    : figure_style::comparable};
    }

    QString chosen_title() { return find<QComboBox>("sequencesPopupMenu").currentText(); }

    bool can_save() { return find<QAbstractButton>("saveReportButton").isEnabled(); }

    bool shows_preview() { return find<QTableView>("previewTableView").isVisible(); }

    void expect_what_is_chosen()
    {
        const bool is_running = window->runner().is_running();
        const bool is_saving = window->runner().is_running(run_kind::saving);
        const auto analyzed = window->runner().analyzed_subject();
        EXPECT_EQ(can_save(), analyzed && analyzed == chosen());
        EXPECT_EQ(shows_preview(), is_saving || can_save());
        EXPECT_EQ(find<QAbstractButton>("openDocumentButton").isEnabled(), !is_saving);
        EXPECT_TRUE(!is_running || is_saving || rows_of("previewTableView") == 0);
        if (shows_preview()) {
            EXPECT_TRUE(find<QLabel>("summaryLabel").text().startsWith(chosen_title()))
                << find<QLabel>("summaryLabel").text().toStdString();
        }
        for (const QAction* action : window->findChildren<QAction*>()) {
            if (action->text().remove('&').startsWith("Save Report")) {
                EXPECT_EQ(action->isEnabled(), can_save());
            }
        }
        const auto* alert_sheet = window->findChild<QMessageBox*>("alertSheet");
        EXPECT_EQ(alert_sheet, nullptr)
            << (alert_sheet->text() + " " + alert_sheet->informativeText()).toStdString();
    }

    void expect_result()
    {
        wait_for_run();
        QTest::qWait(1);
        for (std::size_t i = 0; i < paths.size(); ++i) {
            if (window->windowTitle() == qt_path(paths[i].filename()))
                opened = i; // the one before, where an opening was cancelled
        }
        expect_what_is_chosen();
        if (shows_preview()) {
            EXPECT_EQ(static_cast<std::size_t>(rows_of("previewTableView")), expected_rows(chosen()));
        }
    }

    /// Does something after which no field may have changed but these.
    template <class Action>
    void change_only(const std::vector<const QWidget*>& allowed, Action act)
    {
        const auto before = texts_of_fields();
        act();
        for (const auto& [field, text] : texts_of_fields()) {
            if (std::ranges::find(allowed, field) == allowed.end()) {
                EXPECT_EQ(text.toStdString(), before.at(field).toStdString())
                    << field->objectName().toStdString();
            }
        }
    }

    // What the hands do.

    std::mt19937 chance;

    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(chance); }

    template <class List>
    auto& one_of(List& list)
    {
        return *std::next(std::begin(list), below(static_cast<int>(std::size(list))));
    }

    /// Closes what a key press has opened over the window.
    void close_what_has_opened()
    {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        for (auto* dialog : window->findChildren<QDialog*>()) {
            if (dialog->objectName() != "progressWindow" && dialog->objectName() != "alertSheet")
                delete dialog;
        }
    }

    std::string turn_wheel()
    {
        auto all = fields();
        QWidget& field = *one_of(all);
        const int angle = below(2) == 0 ? 120 : -120;
        std::vector<const QWidget*> allowed;
        if (field.hasFocus())
            allowed.push_back(&field);
        change_only(allowed, [&] { turn_wheel_over(field, angle); });
        return "wheel " + std::to_string(angle) + " over " + field.objectName().toStdString()
            + (field.hasFocus() ? " with focus" : "");
    }

    std::string press_key()
    {
        static constexpr Qt::Key keys[] = {Qt::Key_Down,   Qt::Key_Up,    Qt::Key_Home, Qt::Key_End,
                                           Qt::Key_Tab,    Qt::Key_Space, Qt::Key_E,    Qt::Key_1,
                                           Qt::Key_Escape, Qt::Key_PageUp};
        const Qt::Key key = one_of(keys);
        QWidget* field = window->focusWidget();
        const std::string name = field != nullptr ? field->objectName().toStdString() : "the window";
        std::vector<const QWidget*> allowed = {field};
        if (qobject_cast<QAbstractButton*>(field) != nullptr)
            allowed = adjustments();
        change_only(allowed, [&] {
            QTest::keyClick(field != nullptr ? field : window.get(), key);
            close_what_has_opened();
        });
        return "key " + std::to_string(key) + " in " + name;
    }

    std::string give_focus()
    {
        auto all = fields();
        QWidget& field = *one_of(all);
        change_only({window->focusWidget()}, [&] {
            show_page_of(field);
            field.setFocus();
        });
        return "focus to " + field.objectName().toStdString();
    }

    std::string flip_through_menu()
    {
        auto& menu = find<QComboBox>("sequencesPopupMenu");
        menu.setFocus();
        const int presses = 1 + below(3);
        const Qt::Key key = below(2) == 0 ? Qt::Key_Down : Qt::Key_Up;
        change_only({&menu}, [&] {
            for (int press = 0; press < presses && menu.isEnabled(); ++press)
                QTest::keyClick(&menu, key);
        });
        return std::to_string(presses) + " keys in the menu: " + chosen_title().toStdString();
    }

    std::string click()
    {
        QList<QAbstractButton*> buttons = find<QButtonGroup>("importVideoAudioRadioButtons").buttons();
        for (const char* name :
             {"analyzeButton", "enabledOnlyCheckbox", "exactFiguresCheckbox", "videoClipAudioCheckbox",
              "motionSheetCheckbox", "videoTracksTableViewTickAllButton",
              "videoTracksTableViewTickNoneButton", "audioTracksTableViewTickNoneButton",
              "audioTracksTableViewTickAllButton", "timelineColumnsTableViewMoveDownButton",
              "inpointThumbnailsCheckbox", "closeBannerButton"})
            buttons << &find<QAbstractButton>(name);
        QAbstractButton& button = *one_of(buttons);
        std::vector<const QWidget*> allowed = adjustments();
        allowed.push_back(
            window->focusWidget()); // a field that a click disables takes what was typed into it
        change_only(allowed, [&] { button.click(); });
        return "click on " + (button.text() + " " + button.objectName()).toStdString();
    }

    std::string tick_one()
    {
        const char* table = below(2) == 0 ? "videoTracksTableView" : "audioTracksTableView";
        QAbstractItemModel* model = find<QTableView>(table).model();
        if (model->rowCount() > 0) {
            model->setData(model->index(below(model->rowCount()), 0),
                           below(2) == 0 ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        }
        return std::string("tick in ") + table;
    }

    std::string cancel()
    {
        emit find<progress_sheet>("progressWindow").cancel_requested();
        return "cancel";
    }

    std::string open_another()
    {
        if (window->runner().is_running(run_kind::saving))
            return "no opening while saving";
        const std::filesystem::path& path = one_of(paths);
        window->open_document(qt_path(path));
        return "open " + path.filename().string();
    }

    std::string ask_where_to_save()
    {
        if (!can_save())
            return "nothing to save";
        find<QAbstractButton>("saveReportButton").click();
        const QString name = QFileInfo(find<QFileDialog>("saveDialog").selectedFiles().value(0)).fileName();
        EXPECT_EQ(name, window->windowTitle().remove(".xml") + " - " + chosen_title() + ".xls");
        close_what_has_opened();
        return "save dialog";
    }

    std::string save_report()
    {
        window->save_report_as(qt_path(folder.path() / "report.xls"));
        return "save";
    }

    std::string change_look()
    {
        emit find<main_menu>("mainMenu").appearance_chosen(static_cast<appearance>(below(3)));
        return "appearance";
    }

    std::string wait()
    {
        QTest::qWait(below(30));
        return "wait";
    }

    std::string check_result()
    {
        expect_result();
        return "result";
    }

    std::string do_anything()
    {
        using hand = std::string (random_hands::*)();
        static constexpr std::pair<hand, int> hands[] = {{&random_hands::turn_wheel, 30},
                                                         {&random_hands::press_key, 30},
                                                         {&random_hands::give_focus, 15},
                                                         {&random_hands::flip_through_menu, 15},
                                                         {&random_hands::click, 20},
                                                         {&random_hands::tick_one, 8},
                                                         {&random_hands::cancel, 3},
                                                         {&random_hands::open_another, 2},
                                                         {&random_hands::ask_where_to_save, 3},
                                                         {&random_hands::save_report, 3},
                                                         {&random_hands::change_look, 1},
                                                         {&random_hands::wait, 20},
                                                         {&random_hands::check_result, 10}};
        if (!window->isActiveWindow()) { // without a window manager a sheet takes that away
            window->activateWindow();
            QTest::qWait(1);
        }
        int left = below(160);
        for (const auto& [act, weight] : hands) {
            left -= weight;
            if (left < 0)
                return (this->*act)();
        }
        return {};
    }
};

} // namespace

TEST_F(random_hands, find_no_window_that_shows_what_was_not_chosen)
{
    const int seconds = qEnvironmentVariableIsSet("TALLYFRAME_RANDOM_SECONDS")
        ? qEnvironmentVariableIntValue("TALLYFRAME_RANDOM_SECONDS")
        : 5;
    const unsigned seed = qEnvironmentVariableIsSet("TALLYFRAME_RANDOM_SEED")
        ? static_cast<unsigned>(qEnvironmentVariableIntValue("TALLYFRAME_RANDOM_SEED"))
        : 1;
    std::cout << "TALLYFRAME_RANDOM_SEED=" << seed << std::endl;
    chance.seed(seed);
    open(paths[0]);
    QElapsedTimer elapsed;
    elapsed.start();
    std::vector<std::string> done;
    while (elapsed.elapsed() < seconds * 1000LL && !HasFailure()) {
        done.push_back(do_anything());
        expect_what_is_chosen();
    }
    if (!HasFailure())
        expect_result();
    std::cout << done.size() << " steps" << std::endl;
    if (HasFailure()) {
        for (std::size_t i = done.size() > 25 ? done.size() - 25 : 0; i < done.size(); ++i)
            std::cout << "  " << done[i] << std::endl;
    }
    emit find<main_menu>("mainMenu").appearance_chosen(appearance::system);
    const choices kept = load_choices(*settings);
    EXPECT_EQ(kept.options.video_row_color, window->kept_choices().options.video_row_color);
    EXPECT_EQ(kept.options.adjustments.clock_adj, window->kept_choices().options.adjustments.clock_adj);
    EXPECT_EQ(kept.scope, window->kept_choices().scope);
}

} // namespace tallyframe::window
