// SPDX-License-Identifier: MIT
#pragma once

#include "support/temporary_folder.h"
#include "support/xmeml_builder.h"
#include "window/main_window.h"
#include "window/models/qt_text.h"
#include "window/panels/layouts_editor.h"
#include "window/panels/progress_sheet.h"
#include "window/patience.h"

#include <gmock/gmock.h>
#include <qtestspontaneevent.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QMessageBox>
#include <QSettings>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tallyframe::window {

inline std::string bytes_of(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

/// A document of two sequences, "Reel 1" with two video tracks and "Reel 2" with three.
inline std::string two_sequences()
{
    using testing_support::clip;
    return testing_support::xmeml()
        .sequence("Reel 1", {.uuid = "one"})
        .video_track({clip("A").at(0, 50)})
        .video_track({clip("B").at(0, 50)})
        .sequence("Reel 2", {.uuid = "two"})
        .video_track({clip("C").at(0, 50)})
        .video_track({clip("D").at(0, 50)})
        .video_track({clip("E").at(0, 50)})
        .text();
}

/// A window of its own for each test, with settings in a folder that goes with it. Drives it by its controls'
/// names.
class main_window_test : public ::testing::Test {
protected:
    main_window_test() { start(); }

    void start()
    {
        window.reset();
        settings = std::make_unique<QSettings>(qt_path(folder.path() / "settings.ini"), QSettings::IniFormat);
        window = std::make_unique<main_window>(*settings, out);
        window->show();
    }

    template <class Object>
    Object& find(const char* name)
    {
        auto* object = window->findChild<Object*>(name);
        if (object == nullptr)
            throw std::runtime_error(std::string("there is no ") + name);
        return *object;
    }

    void wait_for_run()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window->runner().is_running(); }, patience));
        QTest::qWait(1); // what the changes have put off
    }

    /// Cancels the next run before its first step: a short one may be over when a click on the button comes.
    void cancel_next_run()
    {
        QObject::connect(
            &window->runner(), &session_runner::started, window.get(),
            [this] { emit find<progress_sheet>("progressWindow").cancel_requested(); },
            static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    }

    void open(const std::filesystem::path& path)
    {
        window->open_document(qt_path(path));
        wait_for_run();
    }

    std::filesystem::path write(const std::string& name, const std::string& text)
    {
        std::filesystem::path path = folder.path() / name;
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }

    void open_text(const std::string& text) { open(write("document.xml", text)); }

    void choose(int position)
    {
        auto& menu = find<QComboBox>("sequencesPopupMenu");
        menu.setCurrentIndex(position);
        emit menu.activated(position);
        wait_for_run();
    }

    void save(const std::filesystem::path& path)
    {
        window->save_report_as(qt_path(path));
        wait_for_run();
    }

    /// Presses a key in a field, as if it had the focus of an active window.
    template <class Field>
    void press(const char* field, Qt::Key key)
    {
        QTest::keyClick(&find<Field>(field), key);
    }

    /// The fields whose values a wheel turns.
    std::vector<QWidget*> fields()
    {
        std::vector<QWidget*> found;
        for (QComboBox* field : window->findChildren<QComboBox*>())
            found.push_back(field);
        for (QAbstractSpinBox* field : window->findChildren<QAbstractSpinBox*>())
            found.push_back(field);
        return found;
    }

    static QString text_in(const QWidget& field)
    {
        const auto* popup = qobject_cast<const QComboBox*>(&field);
        return popup != nullptr ? popup->currentText() : dynamic_cast<const QAbstractSpinBox&>(field).text();
    }

    /// Brings the page of the options to which a field belongs to the front.
    void show_page_of(const QWidget& field)
    {
        auto& pages = find<QTabWidget>("optionsTabs");
        for (int page = 0; page < pages.count(); ++page) {
            if (pages.widget(page)->isAncestorOf(&field))
                pages.setCurrentIndex(page);
        }
    }

    /// As by the mouse: what the field does not take goes on to its parent.
    static void turn_wheel_over(QWidget& field, int angle)
    {
        const QPointF place = QRectF(field.rect()).center();
        QWheelEvent wheel(place, field.mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        QWidget* inside = field.childAt(place.toPoint());
        qApp->notify(inside != nullptr ? inside : &field, &wheel);
    }

    void make_layout(const QString& name) { make_layout(name, *window); }

    static void make_layout(const QString& name, const main_window& in)
    {
        in.findChild<QAbstractButton*>("editLayoutsButton")->click();
        auto* editor = in.findChild<layouts_editor*>("layoutsEditor");
        editor->findChild<QAbstractButton*>("newLayoutButton")->click();
        auto* names = editor->findChild<QListView*>("layoutsListView");
        names->model()->setData(names->currentIndex(), name, Qt::EditRole);
        editor->accept();
        QTest::qWait(1);
    }

    int rows_of(const char* table) { return find<QTableView>(table).model()->rowCount(); }

    void tick(const char* table, int row, bool on)
    {
        QAbstractItemModel* model = find<QTableView>(table).model();
        model->setData(model->index(row, 0), on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        QTest::qWait(1);
    }

    /// The texts of the alert that is open, closed by this.
    std::pair<std::string, std::string> alert()
    {
        auto* sheet = window->findChild<QMessageBox*>("alertSheet");
        if (sheet == nullptr)
            return {};
        std::pair texts(sheet->text().toStdString(), sheet->informativeText().toStdString());
        EXPECT_TRUE(sheet->isVisible());
        EXPECT_EQ(sheet->icon(), QMessageBox::Information);
        delete sheet;
        return texts;
    }

    testing_support::temporary_folder folder;
    no_diagnostics out;
    std::unique_ptr<QSettings> settings;
    std::unique_ptr<main_window> window;
};

} // namespace tallyframe::window
