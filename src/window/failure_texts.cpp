// SPDX-License-Identifier: MIT
#include "window/failure_texts.h"

#include "platform/failures.h"
#include "sequence_to_spreadsheet/failure_alert.h"
#include "window/qt_text.h"
#include "window/system_log.h"
#include "workbook/workbook.h"

#include <QCoreApplication>
#include <filesystem>
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
    return sheet == "All Reels"
        ? translated(QT_TRANSLATE_NOOP("failure", "Tick fewer tracks, or report enabled clips only."))
        : translated(QT_TRANSLATE_NOOP(
            "failure", "Tick fewer tracks, or leave that sheet out on the page \"Content\"."));
}

alert_texts unexpected(const std::exception& error, const std::string& error_tracker)
{
    const failure_alert alert = alert_for(error, error_tracker);
    write_system_log(alert.system_log_text);
    return {qt_text(alert.message_text), qt_text(alert.informative_text)};
}

} // namespace

alert_texts texts_for_analysis(std::exception_ptr failure, const std::string& error_tracker)
{
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const std::bad_alloc&) {
        return {translated(QT_TRANSLATE_NOOP("failure", "There is not enough memory for this document")),
                translated(QT_TRANSLATE_NOOP("failure", "Close other applications and try again."))};
    } catch (const std::exception& error) {
        return unexpected(error, error_tracker);
    }
}

alert_texts texts_for_saving(std::exception_ptr failure)
{
    const QString headline = translated(QT_TRANSLATE_NOOP("failure", "The report could not be saved"));
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const xls::too_many_rows& error) {
        return {headline, qt_text(error.what()) + "\n" + advice_for(error.sheet)};
    } catch (const xls::workbook_error& error) {
        return {headline, qt_text(error.what())};
    } catch (const std::filesystem::filesystem_error& error) {
        return {headline, qt_text(error.what())};
    } catch (const tallyframe::failure& error) {
        return {headline, qt_text(error.what())};
    } catch (const std::bad_alloc&) {
        return {headline, translated(QT_TRANSLATE_NOOP("failure", "There is not enough memory."))};
    } catch (const std::exception& error) {
        return unexpected(error, {});
    }
}

} // namespace tallyframe::window
