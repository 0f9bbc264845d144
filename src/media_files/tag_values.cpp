// SPDX-License-Identifier: MIT
#include "media_files/tag_values.h"

#include "text/leading_numbers.h"
#include "text/trimmed.h"

namespace tallyframe {

std::optional<std::int64_t> number_in_tag(std::string_view text)
{
    return text.empty() ? std::nullopt : std::optional(leading_integer(text));
}

std::string joined_authors(const std::vector<std::string>& lines)
{
    std::string joined;
    for (const std::string& line : lines) {
        if (&line != &lines.front())
            joined += ", ";
        std::string name = line;
        std::erase(name, '"');
        joined += trimmed(name);
    }
    return joined;
}

} // namespace tallyframe
