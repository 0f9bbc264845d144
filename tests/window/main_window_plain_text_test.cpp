// SPDX-License-Identifier: MIT
// Names that look like markup are shown as they are: markup could open files of a document's choosing.
#include "support/xmeml_builder.h"
#include "window/main_menu.h"
#include "window/main_window_fixture.h"
#include "window/models/media_places_model.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTextDocument>
#include <QTimer>

namespace tallyframe::window {

namespace {

using testing_support::clip;
using testing_support::xmeml;

const std::string markup = "<img src=x><b>bold</b>";

/// What stands in names that cannot have a slash.
const std::string file_markup = "<img src=x><b>bold &amp";

class main_window_plain_text : public main_window_test {
protected:
    std::filesystem::path document(const std::string& name)
    {
        const std::string path = "/Volumes/" + markup + ".mov";
        return write(name,
                     xmeml()
                         .sequence(markup, {.uuid = "one"})
                         .video_track({clip(markup).file({.path = path, .id = "one", .reel = markup})},
                                      {.attributes = "MZ.TrackName=\"&lt;img src=x>&lt;b>bold\""})
                         .audio_track({clip(markup).file({.path = path, .id = "two"})})
                         .sequence(markup + " 2", {.uuid = "two"})
                         .video_track({clip(markup)})
                         .text());
    }

    /// Whether Qt would lay out a tool tip with an element of the names in it.
    static bool has_markup(const QString& text)
    {
        return Qt::mightBeRichText(text) && (text.contains("<img") || text.contains("<b>"));
    }

    static void expect_plain_tool_tips(const QAbstractItemModel& model)
    {
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const QString tip = model.index(row, column).data(Qt::ToolTipRole).toString();
                EXPECT_FALSE(has_markup(tip)) << tip.toStdString();
            }
        }
        for (int column = 0; column < model.columnCount(); ++column)
            EXPECT_FALSE(has_markup(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString()));
    }

    /// Every text that the window shows at this moment.
    void expect_plain_texts()
    {
        for (const QLabel* label : window->findChildren<QLabel*>()) {
            const bool is_interpreted = label->textFormat() == Qt::RichText
                || label->textFormat() == Qt::MarkdownText
                || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(label->text()));
            EXPECT_FALSE(is_interpreted)
                << label->objectName().toStdString() << ": " << label->text().toStdString();
        }
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            for (const QString& text : {widget->toolTip(), widget->statusTip(), widget->whatsThis()})
                EXPECT_FALSE(has_markup(text)) << text.toStdString();
        }
        for (const QAction* action : window->findChildren<QAction*>())
            EXPECT_FALSE(has_markup(action->toolTip())) << action->toolTip().toStdString();
        for (const QAbstractItemView* view : window->findChildren<QAbstractItemView*>()) {
            if (view->model() != nullptr)
                expect_plain_tool_tips(*view->model());
        }
        for (const QComboBox* popup : window->findChildren<QComboBox*>())
            expect_plain_tool_tips(*popup->model());
    }
};

} // namespace

TEST_F(main_window_plain_text, is_all_that_the_window_shows)
{
    open(document(file_markup + ".xml"));
    choose(0);
    make_layout(QString::fromStdString(markup));
    auto& places = dynamic_cast<media_places_model&>(*find<QTableView>("mediaPlacesTableView").model());
    places.add(QString::fromStdString("/" + markup));
    places.add(QString::fromStdString("/" + markup));
    places.setData(places.index(0, media_places_model::timeline_column), "/Volumes/<b>b</b>", Qt::EditRole);
    expect_plain_texts();
    EXPECT_TRUE(find<QLabel>("summaryLabel").text().startsWith(QString::fromStdString(markup)));
    EXPECT_TRUE(find<QLabel>("summaryLabel").toolTip().contains("&lt;img src=x&gt;"));

    save(folder.path() / (file_markup + ".xls"));
    ASSERT_TRUE(find<QLabel>("savedText").isVisible());
    expect_plain_texts();
    EXPECT_TRUE(find<QLabel>("savedText").toolTip().contains("&lt;img src=x&gt;"));
}

TEST_F(main_window_plain_text, is_all_that_alerts_show)
{
    const std::filesystem::path gone = document(file_markup + ".xml");
    open(gone);
    std::filesystem::remove(gone);
    emit find<main_menu>("mainMenu").document_chosen(qt_path(gone));
    ASSERT_TRUE(find<QMessageBox>("alertSheet").text().startsWith("<img src=x>"));
    expect_plain_texts();
    alert();
    open_text(xmeml().sequence(markup, {.timebase = 17}).video_track({clip("A")}).text());
    ASSERT_NE(window->findChild<QMessageBox*>("alertSheet"), nullptr);
    expect_plain_texts();
}

TEST_F(main_window_plain_text, is_all_that_the_question_about_an_older_workbook_shows)
{
    open(document("document.xml"));
    choose(0);
    write(file_markup + ".xls", "older");
    find<QAbstractButton>("saveReportButton").click();
    auto& dialog = find<QFileDialog>("saveDialog");
    dialog.setDirectory(qt_path(folder.path()));
    dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(file_markup + ".xls"));
    bool was_asked = false;
    QTimer asked;
    QObject::connect(&asked, &QTimer::timeout, &asked, [&] {
        if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked.stop();
            was_asked = true;
            EXPECT_TRUE(question->text().startsWith("<img src=x>")) << question->text().toStdString();
            expect_plain_texts();
            question->button(QMessageBox::No)->click();
        }
    });
    asked.start(5);
    QMetaObject::invokeMethod(&dialog, "accept");
    EXPECT_TRUE(was_asked);
}

TEST_F(main_window_plain_text, is_what_menus_and_titles_show)
{
    open(document("A & B\t[*].xml"));
    EXPECT_EQ(window->windowTitle(), "A & B\t[*][*].xml") << "which Qt shows with one mark";
    bool is_listed = false;
    for (const QAction* action : window->findChildren<QAction*>())
        is_listed = is_listed || action->text() == "A && B [*].xml";
    EXPECT_TRUE(is_listed);
}

} // namespace tallyframe::window
