// SPDX-License-Identifier: MIT
#include "document/document_builder.h"

#include "document/entity_text.h"
#include "run/failures.h"

#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>

#include <bit>
#include <string>
#include <utility>

namespace tallyframe {

void free_library_document::operator()(_xmlDoc* document) const
{
    xmlFreeDoc(document);
}

namespace {

constexpr std::size_t most_bytes = 0xFFFFFFFE; ///< that a record can point to; of records too
constexpr std::uint32_t most_names = 0xFFFFFF; ///< the parser stops long before

std::string_view view_of(const xmlChar* text)
{
    return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

std::string_view view_of(const xmlChar* begin, const xmlChar* end)
{
    return {reinterpret_cast<const char*>(begin), static_cast<std::size_t>(end - begin)};
}

[[noreturn]] void refuse_for_length()
{
    throw load_error("The document holds more than 4 GB of text or 4 billion elements, which no export has. "
                     "Please export a part of it.");
}

inline void refuse_when_too_long(std::size_t size)
{
    if (size > most_bytes)
        refuse_for_length();
}

/// The entries of an attribute in the library's array.
enum attribute_entry { local_name, name_prefix, namespace_uri, value_begin, value_end, entries_of_attribute };

bool is_identifier(const xmlChar** attribute)
{
    return xmlStrEqual(attribute[name_prefix], BAD_CAST "xml") != 0
        && xmlStrEqual(attribute[local_name], BAD_CAST "id") != 0;
}

/// Shows the parser what an open element holds by now.
void show_child(xmlNode& element, xmlNode& child)
{
    element.last = &child;
    if (element.children == nullptr)
        element.children = &child;
}

} // namespace

document_builder::document_builder(xmlParserCtxt& parser) : parser_(parser)
{
    for (xmlNode& shown : open_nodes_)
        shown.type = XML_ELEMENT_NODE;
    text_.type = XML_TEXT_NODE;
    text_.name = xmlStringText;
    character_data_.type = XML_CDATA_SECTION_NODE;
    other_.type = XML_COMMENT_NODE;
}

void document_builder::start_element(const start_tag& tag)
{
    close_elements();
    // A prefix that is not declared belongs to the name.
    const bool has_odd_name = tag.prefix != nullptr && tag.uri == nullptr;
    const xmlChar* const name = has_odd_name ? xmlDictQLookup(parser_.dict, tag.prefix, tag.name) : tag.name;
    if (document_.nodes.empty()) {
        const xmlNode* before = parser_.myDoc == nullptr ? nullptr : parser_.myDoc->children;
        document_.first_node_name = view_of(before == nullptr ? name : before->name);
    }

    xmlNode* const parent = parser_.node;
    xmlNode& shown = open_nodes_.at(open_elements_.size());
    shown.name = name;
    shown.children = nullptr;
    shown.last = nullptr;
    if (nodePush(&parser_, &shown) < 0)
        return;
    if (parent != nullptr)
        show_child(*parent, other_);
    const std::uint32_t number = tag.uri == nullptr ? number_of(name) : number_of(name, tag.prefix);
    open_elements_.push_back(
        add(node_kind::element, number, open_elements_.empty() ? no_node : open_elements_.back()));
    for (std::ptrdiff_t i = 0; i < tag.namespace_count; ++i)
        add_valued(node_kind::namespace_declaration, number_of(tag.namespaces[2 * i]),
                   view_of(tag.namespaces[2 * i + 1]));
    for (std::ptrdiff_t i = 0; i < tag.attribute_count; ++i) {
        const xmlChar** attribute = tag.attributes + i * entries_of_attribute;
        add_attribute(attribute);
        if (is_identifier(attribute))
            register_identifier(name, attribute);
    }
}

void document_builder::add_attribute(const xmlChar** attribute)
{
    const xmlChar* const prefix = attribute[name_prefix];
    const std::uint32_t number = prefix == nullptr ? number_of(attribute[local_name])
        : attribute[namespace_uri] == nullptr // not declared: it belongs to the name
        ? number_of(xmlDictQLookup(parser_.dict, prefix, attribute[local_name]))
        : number_of(attribute[local_name], prefix);
    const std::string_view value = view_of(attribute[value_begin], attribute[value_end]);
    add_valued(node_kind::attribute, number, value);
    // A value with references is a copy that ends in a zero; of another one the parser shows the place.
    if (*attribute[value_end] == 0 && value.find('&') != std::string_view::npos) {
        add_valued(node_kind::written_attribute, number, value);
        has_references_ = true;
        // Here the library follows those to entities that it meets for the first time.
        xmlFreeNodeList(
            xmlStringLenGetNodeList(parser_.myDoc, attribute[value_begin], static_cast<int>(value.size())));
    }
}

/// An xml:id must be a name, and no other element may have it: the library, which tells of that, keeps those
/// elements itself.
void document_builder::register_identifier(const xmlChar* element_name, const xmlChar** attribute)
{
    xmlNode* const shown = nodePop(&parser_);
    parser_.node = nullptr;
    xmlSAX2StartElementNs(&parser_, element_name, nullptr, nullptr, 0, nullptr, 1, 0, attribute);
    nodePop(&parser_);
    nodePush(&parser_, shown);
}

void document_builder::end_element()
{
    nodePop(&parser_);
    close_elements();
}

void document_builder::add_text(const xmlChar* text, int size)
{
    add_characters(node_kind::text, text_, text, size);
}

void document_builder::add_character_data(const xmlChar* text, int size)
{
    add_characters(node_kind::character_data, character_data_, text, size);
}

void document_builder::add_characters(node_kind kind, xmlNode& shown, const xmlChar* text, int size)
{
    close_elements();
    xmlNode& element = *parser_.node;
    const auto count = static_cast<std::size_t>(size);
    if (element.last != &shown) {
        if (element.last == nullptr && kind == node_kind::text)
            document_.nodes[open_elements_.back()].begins_with_text = true;
        else
            add(kind);
        show_child(element, shown);
        text_size_ = 0;
    } else if (text_size_ + count > XML_MAX_TEXT_LENGTH) {
        end_parse_for_length(text, size);
        return;
    }
    text_size_ += count;
    refuse_when_too_long(document_.text.size() + count);
    document_.text.append(reinterpret_cast<const char*>(text), count);
}

/// The library itself ends the parse when it is told how long the text is by now that it shall go on with.
void document_builder::end_parse_for_length(const xmlChar* text, int size)
{
    parser_.node->last = &text_;
    text_.content = BAD_CAST "";
    parser_.nodelen = XML_MAX_TEXT_LENGTH;
    parser_.nodemem = -1;
    xmlSAX2Characters(&parser_, text, size);
}

void document_builder::add_comment(const xmlChar* text)
{
    add_child(node_kind::comment, 0, view_of(text), other_);
}

void document_builder::add_instruction(const xmlChar* target, const xmlChar* data)
{
    add_child(node_kind::instruction, number_of(target), view_of(data), other_);
    if (data == nullptr)
        document_.nodes[document_.nodes.size() - 1].end_or_size = no_value;
}

void document_builder::add_reference(const xmlChar* entity)
{
    add_child(node_kind::reference, 0, view_of(entity), other_);
    has_references_ = true;
}

std::uint32_t document_builder::add(node_kind kind, std::uint32_t name, std::uint32_t parent_or_value,
                                    std::uint32_t end_or_size)
{
    const std::size_t number = document_.nodes.size();
    refuse_when_too_long(number);
    node_record record;
    record.name = name & most_names;
    record.kind = kind;
    record.begins_with_text = false;
    record.parent_or_value = parent_or_value;
    record.end_or_size = end_or_size;
    record.text_begin = static_cast<std::uint32_t>(document_.text.size());
    document_.nodes.push_back(record);
    return static_cast<std::uint32_t>(number);
}

void document_builder::add_valued(node_kind kind, std::uint32_t name, std::string_view value)
{
    const std::size_t begin = document_.values.size();
    refuse_when_too_long(begin + value.size());
    document_.values.append(value.data(), value.size());
    add(kind, name, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(value.size()));
}

void document_builder::add_child(node_kind kind, std::uint32_t name, std::string_view value, xmlNode& shown)
{
    close_elements();
    add_valued(kind, name, value);
    show_child(*parser_.node, shown);
}

/// Those that the parser has closed.
inline void document_builder::close_elements()
{
    for (; open_elements_.size() > static_cast<std::size_t>(parser_.nodeNr); open_elements_.pop_back())
        document_.nodes[open_elements_.back()].end_or_size =
            static_cast<std::uint32_t>(document_.nodes.size());
}

compact_document
document_builder::take_document(std::unique_ptr<xmlDoc, free_library_document> library_document)
{
    while (parser_.nodeNr > 0) // those without an end
        nodePop(&parser_);
    close_elements();
    add(node_kind::text);
    if (document_.node_count() == 0 && library_document->children != nullptr)
        document_.first_node_name = view_of(library_document->children->name);
    document_.library_document = std::move(library_document);
    for (const node_name& name : document_.names)
        document_.plain_names.push_back(name.has_namespace ? std::string_view() : name.name);
    if (has_references_)
        expand_entities();
    document_.nodes.shrink_to_fit();
    document_.text.shrink_to_fit();
    document_.values.shrink_to_fit();
    return std::move(document_);
}

/// Puts what references stand for in their places, now that all entities are known.
void document_builder::expand_entities()
{
    const xmlDoc& library_document = *document_.library_document;
    entity_text entities(document_.library_document.get(), expanded_text_limit);
    growing_block<char> text;
    std::size_t copied = 0; // of the text
    for (std::size_t i = 0; i < document_.nodes.size(); ++i) {
        node_record& record = document_.nodes[i];
        text.append(document_.text.data() + copied, record.text_begin - copied);
        copied = record.text_begin;
        refuse_when_too_long(text.size() + expanded_text_limit);
        record.text_begin = static_cast<std::uint32_t>(text.size());
        if (record.kind == node_kind::reference) {
            const std::string expanded = entities.of_reference(std::string(document_.value_of(record)));
            text.append(expanded.data(), expanded.size());
        } else if (record.kind == node_kind::written_attribute) {
            const std::string expanded = entities.of_attribute(std::string(document_.value_of(record)));
            node_record& attribute = document_.nodes[i - 1];
            refuse_when_too_long(document_.values.size() + expanded.size());
            attribute.parent_or_value = static_cast<std::uint32_t>(document_.values.size());
            attribute.end_or_size = static_cast<std::uint32_t>(expanded.size());
            document_.values.append(expanded.data(), expanded.size());
        }
    }
    document_.text = std::move(text);
    document_.entities_are_too_long = entities.are_too_long() && library_document.intSubset != nullptr
        && library_document.intSubset->entities != nullptr;
}

std::uint32_t document_builder::number_of(const xmlChar* name)
{
    known_name& last = last_names_.at(std::bit_cast<std::uintptr_t>(name) % last_names_.size());
    if (last.name != name || name == nullptr) {
        const auto [known, is_new] = plain_names_.try_emplace(name, 0);
        if (is_new)
            known->second =
                add_name({.name = std::string(view_of(name)), .prefix = "", .has_namespace = false});
        last = {name, known->second};
    }
    return last.number;
}

std::uint32_t document_builder::number_of(const xmlChar* name, const xmlChar* prefix)
{
    const auto [known, is_new] = namespace_names_.try_emplace({name, prefix}, 0);
    if (is_new)
        known->second = add_name({.name = std::string(view_of(name)),
                                  .prefix = std::string(view_of(prefix)),
                                  .has_namespace = true});
    return known->second;
}

std::uint32_t document_builder::add_name(node_name name)
{
    document_.names.push_back(std::move(name));
    return static_cast<std::uint32_t>(document_.names.size() - 1);
}

} // namespace tallyframe
