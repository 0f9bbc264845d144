// SPDX-License-Identifier: MIT
#include "support/library_tree.h"

#include "document/entity_text.h"
#include "document/xml_node.h"
#include "run/failures.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

namespace tallyframe::testing_support {

namespace {

/// In bytes: of a longer document not each element is written.
constexpr std::size_t longest_for_all_markup = 3'000;

std::string_view view_of(const xmlChar* text)
{
    return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

/// The library's tree of a document, and what its parser complained about.
class library_tree {
public:
    library_tree(std::string_view text, blank_texts blanks) : rest_(text)
    {
        const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> parser(xmlNewParserCtxt(),
                                                                                  &xmlFreeParserCtxt);
        parser->sax->attributeDecl = skip_attribute;
        const int options = XML_PARSE_RECOVER | XML_PARSE_NONET | XML_PARSE_COMPACT
            | (blanks == blank_texts::dropped ? XML_PARSE_NOBLANKS : 0);
        xmlSetStructuredErrorFunc(this, take_error);
        document_.reset(xmlCtxtReadIO(parser.get(), read, nullptr, this, nullptr, nullptr, options));
        xmlSetStructuredErrorFunc(nullptr, skip_error);
    }

    ~library_tree() { xmlSetStructuredErrorFunc(nullptr, nullptr); }
    library_tree(const library_tree&) = delete;
    library_tree& operator=(const library_tree&) = delete;

    xmlDoc* document() const { return document_.get(); }
    xmlNode* root() const { return document_ == nullptr ? nullptr : xmlDocGetRootElement(document_.get()); }
    const std::vector<std::string>& errors() const { return errors_; }

private:
    static void skip_attribute(void*, const xmlChar*, const xmlChar*, int, int, const xmlChar*,
                               xmlEnumerationPtr values)
    {
        xmlFreeEnumeration(values);
    }

    /// Writing damaged texts complains again, to standard error.
    static void skip_error(void*, xmlErrorPtr) { }

    static int read(void* context, char* buffer, int size)
    {
        auto& rest = static_cast<library_tree*>(context)->rest_;
        const std::size_t count = rest.copy(buffer, static_cast<std::size_t>(size));
        rest.remove_prefix(count);
        return static_cast<int>(count);
    }

    static void take_error(void* context, xmlErrorPtr error)
    {
        std::string_view message = error->message == nullptr ? "unknown" : error->message;
        while (message.ends_with('\n'))
            message.remove_suffix(1);
        std::string text = std::to_string(error->line) + ":" + std::to_string(error->int2) + ": ";
        text += error->level == XML_ERR_WARNING ? "WARNING"
            : error->level == XML_ERR_FATAL     ? "FATAL"
                                                : "ERROR";
        text += ": ";
        text += message;
        static_cast<library_tree*>(context)->errors_.push_back(std::move(text));
    }

    std::string_view rest_;
    std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document_ = {nullptr, &xmlFreeDoc};
    std::vector<std::string> errors_;
};

xmlNode* next_element(xmlNode* node)
{
    while (node != nullptr && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return node;
}

xmlNode* previous_element(xmlNode* node)
{
    while (node != nullptr && node->type != XML_ELEMENT_NODE)
        node = node->prev;
    return node;
}

xmlNode* next_in_document(xmlNode* node)
{
    if (xmlNode* inside = next_element(node->children))
        return inside;
    for (; node != nullptr && node->type == XML_ELEMENT_NODE; node = node->parent) {
        if (xmlNode* next = next_element(node->next))
            return next;
    }
    return nullptr;
}

void append_text(std::string& text, const xmlNode* parent, entity_text& entities)
{
    for (const xmlNode* node = parent->children; node != nullptr; node = node->next) {
        if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
            text += view_of(node->content);
        else if (node->type == XML_ENTITY_REF_NODE)
            text += entities.of_reference(std::string(view_of(node->name)));
        else if (node->type == XML_ELEMENT_NODE)
            append_text(text, node, entities);
    }
}

std::string markup(xmlNode* node)
{
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(), &xmlBufferFree);
    xmlNodeDump(buffer.get(), node->doc, node, 0, 0);
    return std::string(view_of(xmlBufferContent(buffer.get())));
}

/// Walks both in the order of the document.
class comparison {
public:
    comparison(const library_tree& tree, const xml_document& document, bool writes_all)
        : tree_(tree), document_(document), writes_all_(writes_all)
    {
    }

    std::string first_difference()
    {
        xmlNode* theirs = tree_.root();
        xml_node ours = document_.root();
        if (bool(ours) != (theirs != nullptr))
            return "the root";
        if (ours && ours.markup() != markup(theirs))
            return "the markup:\n" + ours.markup() + "\n" + markup(theirs);
        for (; ours && theirs != nullptr; theirs = next_in_document(theirs)) {
            for (const auto& [question, is_alike] : answers(ours, *theirs)) {
                if (!is_alike)
                    return std::string(question) + " of " + std::string(ours.name());
            }
            before_ = ours;
            ours = next_in_document(ours, document_.root());
        }
        return bool(ours) == (theirs != nullptr) ? "" : "the number of elements";
    }

private:
    struct answer {
        std::string_view question;
        bool is_alike;
    };

    static bool is_alike(xml_node ours, const xmlNode* theirs)
    {
        return theirs == nullptr || theirs->type != XML_ELEMENT_NODE
            ? !ours
            : ours && ours.name() == view_of(theirs->name);
    }

    std::vector<answer> answers(xml_node ours, xmlNode& theirs) const
    {
        entity_text entities(tree_.document(), expanded_text_limit);
        std::string text;
        append_text(text, &theirs, entities);
        return {
            {"the name", ours.name() == view_of(theirs.name)},
            {"the plain name", ours.has_name(view_of(theirs.name)) == (theirs.ns == nullptr)},
            {"the text", ours.text() == text && ours.text_is(text)},
            {"the attributes", has_like_attributes(ours, theirs)},
            {"having children", ours.has_children() == (theirs.children != nullptr)},
            {"the parent", is_alike(ours.parent(), theirs.parent)},
            {"the previous element", is_alike(ours.previous_element(), previous_element(theirs.prev))},
            {"the next element", is_alike(ours.next_element(), next_element(theirs.next))},
            {"the first element", is_alike(ours.first_element(), next_element(theirs.children))},
            {"the way back",
             !ours.next_element()
                 || (ours.next_element().previous_element() == ours
                     && ours.next_element().parent() == ours.parent())},
            {"the way up", !ours.first_element() || ours.first_element().parent() == ours},
            {"the order", !before_ || (stands_before(before_, ours) && !stands_before(ours, before_))},
            {"the markup", !writes_all_ || ours.markup() == markup(&theirs)},
        };
    }

    bool has_like_attributes(xml_node ours, const xmlNode& theirs) const
    {
        std::set<std::string_view> seen;
        for (const xmlAttr* attribute = theirs.properties; attribute != nullptr;
             attribute = attribute->next) {
            const std::string_view name = view_of(attribute->name);
            if (attribute->ns != nullptr || !seen.insert(name).second)
                continue;
            entity_text entities(tree_.document(), expanded_text_limit);
            std::string value;
            append_text(value, reinterpret_cast<const xmlNode*>(attribute), entities);
            if (ours.attribute(name) != value)
                return false;
        }
        return std::ranges::all_of(theirs_with_namespace(theirs), [&](std::string_view name) {
            return seen.contains(name) || !ours.attribute(name);
        });
    }

    static std::vector<std::string_view> theirs_with_namespace(const xmlNode& theirs)
    {
        std::vector<std::string_view> names = {"", "no such attribute"};
        for (const xmlAttr* attribute = theirs.properties; attribute != nullptr; attribute = attribute->next)
            names.push_back(view_of(attribute->name));
        return names;
    }

    const library_tree& tree_;
    const xml_document& document_;
    bool writes_all_;
    xml_node before_;
};

} // namespace

std::string difference_from_library_tree(const std::string& text, blank_texts blanks)
{
    std::vector<std::string> errors;
    xml_document document;
    try {
        document = parse_tolerantly(
            [rest = std::string_view(text)](char* buffer, std::size_t size) mutable {
                const std::size_t count = rest.copy(buffer, size);
                rest.remove_prefix(count);
                return count;
            },
            blanks, [&](const xml_error& error) { errors.push_back(error.printable); });
    } catch (const load_error&) {
        return "";
    }
    const library_tree tree(text, blanks);
    if (errors != tree.errors())
        return "the errors: " + (errors.empty() ? "none" : errors.back()) + " for "
            + (tree.errors().empty() ? "none" : tree.errors().back());
    if (bool(document) != (tree.document() != nullptr))
        return "whether there is a document";
    if (!document || document.entities_are_too_long())
        return "";
    const xmlNode* first = tree.document()->children;
    if (document.first_node_name() != (first == nullptr ? "" : view_of(first->name)))
        return "the name of the first node";
    return comparison(tree, document, text.size() <= longest_for_all_markup).first_difference();
}

} // namespace tallyframe::testing_support
