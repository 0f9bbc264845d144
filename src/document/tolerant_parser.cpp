// SPDX-License-Identifier: MIT
#include "document/tolerant_parser.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <exception>
#include <memory>
#include <new>
#include <string_view>

namespace tallyframe {

namespace {

/// What the parser's callbacks work with. An exception must not pass through a C library: it waits here.
struct parse_in_progress {
    const byte_source& source;
    const xml_error_handler& handle_error;
    std::exception_ptr failure;
};

std::string_view level_name(xmlErrorLevel level)
{
    switch (level) {
    case XML_ERR_WARNING:
        return "WARNING";
    case XML_ERR_FATAL:
        return "FATAL";
    default:
        return "ERROR";
    }
}

std::string_view message_of(const xmlError& error)
{
    std::string_view message = error.message == nullptr ? "unknown" : error.message;
    while (message.ends_with('\n'))
        message.remove_suffix(1);
    return message;
}

bool is_limit(const xmlError& error)
{
    const std::string_view message = message_of(error);
    return message.starts_with("Excessive depth") || message.find("huge text") != std::string_view::npos;
}

std::string printable(const xmlError& error)
{
    std::string text = std::to_string(error.line) + ":" + std::to_string(error.int2) + ": ";
    text += level_name(error.level);
    text += ": ";
    text += message_of(error);
    return text;
}

void take_error(void* context, xmlErrorPtr error)
{
    auto& parse = *static_cast<parse_in_progress*>(context);
    if (parse.failure != nullptr)
        return;
    try {
        parse.handle_error({error->line, error->level == XML_ERR_FATAL, is_limit(*error), printable(*error)});
    } catch (...) {
        parse.failure = std::current_exception();
    }
}

int read_bytes(void* context, char* buffer, int size)
{
    auto& parse = *static_cast<parse_in_progress*>(context);
    try {
        return parse.failure != nullptr
            ? -1
            : static_cast<int>(parse.source(buffer, static_cast<std::size_t>(size)));
    } catch (...) {
        parse.failure = std::current_exception();
        return -1;
    }
}

/// Sends the errors of this thread to a parse, and those after it to whom they went before.
class error_redirection {
public:
    explicit error_redirection(parse_in_progress& parse)
        : previous_context_(xmlStructuredErrorContext), previous_(xmlStructuredError)
    {
        xmlSetStructuredErrorFunc(&parse, take_error);
    }
    ~error_redirection() { xmlSetStructuredErrorFunc(previous_context_, previous_); }
    error_redirection(const error_redirection&) = delete;
    error_redirection& operator=(const error_redirection&) = delete;

private:
    void* previous_context_;
    xmlStructuredErrorFunc previous_;
};

} // namespace

xml_document parse_tolerantly(const byte_source& source, blank_texts blanks,
                              const xml_error_handler& handle_error)
{
    xmlInitParser();
    parse_in_progress parse = {source, handle_error, nullptr};
    const error_redirection redirection(parse);
    const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(xmlNewParserCtxt(),
                                                                               &xmlFreeParserCtxt);
    if (context == nullptr)
        throw std::bad_alloc();

    int options = XML_PARSE_RECOVER | XML_PARSE_NONET | XML_PARSE_COMPACT;
    if (blanks == blank_texts::dropped)
        options |= XML_PARSE_NOBLANKS;
    xml_document document(
        xmlCtxtReadIO(context.get(), read_bytes, nullptr, &parse, nullptr, nullptr, options));
    if (parse.failure != nullptr)
        std::rethrow_exception(parse.failure);
    return document;
}

} // namespace tallyframe
