// SPDX-License-Identifier: MIT
#include "document/markup.h"

#include <libxml/tree.h>

#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyframe {

namespace {

const xmlChar* chars(const std::string& text)
{
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

template <class Made>
Made* made(Made* node)
{
    if (node == nullptr)
        throw std::bad_alloc();
    return node;
}

/// An element and what is around it as nodes of the XML library, which finds namespaces by them.
class library_tree {
public:
    explicit library_tree(const compact_document& document)
        : document_(document), library_document_(document.library_document.get())
    {
    }

    xmlNode* make(std::uint32_t element)
    {
        std::vector<std::uint32_t> outer;
        for (std::uint32_t node = parent_of(element); node != no_node; node = parent_of(node))
            outer.push_back(node);
        while (!outer.empty()) {
            add_element(outer.back());
            outer.pop_back();
        }
        std::vector<std::pair<xmlNode*, std::uint32_t>> open; // and where each ends
        xmlNode* const around = current_;
        for (std::uint32_t node = element; node < document_.nodes[element].end_or_size;) {
            while (!open.empty() && node >= open.back().second)
                open.pop_back();
            current_ = open.empty() ? around : open.back().first;
            if (document_.nodes[node].kind != node_kind::element) {
                add_other(node++);
                continue;
            }
            const std::uint32_t end = document_.nodes[node].end_or_size;
            const std::uint32_t inside = add_element(node);
            open.emplace_back(current_, end);
            if (document_.nodes[node].begins_with_text)
                add_text(document_.text_between(node, inside));
            node = inside;
        }
        return open.front().first;
    }

private:
    std::uint32_t parent_of(std::uint32_t element) const { return document_.nodes[element].parent_or_value; }

    const node_name& name_of(std::uint32_t node) const { return document_.names[document_.nodes[node].name]; }

    void add(xmlNode* node)
    {
        if (current_ != nullptr) {
            xmlAddChild(current_, node);
            return;
        }
        top_.reset(node);
        node->parent = reinterpret_cast<xmlNode*>(library_document_);
    }

    xmlNs* namespace_of(std::uint32_t node) const
    {
        const node_name& name = name_of(node);
        if (!name.has_namespace)
            return nullptr;
        return xmlSearchNs(library_document_, current_, name.prefix.empty() ? nullptr : chars(name.prefix));
    }

    /// Adds an element with its attributes, which is the current one then, and gives the number of the node
    /// behind those.
    std::uint32_t add_element(std::uint32_t element)
    {
        xmlNode* node =
            made(xmlNewDocNode(library_document_, nullptr, chars(name_of(element).name), nullptr));
        add(node);
        current_ = node;
        std::uint32_t next = element + 1;
        for (; is(next, node_kind::namespace_declaration); ++next) {
            const std::string uri(document_.value_of(document_.nodes[next]));
            const std::string& prefix = name_of(next).name;
            xmlNewNs(node, chars(uri), prefix.empty() ? nullptr : chars(prefix));
        }
        node->ns = namespace_of(element);
        for (; is(next, node_kind::attribute); ++next) {
            xmlAttr* const attribute =
                made(xmlNewNsProp(node, namespace_of(next), chars(name_of(next).name), nullptr));
            const bool is_written = is(next + 1, node_kind::written_attribute);
            set_value(*attribute, document_.value_of(document_.nodes[is_written ? next + 1 : next]),
                      is_written);
            next += is_written ? 1 : 0;
        }
        return next;
    }

    bool is(std::uint32_t node, node_kind kind) const { return document_.nodes[node].kind == kind; }

    void set_value(xmlAttr& attribute, std::string_view value, bool is_written)
    {
        const std::string copy(value);
        const int size = static_cast<int>(value.size());
        attribute.children = is_written ? xmlStringLenGetNodeList(library_document_, chars(copy), size)
                                        : xmlNewDocTextLen(library_document_, chars(copy), size);
        for (xmlNode* node = attribute.children; node != nullptr; node = node->next) {
            node->parent = reinterpret_cast<xmlNode*>(&attribute);
            attribute.last = node;
        }
    }

    void add_text(std::string_view text)
    {
        const std::string copy(text);
        add(made(xmlNewDocTextLen(library_document_, chars(copy), static_cast<int>(copy.size()))));
    }

    void add_other(std::uint32_t node)
    {
        const node_record& record = document_.nodes[node];
        if (record.kind == node_kind::text || record.kind == node_kind::character_data) {
            const std::string text(document_.text_between(node, node + 1));
            if (record.kind == node_kind::text)
                add_text(text);
            else
                add(made(xmlNewCDataBlock(library_document_, chars(text), static_cast<int>(text.size()))));
            return;
        }
        const bool has_value = record.end_or_size != no_value;
        const std::string value(has_value ? document_.value_of(record) : std::string_view());
        if (record.kind == node_kind::comment)
            add(made(xmlNewDocComment(library_document_, chars(value))));
        else if (record.kind == node_kind::instruction)
            add(made(xmlNewDocPI(library_document_, chars(name_of(node).name),
                                 has_value ? chars(value) : nullptr)));
        else
            add(made(xmlNewReference(library_document_, chars(value))));
    }

    const compact_document& document_;
    xmlDoc* library_document_;
    std::unique_ptr<xmlNode, decltype(&xmlFreeNode)> top_ = {nullptr, &xmlFreeNode};
    xmlNode* current_ = nullptr;
};

} // namespace

std::string markup_of(const compact_document& document, std::uint32_t element)
{
    library_tree tree(document);
    xmlNode* const node = tree.make(element);
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(), &xmlBufferFree);
    if (buffer == nullptr || xmlNodeDump(buffer.get(), node->doc, node, 0, 0) < 0)
        throw std::bad_alloc();
    return reinterpret_cast<const char*>(xmlBufferContent(buffer.get()));
}

} // namespace tallyframe
