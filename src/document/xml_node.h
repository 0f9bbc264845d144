// SPDX-License-Identifier: MIT
#pragma once

#include "run/progress.h"

#include <cstddef>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct _xmlDoc; // NOLINT(bugprone-reserved-identifier): the XML library's own names
struct _xmlNode; // NOLINT(bugprone-reserved-identifier)

namespace tallyframe {

/// How much text, in bytes, the entities that a document defines may bring into one value; the rest is cut.
/// No exporter writes entities of its own: whoever does is after the memory of the reader.
inline constexpr std::size_t expanded_text_limit = 10'000'000;

class child_elements;

/// An element of a loaded document, or none. A light handle: the document owns the element and must live as
/// long. Names match elements without a namespace; paths are element names joined by "/".
///
/// Every reading operation on none answers with none or nothing.
class xml_node {
public:
    xml_node() = default;
    explicit xml_node(_xmlNode* node) : node_(node) { }

    explicit operator bool() const { return node_ != nullptr; }
    bool operator==(const xml_node&) const = default;
    _xmlNode* get() const { return node_; }

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

private:
    _xmlNode* node_ = nullptr;
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
    xml_document() = default;
    explicit xml_document(_xmlDoc* document) : document_(document) { }

    explicit operator bool() const { return document_ != nullptr; }
    _xmlDoc* get() const { return document_.get(); }

    xml_node root() const;

    /// Name of the first node of the document: that of the document type declaration when there is one,
    /// otherwise of what stands first (a comment's is "comment").
    std::string first_node_name() const;

    /// Whether all references to entities together stand for `limit` bytes of text at most.
    bool entities_stay_within(std::size_t limit) const;

    /// What a run that was stopped does with its document. Nobody waits until millions of nodes are free: a
    /// thread frees them, or, for a command line, the end of the process.
    void give_up();

    /// Frees the nodes and waits for it as long as the run is wanted. Throws run_cancelled when it no longer
    /// is.
    void free_before_going_on(progress& display);

    /// Gives the memory up to the end of the process: a program that is about to leave saves the walk over
    /// millions of nodes.
    void leave_to_process_end();

private:
    struct free_document {
        void operator()(_xmlDoc* document) const;
    };
    std::future<void> start_freeing();

    std::unique_ptr<_xmlDoc, free_document> document_;
};

} // namespace tallyframe

/// Elements are told apart by their place in their document.
template <>
struct std::hash<tallyframe::xml_node> {
    std::size_t operator()(tallyframe::xml_node node) const
    {
        return std::hash<const _xmlNode*>{}(node.get());
    }
};
