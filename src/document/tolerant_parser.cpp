// SPDX-License-Identifier: MIT
#include "document/tolerant_parser.h"

#include "document/attribute_limit.h"
#include "platform/failures.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <exception>
#include <memory>
#include <new>
#include <string_view>

namespace tallyframe {

namespace {

// What a document type may cost. The library's time grows with the square of its length and of what it
// defines, and exporters write nothing but a name there.
constexpr std::size_t document_type_limit = 100'000; ///< bytes
constexpr std::size_t parameter_entities_limit = 1'000'000; ///< bytes that they stand for
constexpr std::size_t parameter_entity_cost = 100; ///< of a reference, in bytes, however short its text

/// What the parser's callbacks work with. An exception must not pass through a C library: it waits here.
struct parse_in_progress {
    const byte_source& source;
    const xml_error_handler& handle_error;
    xmlParserCtxtPtr parser = nullptr;
    std::exception_ptr failure = nullptr;
    attribute_limit attributes = {};
    std::size_t document_type_size = 0;
    std::size_t parameter_entities_size = 0;
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

parser_limit limit_of(const xmlError& error)
{
    const std::string_view message = message_of(error);
    if (message.starts_with("Excessive depth"))
        return parser_limit::depth;
    return message.find("huge text") != std::string_view::npos ? parser_limit::text_length
                                                               : parser_limit::none;
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
        parse.handle_error({error->line, error->level == XML_ERR_FATAL, limit_of(*error), printable(*error)});
    } catch (...) {
        parse.failure = std::current_exception();
    }
}

/// Ends the parse: no further bytes are read.
void refuse_document_type(parse_in_progress& parse)
{
    if (parse.failure != nullptr)
        return;
    parse.failure =
        std::make_exception_ptr(load_error("The document begins with a definition of its type that is too "
                                           "costly to follow. Please export it again."));
}

parse_in_progress& parse_of(void* parser)
{
    return *static_cast<parse_in_progress*>(static_cast<xmlParserCtxtPtr>(parser)->_private);
}

/// The library would give an attribute with a default to each element of that name.
void take_attribute(void* parser, const xmlChar*, const xmlChar*, int, int, const xmlChar* default_value,
                    xmlEnumerationPtr values)
{
    xmlFreeEnumeration(values);
    if (default_value != nullptr)
        refuse_document_type(parse_of(parser));
}

xmlEntityPtr find_parameter_entity(void* parser, const xmlChar* name)
{
    parse_in_progress& parse = parse_of(parser);
    xmlEntityPtr entity = xmlSAX2GetParameterEntity(parser, name);
    parse.parameter_entities_size += parameter_entity_cost;
    if (entity != nullptr)
        parse.parameter_entities_size += static_cast<std::size_t>(entity->length);
    if (parse.parameter_entities_size > parameter_entities_limit)
        refuse_document_type(parse);
    return parse.failure == nullptr ? entity : nullptr;
}

int read_bytes(void* context, char* buffer, int size)
{
    auto& parse = *static_cast<parse_in_progress*>(context);
    try {
        if (parse.failure != nullptr)
            return -1;
        const std::size_t count = parse.source(buffer, static_cast<std::size_t>(size));
        if (parse.parser->inSubset != 0 && (parse.document_type_size += count) > document_type_limit)
            refuse_document_type(parse);
        parse.attributes.check({buffer, count});
        return static_cast<int>(count);
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
    parse_in_progress parse = {source, handle_error};
    const error_redirection redirection(parse);
    const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(xmlNewParserCtxt(),
                                                                               &xmlFreeParserCtxt);
    if (context == nullptr)
        throw std::bad_alloc();
    parse.parser = context.get();
    context->_private = &parse;
    context->sax->attributeDecl = take_attribute;
    context->sax->getParameterEntity = find_parameter_entity;

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
