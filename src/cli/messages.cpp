// SPDX-License-Identifier: MIT
#include "cli/messages.h"

#include "cli/arguments.h"
#include "platform/application.h"
#include "run/failures.h"
#include "sequence_to_spreadsheet/failure_alert.h"
#include "sheets/sheet_kinds.h"
#include "text/visible_text.h"
#include "writers/writer.h"

#include <fmt/format.h>

#include <new>
#include <string>

namespace tallyframe::cli {

namespace {

/// What helps against a sheet that is too long.
std::string advice_for(const std::string& sheet)
{
    const sheet_option* choice = choice_of_sheet(sheet);
    if (choice == nullptr)
        return "Report fewer tracks at a time with --tracks, or only what is enabled with --enabled-only.";
    return fmt::format("Report fewer tracks at a time with --tracks, or {} {}.",
                       choice->is_default() ? "leave the sheet out with" : "report without", choice->flag);
}

/// A text of several lines that are meant: all else in it is made visible.
std::string visible_lines(std::string_view text)
{
    std::string lines;
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        lines += visible_text(text.substr(0, end)) + '\n';
        text.remove_prefix(end + 1);
    }
    return lines + visible_text(text);
}

std::string start_of_message(std::string_view subject)
{
    return subject.empty() ? "tallyframe: " : "tallyframe: " + visible_name(subject) + ": ";
}

/// The exact messages of a load say little: what they mean stands below.
std::string sentence_of(const load_error& error)
{
    std::string sentence = visible_lines(error.what());
    if (error.fault() == load_fault::fatal_error || error.fault() == load_fault::not_xmeml) {
        const failure_alert texts = alert_for(error);
        sentence += fmt::format("\n{}\n{}", texts.message_text, texts.informative_text);
    }
    return sentence;
}

/// For a failure that nobody has written a sentence for: a fault of the system, or of ours.
std::string sentence_of_unexpected(const std::exception& error)
{
    return fmt::format(
        "something unexpected went wrong: {}\nTry again. If it stays, please send the document and "
        "this message to {}.",
        visible_text(error.what()), application::support_address);
}

} // namespace

exit_code tell_failure(std::ostream& err, std::string_view subject)
{
    const std::string start = start_of_message(subject);
    try {
        throw;
    } catch (const usage_error& error) {
        err << fmt::format("{}{}\n", start, visible_lines(error.what()));
        return wrong_usage;
    } catch (const run_cancelled&) {
        err << fmt::format("{}stopped. The workbook was not written.\n", start);
        return stopped;
    } catch (const sheet_too_long& error) {
        err << fmt::format("{}{}\n{}\n", start, error.what(), advice_for(error.sheet));
    } catch (const load_error& error) {
        err << fmt::format("{}{}\n", start, sentence_of(error));
    } catch (const failure& error) {
        err << fmt::format("{}{}\n", start, visible_lines(error.what()));
    } catch (const std::bad_alloc&) {
        err << start << "there is not enough memory for this document.\n";
    } catch (const std::exception& error) {
        err << fmt::format("{}{}\n", start, sentence_of_unexpected(error));
    }
    return failed;
}

void tell_losses(const account& lost, std::ostream& err, std::string_view subject)
{
    for (const std::string& sentence : sentences_of(lost))
        err << fmt::format("{}{}\n", start_of_message(subject), sentence);
}

} // namespace tallyframe::cli
