// SPDX-License-Identifier: MIT
#pragma once

#include "document/parse_xml.h"

#include <string>
#include <utility>

namespace tallyframe::testing_support {

/// A document and its index from a text, without any host.
inline parsed_xml parsed_text(std::string text)
{
    no_diagnostics out;
    no_progress display;
    return parse_xml(std::move(text), out, display);
}

} // namespace tallyframe::testing_support
