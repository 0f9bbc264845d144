// SPDX-License-Identifier: MIT
#pragma once

#include "document/compact_document.h"

#include <cstdint>
#include <string>

namespace tallyframe {

/// An element as markup, as the XML library writes it.
std::string markup_of(const compact_document& document, std::uint32_t element);

} // namespace tallyframe
