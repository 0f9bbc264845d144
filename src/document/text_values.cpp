// SPDX-License-Identifier: MIT
#include "document/text_values.h"

namespace tallyframe {

std::string with_quotes_escaped(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t quote = text.find('"'); quote != std::string_view::npos; quote = text.find('"')) {
        escaped += text.substr(0, quote);
        escaped += "&quot;";
        text.remove_prefix(quote + 1);
    }
    escaped += text;
    return escaped;
}

std::string shown_name(std::string_view text, figure_style figures)
{
    return figures == figure_style::exact ? std::string(text) : with_quotes_escaped(text);
}

} // namespace tallyframe
