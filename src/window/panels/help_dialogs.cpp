// SPDX-License-Identifier: MIT
#include "window/panels/help_dialogs.h"

#include "document/parse_xml.h"
#include "platform/application.h"
#include "window/models/qt_text.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace tallyframe::window {

namespace {

struct guide_entry {
    const char* title;
    const char* text;
};

struct guide_chapter {
    const char* title;
    std::initializer_list<guide_entry> entries;
};

const guide_chapter guide[] = {
    {QT_TRANSLATE_NOOP("guide", "From a timeline to a report"),
     {
         {QT_TRANSLATE_NOOP("guide", "1. Open"),
          QT_TRANSLATE_NOOP("guide",
                            "Export the cut as XML from Final Cut Pro 7 or Premiere Pro, and drop that file "
                            "on the window.")},
         {QT_TRANSLATE_NOOP("guide", "2. Choose"),
          QT_TRANSLATE_NOOP("guide",
                            "When the file holds several sequences, or loose clips in bins, choose one in "
                            "the menu on top. A file with only one is read at once.")},
         {QT_TRANSLATE_NOOP("guide", "3. Tick"),
          QT_TRANSLATE_NOOP("guide",
                            "Untick tracks that you do not need. Alt-click a track (or Alt+Return) to tick "
                            "it alone. The middle shows the clips sheet as it will be.")},
         {QT_TRANSLATE_NOOP("guide", "4. Save"),
          QT_TRANSLATE_NOOP("guide", "Save Report writes the Excel workbook.")},
     }},
    {QT_TRANSLATE_NOOP("guide", "Content"),
     {
         {QT_TRANSLATE_NOOP("guide", "Report on"),
          QT_TRANSLATE_NOOP("guide",
                            "Which kind of tracks is read. Another choice reads the sequence anew.")},
         {QT_TRANSLATE_NOOP("guide", "Enabled clips only"),
          QT_TRANSLATE_NOOP("guide", "Leaves out whatever is disabled in the timeline, on every sheet.")},
         {QT_TRANSLATE_NOOP("guide", "Skip audio of video clips"),
          QT_TRANSLATE_NOOP("guide",
                            "Leaves out audio clips whose media file is also a video clip's. What remains is "
                            "music, effects and separate sound.")},
         {QT_TRANSLATE_NOOP("guide", "Exact figures"),
          QT_TRANSLATE_NOOP(
              "guide",
              "Some figures are as in older lists, so that a new list can be held against an old "
              "one. Ticked, they are right instead. The table below says which.")},
         {QT_TRANSLATE_NOOP("guide", "Markers"),
          QT_TRANSLATE_NOOP("guide", "Sheets \"Sequence Markers\" and \"Clip Markers\".")},
         {QT_TRANSLATE_NOOP("guide", "Graphics & Titles"),
          QT_TRANSLATE_NOOP("guide",
                            "A sheet of titles with their texts and fonts, and other generated items.")},
         {QT_TRANSLATE_NOOP("guide", "Transitions, Filters, Motion Effects"),
          QT_TRANSLATE_NOOP("guide",
                            "A sheet each. The lists on top show what does not come with the editing "
                            "application in red. In the tables, colors run on from row to row unless figures "
                            "are exact.")},
         {QT_TRANSLATE_NOOP("guide", "Files Summary"),
          QT_TRANSLATE_NOOP("guide",
                            "The time of all uses of each media file, and its share. A file with picture "
                            "and sound counts for both, unless figures are exact.")},
         {QT_TRANSLATE_NOOP("guide", "Media Check"),
          QT_TRANSLATE_NOOP("guide",
                            "A sheet with every media file: where it is, whether it has the frames that are "
                            "used, and in what it is not as the timeline says. It opens them all when the "
                            "workbook is saved; the preview shows what the timeline says.")},
         {QT_TRANSLATE_NOOP("guide", "Reels"),
          QT_TRANSLATE_NOOP("guide",
                            "\"Reels Summary\" with totals, and a sheet of clips for each source reel.")},
     }},
    {QT_TRANSLATE_NOOP("guide", "Columns"),
     {
         {QT_TRANSLATE_NOOP("guide", "Layout"),
          QT_TRANSLATE_NOOP("guide",
                            "Which columns the clips have. Edit makes layouts of your own; \"Default\" stays "
                            "as it is.")},
         {QT_TRANSLATE_NOOP("guide", "Timeline times"),
          QT_TRANSLATE_NOOP("guide",
                            "The forms in which Sequence In, Sequence Out and Clip Duration are shown. The "
                            "workbook sets them in the order Timecode, Clock, Frames, Feet+Frames, "
                            "Seconds.")},
         {QT_TRANSLATE_NOOP("guide", "Add frames"),
          QT_TRANSLATE_NOOP("guide",
                            "Moves Sequence In and Sequence Out by that many frames, in that form only. "
                            "The column's header tells the number; durations stay.")},
         {QT_TRANSLATE_NOOP("guide", "Source times"),
          QT_TRANSLATE_NOOP("guide",
                            "The same for Source In, Source Out and Source Duration, at the media's own "
                            "rate.")},
     }},
    {QT_TRANSLATE_NOOP("guide", "Look & Media"),
     {
         {QT_TRANSLATE_NOOP("guide", "Row colors"),
          QT_TRANSLATE_NOOP("guide", "Text colors of video, audio and marker rows.")},
         {QT_TRANSLATE_NOOP("guide", "Pictures"),
          QT_TRANSLATE_NOOP("guide",
                            "A picture of each clip's first frame, as wide as you say. Where the media is "
                            "missing or cannot be read, a placeholder stands. Keep the picture files to get "
                            "them as JPEGs in a folder beside the workbook, too.")},
         {QT_TRANSLATE_NOOP("guide", "Media that has moved"),
          QT_TRANSLATE_NOOP("guide",
                            "Folders to look in, for pictures and for the tags of songs. A folder you add is "
                            "searched, with "
                            "all below it, by the files' names and by what the timeline says of them. Edit "
                            "its first column "
                            "to say which folder of the timeline it stands for: then files are at the same "
                            "places below it. "
                            "The paths in the workbook stay as the timeline has them.")},
     }},
};

struct figure_entry {
    const char* what;
    const char* comparable;
    const char* exact;
};

const figure_entry figures[] = {
    {QT_TRANSLATE_NOOP("guide", "Source In and Out on \"Clip Markers\""),
     QT_TRANSLATE_NOOP("guide", "counted from the marker's place in the sequence"),
     QT_TRANSLATE_NOOP("guide", "where the marker lies in the media, on the media's own clock")},
    {QT_TRANSLATE_NOOP("guide", "Colors of rows on \"Transitions\" and \"Filters\""),
     QT_TRANSLATE_NOOP("guide", "run on from row to row"),
     QT_TRANSLATE_NOOP("guide", "each row as its own track, red what is not built in")},
    {QT_TRANSLATE_NOOP("guide", "Drop-frame timecode"),
     QT_TRANSLATE_NOOP("guide", "each minute ends two labels early"),
     QT_TRANSLATE_NOOP("guide", "SMPTE ST 12-1: each label exists, once")},
    {QT_TRANSLATE_NOOP("guide", "Duration on \"Graphics & Titles\" and the sheets of effects"),
     QT_TRANSLATE_NOOP("guide", "last frame minus first"), QT_TRANSLATE_NOOP("guide", "the frames covered")},
    {QT_TRANSLATE_NOOP("guide", "\"Files Summary\""),
     QT_TRANSLATE_NOOP("guide", "every use of a file counts, picture and sound each"),
     QT_TRANSLATE_NOOP("guide", "each frame of the sequence counts once a file")},
    {QT_TRANSLATE_NOOP("guide", "Headers such as \"Sequence In +1\""),
     QT_TRANSLATE_NOOP("guide", "some cells below stay, or move by another format's number"),
     QT_TRANSLATE_NOOP("guide", "cells move as their header says")},
    {QT_TRANSLATE_NOOP("guide", "Double quotes in names and comments"), QT_TRANSLATE_NOOP("guide", "&quot;"),
     QT_TRANSLATE_NOOP("guide", "\"")},
    {QT_TRANSLATE_NOOP("guide", "An empty reel name"), QT_TRANSLATE_NOOP("guide", "a reel of its own"),
     QT_TRANSLATE_NOOP("guide", "no reel")},
};

QString guide_text(const char* text)
{
    return QCoreApplication::translate("guide", text);
}

QString row_as_html(const char* cell, std::initializer_list<QString> texts)
{
    QString html = "<tr>";
    for (const QString& text : texts)
        html += QString("<%1 align=\"left\">%2</%1>").arg(cell, text.toHtmlEscaped());
    return html + "</tr>";
}

QString figures_as_html()
{
    QString html = "<h2>" + guide_text(QT_TRANSLATE_NOOP("guide", "Exact figures")).toHtmlEscaped()
        + "</h2><table cellpadding=\"4\">";
    html += row_as_html("th",
                        {guide_text(QT_TRANSLATE_NOOP("guide", "What")),
                         guide_text(QT_TRANSLATE_NOOP("guide", "Unless ticked")),
                         guide_text(QT_TRANSLATE_NOOP("guide", "Exact"))});
    for (const figure_entry& entry : figures)
        html += row_as_html("td",
                            {guide_text(entry.what), guide_text(entry.comparable), guide_text(entry.exact)});
    return html + "</table>";
}

QString guide_as_html()
{
    QString html;
    for (const guide_chapter& chapter : guide) {
        html += "<h2>" + guide_text(chapter.title).toHtmlEscaped() + "</h2>";
        for (const guide_entry& entry : chapter.entries) {
            html += "<p><b>" + guide_text(entry.title).toHtmlEscaped() + "</b><br>"
                + guide_text(entry.text).toHtmlEscaped() + "</p>";
        }
    }
    return html + figures_as_html();
}

} // namespace

