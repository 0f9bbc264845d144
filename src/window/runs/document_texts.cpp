// SPDX-License-Identifier: MIT
#include "window/runs/document_texts.h"

#include "document/other_format.h"
#include "window/models/qt_text.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>
#include <algorithm>

namespace tallyframe::window {

namespace {

struct texts {
    Q_DECLARE_TR_FUNCTIONS(document_texts)
};

int entries_to_report(const std::vector<catalogue_entry>& menu)
{
    return static_cast<int>(
        std::ranges::count_if(menu, [](const catalogue_entry& entry) { return !entry.is_separator(); }));
}

/// What kind of file the document is, where it is another one than those that are read; else `text`.
QString kind_of_file_or(const session_runner& runner, const QString& text)
{
    const std::optional<std::string> other = other_format_of(runner.document());
    return other ? qt_text(*other) : text;
}

} // namespace

QString summary_of(const analysis_result& analysis, const QString& title)
{
    QStringList parts = {title};
    if (analysis.seq_fcp_rate) {
        const QString rate = texts::tr("%1 fps").arg(analysis.seq_fcp_rate->frames_per_second);
        parts << (analysis.seq_displayformat == display_format::drop_frame
                      ? texts::tr("%1 drop frame").arg(rate)
                      : rate);
    }
    if (analysis.sequence_width && analysis.sequence_height)
        parts << shown_text(*analysis.sequence_width) + " × " + shown_text(*analysis.sequence_height);
    if (analysis.seq_samplerate)
        parts << texts::tr("%1 Hz").arg(shown_text(*analysis.seq_samplerate));
    return parts.join("  ·  ");
}

page_texts texts_of_message(const session_runner& runner, const QString& unread_document)
{
    if (runner.is_running())
        return {texts::tr("Reading…"), {}, false};
    if (!unread_document.isEmpty()) {
        return {texts::tr("%1 could not be read").arg(unread_document),
                kind_of_file_or(runner, texts::tr("Export the sequence again, or open another file.")), true};
    }
    const report_session& session = runner.session();
    if (!session.document) {
        return {texts::tr("Drop an exported timeline here"),
                texts::tr("XML from Final Cut Pro 7 or Premiere Pro"), true};
    }
    const int entries = entries_to_report(session.menu);
    if (entries == 0 && left_out_sequences(session) != 0) {
        return {texts::tr("No sequence in this file has an identifier"),
                texts::tr("Press \"List Them\" above to report one all the same."), false};
    }
    if (entries == 0) {
        const QString advice = texts::tr(
            "It holds no sequence and no clips in bins. Export the sequence again: in Final Cut Pro 7 with "
            "File > Export > XML, version 5; in Premiere Pro with File > Export > Final Cut Pro XML.");
        return {texts::tr("There is nothing to report in this file"), kind_of_file_or(runner, advice), true};
    }
    if (entries == 1) {
        return {texts::tr("The sequence is not analyzed"), texts::tr("Press Analyze to read it."), false};
    }
    return {texts::tr("Choose what to report"),
            texts::tr(
                "This timeline holds %1 things to report. Choose one in the menu on top, then press Analyze.")
                .arg(QLocale().toString(entries)),
            false};
}

} // namespace tallyframe::window
