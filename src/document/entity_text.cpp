// SPDX-License-Identifier: MIT
#include "document/entity_text.h"

#include <libxml/entities.h>
#include <libxml/tree.h>

#include <memory>
#include <string_view>

namespace tallyframe {

namespace {

constexpr std::size_t nesting_limit = 40;

const char* chars(const xmlChar* text)
{
    return text == nullptr ? "" : reinterpret_cast<const char*>(text);
}

bool is_character_data(const xmlNode* node)
{
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE;
}

/// The node after `node` inside `root` in document order, elements opened.
const xmlNode* next_inside(const xmlNode* node, const xmlNode* root)
{
    if (node->type == XML_ELEMENT_NODE && node->children != nullptr)
        return node->children;
    while (node != root && node->next == nullptr)
        node = node->parent;
    return node == root ? nullptr : node->next;
}

} // namespace

std::string entity_text::of_reference(const std::string& entity_name)
{
    std::string text;
    append_reference(text, entity_name, 0);
    return text;
}

std::string entity_text::of_attribute(const std::string& written_value)
{
    const std::unique_ptr<xmlNode, decltype(&xmlFreeNodeList)> nodes(
        xmlStringLenGetNodeList(document_, BAD_CAST written_value.c_str(),
                                static_cast<int>(written_value.size())),
        &xmlFreeNodeList);
    std::string text;
    for (const xmlNode* node = nodes.get(); node != nullptr; node = node->next) {
        if (is_character_data(node))
            text += chars(node->content);
        else if (node->type == XML_ENTITY_REF_NODE)
            append_reference(text, chars(node->name), 0);
    }
    return text;
}

void entity_text::append_reference(std::string& text, const std::string& entity_name, std::size_t nesting)
{
    if (budget_ == 0 || nesting == nesting_limit)
        return;
    --budget_;
    const xmlEntity* entity = xmlGetDocEntity(document_, BAD_CAST entity_name.c_str());
    if (entity == nullptr)
        return;
    if (entity->etype == XML_INTERNAL_PREDEFINED_ENTITY)
        text += chars(entity->content);
    else if (entity->etype == XML_INTERNAL_GENERAL_ENTITY)
        append_entity(text, reinterpret_cast<const xmlNode*>(entity), nesting + 1);
}

void entity_text::append_entity(std::string& text, const xmlNode* entity, std::size_t nesting)
{
    for (const xmlNode* node = entity->children; node != nullptr; node = next_inside(node, entity)) {
        if (budget_ <= 1) {
            budget_ = 0;
            return;
        }
        --budget_;
        if (is_character_data(node)) {
            const std::string_view piece = std::string_view(chars(node->content)).substr(0, budget_);
            budget_ -= piece.size();
            text += piece;
        } else if (node->type == XML_ENTITY_REF_NODE) {
            append_reference(text, chars(node->name), nesting);
        }
    }
}

} // namespace tallyframe
