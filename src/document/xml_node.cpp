// SPDX-License-Identifier: MIT
#include "document/xml_node.h"

#include "run/gui_mode.h"

#include <libxml/tree.h>

#include <chrono>
#include <cstring>
#include <exception>
#include <new>
#include <thread>
#include <utility>

namespace tallyframe {

namespace {

constexpr std::size_t entity_nesting_limit = 40;

const char* chars(const xmlChar* text)
{
    return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

bool is_element(const xmlNode* node)
{
    return node->type == XML_ELEMENT_NODE;
}

bool is_character_data(const xmlNode* node)
{
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

bool is_named(const xmlNode* node, std::string_view name)
{
    const char* own_name = chars(node->name);
    return is_element(node) && node->ns == nullptr && !name.empty() && own_name[0] == name.front()
        && std::strncmp(own_name, name.data(), name.size()) == 0 && own_name[name.size()] == '\0';
}

template <class Node>
Node* element_from(Node* node)
{
    while (node != nullptr && !is_element(node))
        node = node->next;
    return node;
}

/// The node after `node` inside `root` in document order, elements opened.
const xmlNode* next_inside(const xmlNode* node, const xmlNode* root)
{
    if (is_element(node) && node->children != nullptr)
        return node->children;
    while (node != root && node->next == nullptr)
        node = node->parent;
    return node == root ? nullptr : node->next;
}

void append_reference(std::string& text, const xmlNode* reference, std::size_t& budget, std::size_t nesting);

/// Appends the text inside an element, an attribute or an entity. What entities bring counts against
/// `budget`: a few lines of entities that call each other can stand for gigabytes.
void append_text(std::string& text, const xmlNode* root, std::size_t& budget, std::size_t nesting)
{
    const bool is_entity = nesting > 0;
    for (const xmlNode* node = root->children; node != nullptr; node = next_inside(node, root)) {
        if (is_entity && budget-- <= 1) {
            budget = 0;
            return;
        }
        if (is_character_data(node)) {
            std::string_view piece = chars(node->content);
            if (is_entity) {
                piece = piece.substr(0, budget);
                budget -= piece.size();
            }
            text += piece;
        } else if (node->type == XML_ENTITY_REF_NODE) {
            append_reference(text, node, budget, nesting);
        }
    }
}

void append_reference(std::string& text, const xmlNode* reference, std::size_t& budget, std::size_t nesting)
{
    if (budget == 0 || nesting == entity_nesting_limit)
        return;
    --budget;
    const xmlEntity* entity = xmlGetDocEntity(reference->doc, reference->name);
    if (entity == nullptr)
        return;
    if (entity->etype == XML_INTERNAL_PREDEFINED_ENTITY)
        text += chars(entity->content);
    else if (entity->etype == XML_INTERNAL_GENERAL_ENTITY)
        append_text(text, reinterpret_cast<const xmlNode*>(entity), budget, nesting + 1);
}

/// Takes what the references among the children of `parent` stand for off the budget.
void charge_entities(const xmlNode* parent, std::size_t& budget)
{
    for (const xmlNode* node = parent->children; node != nullptr && budget > 0; node = node->next) {
        std::string text;
        if (node->type == XML_ENTITY_REF_NODE)
            append_reference(text, node, budget, 0);
    }
}

std::string text_inside(const xmlNode* root)
{
    const xmlNode* only = root->children;
    if (only == nullptr)
        return {};
    if (only->next == nullptr && is_character_data(only))
        return chars(only->content);
    std::string text;
    std::size_t budget = expanded_text_limit;
    append_text(text, root, budget, 0);
    return text;
}

/// Calls `visit` with every match of a path below `node` in document order, until it answers true; whether it
/// did.
template <class Visit>
bool visit_matches(xmlNode* node, std::string_view path, const Visit& visit)
{
    const std::size_t slash = path.find('/');
    const std::string_view step = path.substr(0, slash);
    for (xmlNode* child = node->children; child != nullptr; child = child->next) {
        if (!is_named(child, step))
            continue;
        if (slash == std::string_view::npos ? visit(child)
                                            : visit_matches(child, path.substr(slash + 1), visit))
            return true;
    }
    return false;
}

std::size_t depth_of(const xmlNode* node)
{
    std::size_t depth = 0;
    for (; node->parent != nullptr; node = node->parent)
        ++depth;
    return depth;
}

} // namespace

std::string_view xml_node::name() const
{
    return node_ == nullptr ? "" : chars(node_->name);
}

bool xml_node::has_name(std::string_view expected) const
{
    return node_ != nullptr && is_named(node_, expected);
}

std::string xml_node::text() const
{
    return node_ == nullptr ? std::string() : text_inside(node_);
}

bool xml_node::text_is(std::string_view expected) const
{
    if (node_ == nullptr)
        return false;
    const xmlNode* only = node_->children;
    if (only != nullptr && only->next == nullptr && is_character_data(only))
        return chars(only->content) == expected;
    return text_inside(node_) == expected;
}

std::optional<std::string> xml_node::attribute(std::string_view attribute_name) const
{
    if (node_ == nullptr)
        return std::nullopt;
    for (const xmlAttr* attribute = node_->properties; attribute != nullptr; attribute = attribute->next) {
        if (attribute->ns == nullptr && chars(attribute->name) == attribute_name)
            return text_inside(reinterpret_cast<const xmlNode*>(attribute));
    }
    return std::nullopt;
}

xml_node xml_node::parent() const
{
    if (node_ == nullptr || node_->parent == nullptr || !is_element(node_->parent))
        return {};
    return xml_node(node_->parent);
}

xml_node xml_node::previous_element() const
{
    xmlNode* node = node_ == nullptr ? nullptr : node_->prev;
    while (node != nullptr && !is_element(node))
        node = node->prev;
    return xml_node(node);
}

xml_node xml_node::next_element() const
{
    return node_ == nullptr ? xml_node() : xml_node(element_from(node_->next));
}

xml_node xml_node::first_element() const
{
    return node_ == nullptr ? xml_node() : xml_node(element_from(node_->children));
}

bool xml_node::has_children() const
{
    return node_ != nullptr && node_->children != nullptr;
}

xml_node xml_node::child(std::string_view child_name) const
{
    return first(child_name);
}

xml_node xml_node::first(std::string_view path) const
{
    xmlNode* found = nullptr;
    if (node_ != nullptr) {
        visit_matches(node_, path, [&](xmlNode* match) {
            found = match;
            return true;
        });
    }
    return xml_node(found);
}

std::vector<xml_node> xml_node::all(std::string_view path) const
{
    std::vector<xml_node> found;
    if (node_ != nullptr) {
        visit_matches(node_, path, [&](xmlNode* match) {
            found.emplace_back(match);
            return false;
        });
    }
    return found;
}

xml_node xml_node::first_descendant(std::string_view descendant_name) const
{
    xml_node node = next_in_document(*this, *this);
    while (node && !node.has_name(descendant_name))
        node = next_in_document(node, *this);
    return node;
}

std::vector<xml_node> xml_node::all_descendants(std::string_view descendant_name) const
{
    std::vector<xml_node> found;
    for (xml_node node = next_in_document(*this, *this); node; node = next_in_document(node, *this)) {
        if (node.has_name(descendant_name))
            found.push_back(node);
    }
    return found;
}

std::optional<std::string> xml_node::text_of(std::string_view path) const
{
    const xml_node match = first(path);
    return match ? std::optional(match.text()) : std::nullopt;
}

std::string xml_node::markup() const
{
    if (node_ == nullptr)
        return {};
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(), &xmlBufferFree);
    if (buffer == nullptr || xmlNodeDump(buffer.get(), node_->doc, node_, 0, 0) < 0)
        throw std::bad_alloc();
    return chars(xmlBufferContent(buffer.get()));
}

bool stands_before(xml_node first, xml_node second)
{
    const xmlNode* a = first.get();
    const xmlNode* b = second.get();
    if (a == nullptr || b == nullptr || a == b)
        return false;
    const std::size_t depth_a = depth_of(a);
    const std::size_t depth_b = depth_of(b);
    for (std::size_t depth = depth_a; depth > depth_b; --depth)
        a = a->parent;
    for (std::size_t depth = depth_b; depth > depth_a; --depth)
        b = b->parent;
    if (a == b) // one lies inside the other
        return depth_a < depth_b;
    while (a->parent != b->parent) {
        a = a->parent;
        b = b->parent;
    }
    while (a != nullptr && a != b)
        a = a->next;
    return a == b;
}

xml_node next_in_document(xml_node node, xml_node root)
{
    if (const xml_node inside = node.first_element())
        return inside;
    while (node && node != root) {
        if (const xml_node next = node.next_element())
            return next;
        node = node.parent();
    }
    return {};
}

xml_node xml_document::root() const
{
    return xml_node(document_ == nullptr ? nullptr : xmlDocGetRootElement(document_.get()));
}

std::string xml_document::first_node_name() const
{
    if (document_ == nullptr || document_->children == nullptr)
        return {};
    return chars(document_->children->name);
}

std::future<void> xml_document::start_freeing()
{
    try {
        std::promise<void> promise;
        std::future<void> freed = promise.get_future();
        std::thread([document = std::move(document_), is_freed = std::move(promise)]() mutable {
            document.reset();
            is_freed.set_value();
        }).detach();
        return freed;
    } catch (const std::exception&) { // no thread, or no memory for one: then here and now
        document_.reset();
        return {};
    }
}

void xml_document::give_up()
{
    if (gui_mode == false)
        leave_to_process_end();
    else if (document_ != nullptr)
        (void)start_freeing();
}

void xml_document::free_before_going_on(progress& display)
{
    using namespace std::chrono_literals;
    if (document_ == nullptr)
        return;
    const std::future<void> freed = start_freeing();
    while (freed.valid() && freed.wait_for(50ms) != std::future_status::ready)
        display.leave_if_cancelled();
}

void xml_document::leave_to_process_end()
{
    // Never destroyed: what nothing points to at the end would count as a leak.
    static auto& left_documents = *new std::vector<_xmlDoc*>;
    left_documents.push_back(document_.release());
}

bool xml_document::entities_stay_within(std::size_t limit) const
{
    if (document_ == nullptr || document_->intSubset == nullptr || document_->intSubset->entities == nullptr)
        return true;
    std::size_t budget = limit;
    const xml_node top = root();
    for (xml_node element = top; element && budget > 0; element = next_in_document(element, top)) {
        charge_entities(element.get(), budget);
        for (const xmlAttr* attribute = element.get()->properties; attribute != nullptr;
             attribute = attribute->next)
            charge_entities(reinterpret_cast<const xmlNode*>(attribute), budget);
    }
    return budget > 0;
}

void xml_document::free_document::operator()(_xmlDoc* document) const
{
    xmlFreeDoc(document);
}

} // namespace tallyframe
