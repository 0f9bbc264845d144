// SPDX-License-Identifier: MIT
#include "cli/arguments.h"
#include "cli/messages.h"
#include "platform/application.h"
#include "run/failures.h"
#include "writers/writer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <new>
#include <sstream>

namespace tallyframe::cli {

namespace {

struct told {
    exit_code code;
    std::string text;
    bool operator==(const told&) const = default;
};

void PrintTo(const told& message, std::ostream* out)
{
    *out << message.code << ": " << message.text;
}

template <class Error>
told told_of(const Error& error, std::string_view subject = {})
{
    std::ostringstream err;
    try {
        throw error; // NOLINT(misc-throw-by-value-catch-by-reference)
    } catch (...) {
        const exit_code code = tell_failure(err, subject);
        return {code, err.str()};
    }
}

} // namespace

TEST(tell_failure, says_a_sentence_as_it_is)
{
    EXPECT_EQ(told_of(analysis_error("This sequence has no timebase")),
              (told{failed, "tallyframe: This sequence has no timebase\n"}));
    EXPECT_EQ(told_of(usage_error("There are two:\n   1  Reel 1\n")),
              (told{wrong_usage, "tallyframe: There are two:\n   1  Reel 1\n\n"}));
    EXPECT_EQ(told_of(run_cancelled()),
              (told{stopped, "tallyframe: stopped. The workbook was not written.\n"}));
    EXPECT_EQ(told_of(std::bad_alloc()),
              (told{failed, "tallyframe: there is not enough memory for this document.\n"}));
}

TEST(tell_failure, explains_the_two_exact_messages_of_a_load)
{
    EXPECT_EQ(told_of(load_error(load_fault::fatal_error)),
              (told{failed,
                    "tallyframe: fatal error\nThis XML file is incomplete or broken\n"
                    "Please export the XML file again.\n"}));
    EXPECT_EQ(told_of(load_error(load_fault::not_xmeml)),
              (told{failed,
                    "tallyframe: not xmeml\nThis is not a Final Cut Pro XML file\n"
                    "Please choose an XML file exported from\nPremiere Pro CC or Final Cut Pro.\n"}));
    EXPECT_EQ(told_of(load_error("It is a folder.")), (told{failed, "tallyframe: It is a folder.\n"}));
    EXPECT_EQ(told_of(failure("not xmeml")), (told{failed, "tallyframe: not xmeml\n"}));
}

TEST(tell_failure, says_what_failed)
{
    EXPECT_EQ(told_of(analysis_error("This sequence has no timebase"), "Reel 1\u202E"),
              (told{failed, "tallyframe: \"Reel 1<U+202E>\": This sequence has no timebase\n"}));
}

TEST(tell_failure, advises_on_a_sheet_that_is_too_long)
{
    EXPECT_EQ(
        told_of(sheet_too_long(
            "Filters", "The sheet \"Filters\" has 70,000 rows, but an Excel 97-2003 sheet holds 65,536.")),
        (told{failed,
              "tallyframe: The sheet \"Filters\" has 70,000 rows, but an Excel 97-2003 sheet holds 65,536.\n"
              "Report fewer tracks at a time with --tracks, or leave the sheet out with --no-filters.\n"}));
    EXPECT_EQ(told_of(sheet_too_long("Media Check", "Too long.")),
              (told{failed,
                    "tallyframe: Too long.\n"
                    "Report fewer tracks at a time with --tracks, or report without --media-sheet.\n"}));
}

TEST(tell_failure, shows_what_a_name_would_do_to_the_terminal)
{
    EXPECT_EQ(told_of(failure("one\u202E line\nanother\r")),
              (told{failed, "tallyframe: one<U+202E> line\nanother<U+000D>\n"}));
}

TEST(tell_failure, frames_the_text_of_a_library)
{
    EXPECT_EQ(told_of(std::length_error("vector::_M_default_append")),
              (told{failed,
                    "tallyframe: something unexpected went wrong: vector::_M_default_append\n"
                    "Try again. If it stays, please send the document and this message to "
                        + std::string(application::support_address) + ".\n"}));
    const std::filesystem::filesystem_error error("cannot get current path",
                                                  std::make_error_code(std::errc::no_such_file_or_directory));
    EXPECT_EQ(told_of(error).text.find("tallyframe: something unexpected went wrong: filesystem error: "),
              0U);
}

TEST(tell_losses, says_a_line_for_each_kind)
{
    account lost;
    lost.add(loss_kind::mended_lines, 1, "14");
    lost.add(loss_kind::missing_media, 2, "/a.mov");
    std::ostringstream err;
    tell_losses({}, err);
    EXPECT_EQ(err.str(), "");
    tell_losses(lost, err);
    EXPECT_EQ(err.str(),
              "tallyframe: 1 line of the document held bad characters and was mended (14).\n"
              "tallyframe: 2 media files were not found (/a.mov, …).\n");
    err.str("");
    tell_losses(lost, err, "cut - Reel 1.xls");
    EXPECT_EQ(
        err.str(),
        "tallyframe: \"cut - Reel 1.xls\": 1 line of the document held bad characters and was mended (14).\n"
        "tallyframe: \"cut - Reel 1.xls\": 2 media files were not found (/a.mov, …).\n");
}

} // namespace tallyframe::cli
