// SPDX-License-Identifier: MIT
#pragma once

#include "document/compact_document.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace tallyframe {

/// A tag as the parser hands it over. The library's arrays: two entries a namespace, five an attribute.
struct start_tag {
    const xmlChar* name;
    const xmlChar* prefix;
    const xmlChar* uri;
    int namespace_count;
    const xmlChar** namespaces;
    int attribute_count;
    const xmlChar** attributes;
};

/// Makes a document of what a parser finds in it. Which elements are open is up to the parser, which may
/// close one on its own: each has a node in the parser's own stack, which shows it no more than whether the
/// element holds text, for that is where the parser looks to tell blanks that only lay out the markup.
class document_builder {
public:
    explicit document_builder(xmlParserCtxt& parser);

    void start_element(const start_tag& tag);
    void end_element();
    void add_text(const xmlChar* text, int size);
    void add_character_data(const xmlChar* text, int size);
    void add_comment(const xmlChar* text);
    void add_instruction(const xmlChar* target, const xmlChar* data); ///< `data` may be none
    void add_reference(const xmlChar* entity);

    /// The document, of which `library_document` has all but the elements.
    compact_document take_document(std::unique_ptr<xmlDoc, free_library_document> library_document);

private:
    static constexpr std::size_t deepest = 260; ///< the parser stops earlier

    /// Adds a record and gives its number.
    std::uint32_t add(node_kind kind, std::uint32_t name = 0, std::uint32_t parent_or_value = 0,
                      std::uint32_t end_or_size = 0);
    void add_valued(node_kind kind, std::uint32_t name, std::string_view value);
    void add_child(node_kind kind, std::uint32_t name, std::string_view value, xmlNode& shown);
    void add_attribute(const xmlChar** attribute);
    void register_identifier(const xmlChar* element_name, const xmlChar** attribute);
    void add_characters(node_kind kind, xmlNode& shown, const xmlChar* text, int size);
    void end_parse_for_length(const xmlChar* text, int size);
    void close_elements();
    void expand_entities();

    std::uint32_t number_of(const xmlChar* name);
    std::uint32_t number_of(const xmlChar* name, const xmlChar* prefix);
    std::uint32_t add_name(node_name name);

    xmlParserCtxt& parser_;
    compact_document document_;
    bool has_references_ = false;

    // The parser has each name once: it is known by its place, and mostly found at once.
    struct known_name {
        const xmlChar* name = nullptr;
        std::uint32_t number = 0;
    };
    std::array<known_name, 512> last_names_;
    std::unordered_map<const xmlChar*, std::uint32_t> plain_names_;
    std::map<std::tuple<const xmlChar*, const xmlChar*>, std::uint32_t> namespace_names_;

    // What the open elements show to the parser.
    std::array<xmlNode, deepest> open_nodes_ = {};
    std::vector<std::uint32_t> open_elements_;
    xmlNode text_ = {};
    xmlNode character_data_ = {};
    xmlNode other_ = {};
    std::size_t text_size_ = 0; ///< of the last text
};

} // namespace tallyframe
