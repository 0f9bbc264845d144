// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tallyframe {

/// `text` with every double quote replaced by "&quot;": how names and identifiers of a document are kept.
std::string with_quotes_escaped(std::string_view text);

} // namespace tallyframe