void show_guide(QWidget* main_window)
{
    auto* dialog = new QDialog(main_window);
    dialog->setObjectName("guide");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QCoreApplication::translate("guide", "Guide"));
    auto* text = new QTextBrowser;
    text->setAccessibleName(dialog->windowTitle());
    text->setHtml(guide_as_html());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* column = new QVBoxLayout(dialog);
    column->addWidget(text);
    column->addWidget(buttons);
    constexpr int width_in_characters = 76;
    constexpr int height_in_lines = 34;
    dialog->resize(dialog->fontMetrics().averageCharWidth() * width_in_characters,
                   dialog->fontMetrics().lineSpacing() * height_in_lines);
    dialog->show();
}

void show_about(QWidget* main_window)
{
    const auto translate = [](const char* text) { return QCoreApplication::translate("about", text); };
    auto* box = new QMessageBox(QMessageBox::NoIcon, translate("About Tallyframe"),
                                qt_text(application::name) + " " + qt_text(application::version),
                                QMessageBox::Close, main_window);
    box->setObjectName("aboutBox");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIconPixmap(main_window->windowIcon().pixmap(64, 64));
    box->setInformativeText(
        translate("Timeline lists for cutting rooms: XML in, Excel workbook out.\n\nQt %1\n%2\nQuestions: %3")
            .arg(qVersion(), qt_text(xml_library_version()), qt_text(application::support_address)));
    box->open();
}

} // namespace tallyframe::window
