// SPDX-License-Identifier: MIT
#include "document/parse_xml.h"

#include "document/character_repair.h"
#include "document/gentle_repair.h"
#include "document/tolerant_parser.h"
#include "run/failures.h"
#include "run/gui_mode.h"
#include "text/leading_numbers.h"

#include <libxml/parser.h>

#include <utility>
#include <vector>

namespace tallyframe {

namespace {

/// Errors of a parse: how many, and the first lines that have some.
struct noted_errors {
    std::size_t count = 0;
    std::vector<int> first_lines;

    void add(int line)
    {
        ++count;
        if (line > 0 && first_lines.size() < account::most_examples
            && (first_lines.empty() || first_lines.back() != line))
            first_lines.push_back(line);
    }
};

/// What the parser complains about in the document as it is.
struct complaints {
    damaged_lines lines;
    noted_errors all;
    noted_errors not_fatal;

    void add(const xml_error& error)
    {
        lines.add(error.line);
        all.add(error.line);
        if (!error.is_fatal)
            not_fatal.add(error.line);
    }
};

/// A document that could be used after its repair.
struct mended_document {
    xml_document document;
    dropped_characters dropped;
    std::size_t remaining_errors = 0; ///< none of them fatal
    std::size_t reread = 0; ///< bytes that were read as Windows-1252
};

/// Parses the text once more with all lines clean, and prints what is still wrong with it. False if that is
/// fatal.
bool parse_with_all_lines_clean(std::string& text, mended_document& mended, diagnostics& out,
                                progress& display)
{
    clean_all_lines(text, mended.dropped, display);
    bool is_fatal = false;
    parser_limit passed = parser_limit::none;
    mended.document =
        parse_tolerantly(lines_joined(text, display), blank_texts::kept, [&](const xml_error& error) {
            out.write(error.printable + "\n");
            ++mended.remaining_errors;
            is_fatal = is_fatal || error.is_fatal;
            if (passed == parser_limit::none)
                passed = error.limit;
        });
    if (passed == parser_limit::depth)
        throw load_error("The document nests elements more than 256 deep. Please export a simpler sequence.");
    if (passed == parser_limit::text_length)
        throw load_error("The document holds a text of more than 10 million characters. Please shorten it, "
                         "then export the document again.");
    return !is_fatal || !mended.document.root();
}

/// Parses the document with as little taken out as can be, where the usual repair has left nothing to use: a
/// letter in Latin-1 takes two bytes of markup with it there. Fails if that does not help either.
mended_document parse_gently(const xml_input& input, progress& display)
{
    mended_document mended;
    xml_input gently;
    {
        const std::string text = whole_text(input, display);
        if (!may_be_utf8(text))
            throw load_error(load_fault::fatal_error);
        gently_mended_text result = gently_mended(text, display);
        mended.dropped = std::move(result.dropped);
        mended.reread = result.reread;
        gently = std::move(result.text);
    }
    bool is_fatal = false;
    mended.document =
        parse_tolerantly(bytes_of(gently, display), blank_texts::dropped, [&](const xml_error& error) {
            ++mended.remaining_errors;
            is_fatal = is_fatal || error.is_fatal;
        });
    if (is_fatal)
        throw load_error(load_fault::fatal_error);
    return mended;
}

mended_document parse_repaired(const xml_input& input, const damaged_lines& damaged, diagnostics& out,
                               progress& display)
{
    mended_document mended;
    std::string text = whole_text(input, display);
    clean_lines(text, damaged, mended.dropped, display);
    bool has_errors = false;
    mended.document = parse_tolerantly(lines_joined(text, display), blank_texts::kept,
                                       [&](const xml_error&) { has_errors = true; });
    if (has_errors) {
        mended.document = {}; // its memory first, then that of the next one
        if (!parse_with_all_lines_clean(text, mended, out, display)) {
            text = {};
            mended = {};
            return parse_gently(input, display);
        }
    }
    return mended;
}

/// Prints what is wrong with a document that no repair makes XML.
[[noreturn]] void refuse_what_is_no_xml(std::string beginning, diagnostics& out, progress& display)
{
    mended_document nothing;
    (void)parse_with_all_lines_clean(beginning, nothing, out, display);
    throw load_error(load_fault::not_xmeml);
}

account losses_of(const mended_document& mended, const complaints& first)
{
    account losses;
    losses.add(loss_kind::mended_lines, mended.dropped.line_count);
    for (const std::size_t line : mended.dropped.first_lines)
        losses.add(loss_kind::mended_lines, 0, std::to_string(line));
    losses.add(loss_kind::dropped_characters, mended.dropped.count);
    losses.add(loss_kind::reread_characters, mended.reread);

    // In a mended document all errors are in line 1: those that a repair cannot help against tell where they
    // were. Where nothing was dropped, joining the lines is what made the errors go away.
    const bool has_errors = mended.remaining_errors != 0;
    const noted_errors& told = has_errors ? first.not_fatal : first.all;
    if (has_errors || (mended.dropped.count == 0 && mended.reread == 0)) {
        losses.add(loss_kind::passed_over_errors, has_errors ? mended.remaining_errors : told.count);
        for (const int line : told.first_lines)
            losses.add(loss_kind::passed_over_errors, 0, "line " + std::to_string(line));
    }
    return losses;
}

} // namespace

parsed_xml parse_xml(const xml_input& input, diagnostics& out, progress& display)
{
    complaints first;
    account losses;
    xml_document document = parse_tolerantly(bytes_of(input, display), blank_texts::dropped,
                                             [&](const xml_error& error) { first.add(error); });
    if (!first.lines.empty()) {
        if (gui_mode != false)
            display.show_message("Fixing bad characters in the XML file...\n");
        if (!document.root()) {
            if (auto beginning = beginning_without_tag(input, display))
                refuse_what_is_no_xml(std::move(*beginning), out, display);
        }
        document = {};
        mended_document mended = parse_repaired(input, first.lines, out, display);
        document = std::move(mended.document);
        losses = losses_of(mended, first);
    }
    if (!document.root())
        throw load_error(load_fault::not_xmeml);
    if (document.entities_are_too_long())
        throw load_error(
            "The document defines entities that stand for more than 10 million characters. Please "
            "export it again.");

    document_index index(document, display);
    std::string first_node_name = document.first_node_name();
    const bool no_updatebehavior = !index.has_updatebehavior;
    return {std::move(document), std::move(first_node_name), no_updatebehavior, std::move(index),
            std::move(losses)};
}

std::string xml_library_version()
{
    const std::int64_t number = leading_integer(xmlParserVersion);
    return "libxml2 " + std::to_string(number / 10'000) + "." + std::to_string(number / 100 % 100) + "."
        + std::to_string(number % 100) + " (built with " LIBXML_DOTTED_VERSION ")";
}

} // namespace tallyframe
