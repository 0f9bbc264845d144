// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

struct _xmlDoc; // NOLINT(bugprone-reserved-identifier): the XML library's own names
struct _xmlNode; // NOLINT(bugprone-reserved-identifier)

namespace tallyframe {

/// How much text, in bytes, the entities that a document defines may bring; the rest is cut. No exporter
/// writes entities of its own: whoever does is after the memory of the reader.
inline constexpr std::size_t expanded_text_limit = 10'000'000;

/// What the entities of a document stand for. What they bring counts against one budget: a few lines of
/// entities that call each other can stand for gigabytes.
class entity_text {
public:
    entity_text(_xmlDoc* document, std::size_t budget) : document_(document), budget_(budget) { }

    std::string of_reference(const std::string& entity_name);

    /// The text of an attribute's value that holds references.
    std::string of_attribute(const std::string& written_value);

    bool are_too_long() const { return budget_ == 0; }

private:
    void append_reference(std::string& text, const std::string& entity_name, std::size_t nesting);
    void append_entity(std::string& text, const _xmlNode* entity, std::size_t nesting);

    _xmlDoc* document_;
    std::size_t budget_;
};

} // namespace tallyframe
