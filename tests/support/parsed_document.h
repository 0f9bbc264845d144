// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"

#include <string_view>

namespace tallyframe::testing {

/// The tree of a well-formed text. Throws std::logic_error for any other.
xml_document parsed_document(std::string_view text);

} // namespace tallyframe::testing
