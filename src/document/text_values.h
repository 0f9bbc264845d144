// SPDX-License-Identifier: MIT
#pragma once

#include "run/figure_style.h"

#include <string>
#include <string_view>

namespace tallyframe {

/// `text` with every double quote replaced by "&quot;": how identifiers of a document are kept.
std::string with_quotes_escaped(std::string_view text);

/// A name or comment of a document as the report shows it: comparable with its quotes escaped, exact as it
/// is.
std::string shown_name(std::string_view text, figure_style figures);

} // namespace tallyframe
