// SPDX-License-Identifier: MIT
#include "support/parsed_document.h"

#include <libxml/parser.h>

#include <stdexcept>

namespace tallyframe::testing {

xml_document parsed_document(std::string_view text)
{
    constexpr int options = XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    xml_document document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "test", nullptr, options));
    if (!document)
        throw std::logic_error("the test's document is not well-formed");
    return document;
}

} // namespace tallyframe::testing
