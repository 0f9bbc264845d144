// SPDX-License-Identifier: MIT
#include "document/tolerant_parser.h"

#include "document/document_builder.h"
#include "run/failures.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <exception>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace tallyframe {

namespace {

// What a document type may cost. The library's time grows with the square of its length and of what it
// defines, and exporters write nothing but a name there.
constexpr std::size_t document_type_limit = 100'000; ///< bytes
constexpr std::size_t parameter_entities_limit = 1'000'000; ///< bytes that they stand for
constexpr std::size_t parameter_entity_cost = 100; ///< of a reference, in bytes, however short its text

// What a tag may cost. The library compares the attributes of a tag with each other, and a prefix with those
// of all namespaces that are declared around it.
constexpr int most_attributes = 1'000;
constexpr int most_namespaces = 100;

// The library's table of names, which has those of elements, attributes and each xml:id, stops growing: with
// more of them, each is compared with ever more others.
constexpr int most_names = 100'000;

/// What the parser's callbacks work with. An exception must not pass through a C library: it waits here.
struct parse_in_progress {
    const byte_source& source;
    const xml_error_handler& handle_error;
    xmlParserCtxtPtr parser = nullptr;
    document_builder* builder = nullptr;
    std::exception_ptr failure = nullptr;
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
void refuse(parse_in_progress& parse, const char* sentence)
{
    if (parse.failure == nullptr)
        parse.failure = std::make_exception_ptr(load_error(sentence));
}

void refuse_document_type(parse_in_progress& parse)
{
    refuse(parse,
           "The document begins with a definition of its type that is too costly to follow. Please export it "
           "again.");
}

void refuse_attributes(parse_in_progress& parse)
{
    refuse(parse,
           "The document has an element with more than 1,000 attributes, which no export has. Please export "
           "it again.");
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

void check_namespaces(parse_in_progress& parse, const xmlParserCtxt& parser)
{
    if (parser.nsNr / 2 > most_namespaces) // two entries each
        refuse(parse,
               "The document declares more than 100 namespaces for one element, which no export does. Please "
               "export it again.");
}

/// Each read of the bytes comes here, while start_element waits for the end of a tag: that would be too late
/// for one of a hundred thousand attributes.
void check_what_was_read(parse_in_progress& parse)
{
    if (xmlDictSize(parse.parser->dict) > most_names)
        refuse(parse,
               "The document has more than 100,000 different names (of elements, attributes or xml:id), "
               "which no export has. Please export it again.");
    // An attribute takes five entries of an array that grows to no more than twice of what it has to hold.
    if (parse.parser->maxatts > 2 * 5 * most_attributes)
        refuse_attributes(parse);
    check_namespaces(parse, *parse.parser);
}

/// Hands what the parser has found to the builder, or to the library: what stands outside of the root, or in
/// an entity, which has a parser of its own.
template <class ToBuilder, class ToLibrary>
void hand_over(void* parser, bool is_in_document, const ToBuilder& to_builder, const ToLibrary& to_library)
{
    parse_in_progress& parse = parse_of(parser);
    if (parser != parse.parser || !is_in_document) {
        to_library();
        return;
    }
    if (parse.failure != nullptr)
        return;
    try {
        to_builder(*parse.builder);
    } catch (...) {
        parse.failure = std::current_exception();
    }
}

bool is_in_element(void* parser)
{
    return static_cast<xmlParserCtxtPtr>(parser)->node != nullptr;
}

void start_element(void* parser, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                   int namespace_count, const xmlChar** namespaces, int attribute_count, int defaulted_count,
                   const xmlChar** attributes)
{
    parse_in_progress& parse = parse_of(parser);
    if (namespace_count + attribute_count > most_attributes)
        refuse_attributes(parse);
    check_namespaces(parse, *static_cast<xmlParserCtxtPtr>(parser));
    hand_over(
        parser, true,
        [&](document_builder& builder) {
            builder.start_element({name, prefix, uri, namespace_count, namespaces,
                                   attribute_count - defaulted_count, attributes});
        },
        [&] {
            xmlSAX2StartElementNs(parser, name, prefix, uri, namespace_count, namespaces, attribute_count,
                                  defaulted_count, attributes);
        });
}

void end_element(void* parser, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri)
{
    hand_over(
        parser, true, [](document_builder& builder) { builder.end_element(); },
        [&] { xmlSAX2EndElementNs(parser, name, prefix, uri); });
}

void take_text(void* parser, const xmlChar* text, int size)
{
    hand_over(
        parser, is_in_element(parser), [&](document_builder& builder) { builder.add_text(text, size); },
        [&] { xmlSAX2Characters(parser, text, size); });
}

void take_character_data(void* parser, const xmlChar* text, int size)
{
    hand_over(
        parser, is_in_element(parser),
        [&](document_builder& builder) { builder.add_character_data(text, size); },
        [&] { xmlSAX2CDataBlock(parser, text, size); });
}

void take_comment(void* parser, const xmlChar* text)
{
    hand_over(
        parser, is_in_element(parser), [&](document_builder& builder) { builder.add_comment(text); },
        [&] { xmlSAX2Comment(parser, text); });
}

void take_instruction(void* parser, const xmlChar* target, const xmlChar* data)
{
    hand_over(
        parser, is_in_element(parser),
        [&](document_builder& builder) { builder.add_instruction(target, data); },
        [&] { xmlSAX2ProcessingInstruction(parser, target, data); });
}

void take_reference(void* parser, const xmlChar* entity)
{
    hand_over(
        parser, is_in_element(parser), [&](document_builder& builder) { builder.add_reference(entity); },
        [&] { xmlSAX2Reference(parser, entity); });
}

void set_handlers(xmlSAXHandler& handlers)
{
    handlers.startElementNs = start_element;
    handlers.endElementNs = end_element;
    handlers.characters = take_text;
    handlers.ignorableWhitespace = take_text; // the same one: then the parser keeps all blanks
    handlers.cdataBlock = take_character_data;
    handlers.comment = take_comment;
    handlers.processingInstruction = take_instruction;
    handlers.reference = take_reference;
    handlers.attributeDecl = take_attribute;
    handlers.getParameterEntity = find_parameter_entity;
}

int read_bytes(void* context, char* buffer, int size)
{
    auto& parse = *static_cast<parse_in_progress*>(context);
    try {
        check_what_was_read(parse);
        if (parse.failure != nullptr)
            return -1;
        const std::size_t count = parse.source(buffer, static_cast<std::size_t>(size));
        if (parse.parser->inSubset != 0 && (parse.document_type_size += count) > document_type_limit)
            refuse_document_type(parse);
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
    document_builder builder(*context);
    parse.parser = context.get();
    parse.builder = &builder;
    context->_private = &parse;
    set_handlers(*context->sax);

    int options = XML_PARSE_RECOVER | XML_PARSE_NONET | XML_PARSE_COMPACT;
    if (blanks == blank_texts::dropped)
        options |= XML_PARSE_NOBLANKS;
    std::unique_ptr<xmlDoc, free_library_document> library_document(
        xmlCtxtReadIO(context.get(), read_bytes, nullptr, &parse, nullptr, nullptr, options));
    if (parse.failure != nullptr)
        std::rethrow_exception(parse.failure);
    if (library_document == nullptr)
        return {};
    return xml_document(builder.take_document(std::move(library_document)));
}

} // namespace tallyframe
