// SPDX-License-Identifier: MIT
#include "window/runs/failure_texts.h"

#include "run/failures.h"
#include "sequence_to_spreadsheet/failure_alert.h"
#include "sheets/sheet_kinds.h"
#include "window/desktop/system_log.h"
#include "window/models/qt_text.h"
#include "writers/writer.h"

#include <QCoreApplication>
#include <new>

namespace tallyframe::window {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("failure", text);
}

/// What helps against a sheet that is too long, beside fewer tracks.
QString advice_for(const std::string& sheet)
{
    return choice_of_sheet(sheet) == nullptr
        ? translated(QT_TRANSLATE_NOOP("failure", "Tick fewer tracks, or report enabled clips only."))
        : translated(QT_TRANSLATE_NOOP(
            "failure", "Tick fewer tracks, or leave that sheet out on the page \"Content\"."));
}

alert_texts unexpected(const std::exception& error)
{
    const failure_alert alert = alert_for(error);
    write_system_log(alert.system_log_text);
    return {qt_text(alert.message_text), qt_text(alert.informative_text)};
}

} // namespace

alert_texts texts_for_analysis(std::exception_ptr failure)
{
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const std::bad_alloc&) {
        return {translated(QT_TRANSLATE_NOOP("failure", "There is not enough memory for this document")),
                translated(QT_TRANSLATE_NOOP("failure", "Close other applications and try again."))};
    } catch (const std::exception& error) {
        return unexpected(error);
    }
}

alert_texts texts_for_saving(std::exception_ptr failure)
{
    const QString headline = translated(QT_TRANSLATE_NOOP("failure", "The report could not be saved"));
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const sheet_too_long& error) {
        return {headline, qt_text(error.what()) + "\n" + advice_for(error.sheet)};
    } catch (const tallyframe::failure& error) {
        return {headline, qt_text(error.what())};
    } catch (const std::bad_alloc&) {
        return {headline, translated(QT_TRANSLATE_NOOP("failure", "There is not enough memory."))};
    } catch (const std::exception& error) {
        return unexpected(error);
    }
}

} // namespace tallyframe::window
