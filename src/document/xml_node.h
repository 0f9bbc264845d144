// SPDX-License-Identifier: MIT
#pragma once

#include "document/compact_document.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

class child_elements;

/// An element of a loaded document, or none. A light handle: the document owns the element and must live as
/// long. Names match elements without a namespace; paths are element names joined by "/".
///
/// Every reading operation on none answers with none or nothing.
class xml_node {
public:
    xml_node() = default;
    xml_node(const compact_document& document, std::uint32_t number) : document_(&document), number_(number)
    {
    }

    explicit operator bool() const { return document_ != nullptr; }
    bool operator==(const xml_node&) const = default;

    std::string_view name() const;

    /// Whether the element bears that name and no namespace.
    bool has_name(std::string_view expected) const;

    /// All text inside the element, nested elements and the document's own entities included, as one string.
    /// Nothing is trimmed.
    std::string text() const;

    /// Whether text() equals `expected`, without making the string.
    bool text_is(std::string_view expected) const;

    std::optional<std::string> attribute(std::string_view attribute_name) const;

    xml_node parent() const;

    /// The sibling elements before and after this one, or none.
    xml_node previous_element() const;
    xml_node next_element() const;

    xml_node first_element() const;

    /// The elements directly inside, as a range.
    child_elements children() const;

    /// Whether anything (an element, a text, a comment) stands inside the element.
    bool has_children() const;

    /// First child element of that name.
    xml_node child(std::string_view child_name) const;

    /// First match of a path such as "timecode/rate/ntsc" in document order: each step looks at every child
    /// of that name, not at the first one only.
    xml_node first(std::string_view path) const;

    /// All matches of a path, in document order.
    std::vector<xml_node> all(std::string_view path) const;

    /// First element of that name anywhere inside this one, in document order.
    xml_node first_descendant(std::string_view descendant_name) const;

    /// All elements of that name anywhere inside this one, in document order.
    std::vector<xml_node> all_descendants(std::string_view descendant_name) const;

    /// Text of the first match of the path; nothing when there is no match.
    std::optional<std::string> text_of(std::string_view path) const;

    /// The element as markup, as it would stand in the document.
    std::string markup() const;

    friend bool stands_before(xml_node first, xml_node second);
    friend xml_node next_in_document(xml_node node, xml_node root);

private:
    friend struct std::hash<xml_node>;

    /// The first element from `number` on and before `end`, or none.
    xml_node element_from(std::uint32_t number, std::uint32_t end) const;

    /// Behind the last record that may be inside of this element or around.
    std::uint32_t end() const;
    std::uint32_t end_of_siblings() const;

    const compact_document* document_ = nullptr;
    std::uint32_t number_ = 0; ///< of its record
};

/// The elements directly inside another, in document order.
class child_elements {
public:
    class iterator {
    public:
        using value_type = xml_node;
        using difference_type = std::ptrdiff_t;

        iterator() = default;
        explicit iterator(xml_node element) : element_(element) { }

        xml_node operator*() const { return element_; }
        iterator& operator++()
        {
            element_ = element_.next_element();
            return *this;
        }
        iterator operator++(int)
        {
            const iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const iterator&) const = default;

    private:
        xml_node element_; // none behind the last one
    };

    explicit child_elements(xml_node first) : first_(first) { }

    iterator begin() const { return iterator(first_); }
    static iterator end() { return {}; }

private:
    xml_node first_;
};

// Inline, for the walks over all elements.

inline bool xml_node::has_name(std::string_view expected) const
{
    return document_ != nullptr && !expected.empty()
        && document_->plain_names[document_->nodes[number_].name] == expected;
}

inline std::uint32_t xml_node::end() const
{
    return document_->nodes[number_].end_or_size;
}

inline std::uint32_t xml_node::end_of_siblings() const
{
    const std::uint32_t parent = document_->nodes[number_].parent_or_value;
    return parent == no_node ? document_->node_count() : document_->nodes[parent].end_or_size;
}

inline xml_node xml_node::element_from(std::uint32_t number, std::uint32_t end) const
{
    for (; number < end; ++number) {
        if (document_->nodes[number].kind == node_kind::element)
            return {*document_, number};
    }
    return {};
}

inline xml_node xml_node::parent() const
{
    if (document_ == nullptr || document_->nodes[number_].parent_or_value == no_node)
        return {};
    return {*document_, document_->nodes[number_].parent_or_value};
}

inline xml_node xml_node::next_element() const
{
    return document_ == nullptr ? xml_node() : element_from(end(), end_of_siblings());
}

inline xml_node xml_node::first_element() const
{
    return document_ == nullptr ? xml_node() : element_from(number_ + 1, end());
}

inline child_elements xml_node::children() const
{
    return child_elements(first_element());
}

/// Whether `first` comes before `second` in their document.
bool stands_before(xml_node first, xml_node second);

/// The element after `node` in document order (its first child, else what follows it), staying inside `root`;
/// none after the last one. `for (n = root; n; n = next_in_document(n, root))` visits every element once.
xml_node next_in_document(xml_node node, xml_node root);

/// A parsed document; owns all its nodes.
class xml_document {
public:
    xml_document();
    explicit xml_document(compact_document document);
    xml_document(xml_document&&) noexcept;
    xml_document& operator=(xml_document&&) noexcept;
    ~xml_document();

    explicit operator bool() const { return document_ != nullptr; }

    xml_node root() const;

    /// The records of a document, which there must be.
    const compact_document& content() const { return *document_; }

    /// Name of the first node of the document: that of the document type declaration when there is one,
    /// otherwise of what stands first (a comment's is "comment").
    std::string first_node_name() const;

    /// Whether all references to entities together stand for more text than is read (expanded_text_limit).
    bool entities_are_too_long() const;

private:
    std::unique_ptr<const compact_document> document_;
};

} // namespace tallyframe

/// Elements are told apart by their place in their document.
template <>
struct std::hash<tallyframe::xml_node> {
    std::size_t operator()(tallyframe::xml_node node) const
    {
        return std::hash<std::uint32_t>{}(node.number_);
    }
};
