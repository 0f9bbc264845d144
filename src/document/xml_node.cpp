// SPDX-License-Identifier: MIT
#include "document/xml_node.h"

#include "document/markup.h"

#include <algorithm>
#include <utility>

namespace tallyframe {

namespace {

/// Calls `visit` with every match of a path below `node` in document order, until it answers true; whether it
/// did.
template <class Visit>
bool visit_matches(xml_node node, std::string_view path, const Visit& visit)
{
    const std::size_t slash = path.find('/');
    const std::string_view step = path.substr(0, slash);
    return std::ranges::any_of(node.children(), [&](xml_node child) {
        return child.has_name(step)
            && (slash == std::string_view::npos ? visit(child)
                                                : visit_matches(child, path.substr(slash + 1), visit));
    });
}

} // namespace

std::string_view xml_node::name() const
{
    return document_ == nullptr ? std::string_view() : document_->names[document_->nodes[number_].name].name;
}

std::string xml_node::text() const
{
    return document_ == nullptr ? std::string() : std::string(document_->text_inside(number_));
}

bool xml_node::text_is(std::string_view expected) const
{
    return document_ != nullptr && document_->text_inside(number_) == expected;
}

std::optional<std::string> xml_node::attribute(std::string_view attribute_name) const
{
    if (document_ == nullptr)
        return std::nullopt;
    for (std::uint32_t number = number_ + 1;; ++number) {
        const node_record& record = document_->nodes[number];
        if (record.kind == node_kind::attribute) {
            if (!attribute_name.empty() && document_->plain_names[record.name] == attribute_name)
                return std::string(document_->value_of(record));
        } else if (record.kind != node_kind::written_attribute
                   && record.kind != node_kind::namespace_declaration) {
            return std::nullopt;
        }
    }
}

xml_node xml_node::previous_element() const
{
    if (document_ == nullptr)
        return {};
    const std::uint32_t parent = document_->nodes[number_].parent_or_value;
    std::uint32_t before = number_;
    do { // over what is no element
        if (before == 0 || --before == parent)
            return {};
    } while (document_->nodes[before].kind != node_kind::element);
    while (document_->nodes[before].parent_or_value != parent) // it may be the last one inside of the sibling
        before = document_->nodes[before].parent_or_value;
    return {*document_, before};
}

bool xml_node::has_children() const
{
    if (document_ == nullptr)
        return false;
    if (document_->nodes[number_].begins_with_text)
        return true;
    std::uint32_t inside = number_ + 1;
    while (inside < end() && document_->nodes[inside].kind >= node_kind::attribute)
        ++inside;
    return inside < end();
}

xml_node xml_node::child(std::string_view child_name) const
{
    return first(child_name);
}

xml_node xml_node::first(std::string_view path) const
{
    xml_node found;
    visit_matches(*this, path, [&](xml_node match) {
        found = match;
        return true;
    });
    return found;
}

std::vector<xml_node> xml_node::all(std::string_view path) const
{
    std::vector<xml_node> found;
    visit_matches(*this, path, [&](xml_node match) {
        found.push_back(match);
        return false;
    });
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
    return document_ == nullptr ? std::string() : markup_of(*document_, number_);
}

bool stands_before(xml_node first, xml_node second)
{
    return first && second && first.number_ < second.number_;
}

xml_node next_in_document(xml_node node, xml_node root)
{
    return node && root ? node.element_from(node.number_ + 1, root.end()) : xml_node();
}

xml_document::xml_document() = default;
xml_document::xml_document(compact_document document)
    : document_(std::make_unique<const compact_document>(std::move(document)))
{
}
xml_document::xml_document(xml_document&&) noexcept = default;
xml_document& xml_document::operator=(xml_document&&) noexcept = default;
xml_document::~xml_document() = default;

xml_node xml_document::root() const
{
    return document_ == nullptr || document_->node_count() == 0 ? xml_node() : xml_node(*document_, 0);
}

std::string xml_document::first_node_name() const
{
    return document_ == nullptr ? std::string() : document_->first_node_name;
}

bool xml_document::entities_are_too_long() const
{
    return document_ != nullptr && document_->entities_are_too_long;
}

} // namespace tallyframe
