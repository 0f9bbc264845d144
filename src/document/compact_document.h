// SPDX-License-Identifier: MIT
#pragma once

#include "document/growing_block.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _xmlDoc; // NOLINT(bugprone-reserved-identifier): the XML library's own name

namespace tallyframe {

// A loaded document: what stands in it, one small record behind the other in the order of the document. An
// element is followed by its attributes, then by what is inside of it, so that its first child is the next
// record and its next sibling the one at its end. Character data stand in one block of text in the same
// order: all text inside an element is one piece of it.
//
//     <clip id="a"><name>One</name>, two<in/></clip>        text: One, two
//
//     0 element   clip   parent -   end 5   text from 0
//     1 attribute id     value "a"          text from 0
//     2 element   name   parent 0   end 3   text from 0, which follows it at once
//     3 text                                text from 3
//     4 element   in     parent 0   end 5   text from 8
//     5 (end)                               text from 8

enum class node_kind : std::uint8_t {
    element,
    text, ///< behind something else: the text at the beginning of an element needs no record
    character_data, ///< a CDATA section
    comment,
    instruction,
    reference, ///< to an entity; its value is the entity's name, its text what that stands for
    attribute,
    written_attribute, ///< the attribute before it with its references, as the document has it
    namespace_declaration ///< its name is the prefix
};

inline constexpr std::uint32_t no_node = 0xFFFFFFFF;
inline constexpr std::uint32_t no_value = 0xFFFFFFFF; ///< size of the value of what has none

struct node_record {
    std::uint32_t name : 24; ///< number of
    node_kind kind : 7;
    bool begins_with_text : 1;
    std::uint32_t parent_or_value; ///< parent of an element, or no_node; of others, where the value begins
    std::uint32_t end_or_size; ///< behind the last record inside of an element; of others, size of the value
    std::uint32_t text_begin; ///< of what stands in the node and behind it
};
static_assert(sizeof(node_record) == 16);

struct node_name {
    std::string name; ///< without the prefix of its namespace
    std::string prefix;
    bool has_namespace = false;
};

struct free_library_document {
    void operator()(_xmlDoc* document) const;
};

struct compact_document {
    growing_block<node_record> nodes; ///< and one more behind the last, where its text ends
    growing_block<char> text;
    growing_block<char> values; ///< of attributes, comments, instructions, namespaces
    std::vector<node_name> names; ///< by their numbers
    std::vector<std::string_view> plain_names; ///< the same, "" for those of a namespace

    std::string first_node_name; ///< of what stands first in the document, the document type included
    bool entities_are_too_long = false;

    /// What the XML library keeps of a document without its elements: its type, its entities, its encoding.
    std::unique_ptr<_xmlDoc, free_library_document> library_document;

    std::uint32_t node_count() const { return static_cast<std::uint32_t>(nodes.size() - 1); }

    std::string_view text_between(std::uint32_t node, std::uint32_t end) const
    {
        const std::size_t begin = nodes[node].text_begin;
        return {text.data() + begin, nodes[end].text_begin - begin};
    }

    std::string_view text_inside(std::uint32_t element) const
    {
        return text_between(element, nodes[element].end_or_size);
    }

    std::string_view value_of(const node_record& node) const
    {
        return {values.data() + node.parent_or_value, node.end_or_size};
    }
};

} // namespace tallyframe
