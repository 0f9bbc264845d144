// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tallyframe {

/// What the parser takes no more of, well-formed or not.
enum class parser_limit { none, depth, text_length };

/// Something that the parser complains about.
struct xml_error {
    int line; ///< counted from 1; 0 when unknown
    bool is_fatal; ///< the document is not well-formed
    parser_limit limit; ///< that the document goes beyond
    std::string printable; ///< "12:40: ERROR: what is wrong"
};
using xml_error_handler = std::function<void(const xml_error&)>;

/// Puts the next bytes of a document, `size` at most, into `buffer`; their number, 0 at the end. What it
/// throws ends the parse.
using byte_source = std::function<std::size_t(char* buffer, std::size_t size)>;

/// Texts that hold nothing but blanks and only lay out the markup.
enum class blank_texts { dropped, kept };

/// Parses what `source` brings and goes on after errors as far as possible; none when there is not even a
/// document to begin with. Tells `handle_error` of every error as it is met. Opens no other file and no
/// connection, whatever the document asks for. Throws load_error for what would take more time or memory than
/// the document is worth: a document type that is long, gives values to attributes or multiplies parameter
/// entities; a tag with more than 1,000 attributes, namespaces included; an element for which more than 100
/// namespaces are declared, on it and around it; more than 100,000 different names.
xml_document parse_tolerantly(const byte_source& source, blank_texts blanks,
                              const xml_error_handler& handle_error);

} // namespace tallyframe
