// SPDX-License-Identifier: MIT
#pragma once

#include "document/tolerant_parser.h"

#include <string>

namespace tallyframe::testing_support {

/// The first thing about a document that our parser tells otherwise than the tree that the XML library builds
/// of it: an error, an element, or an answer of one. "" when they agree, and when ours refuses the document.
std::string difference_from_library_tree(const std::string& text, blank_texts blanks);

} // namespace tallyframe::testing_support
