// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// What a graphic says.
struct title_text {
    std::string font;
    std::vector<std::string> texts; ///< lines, none empty

    bool operator==(const title_text&) const = default;
};

/// Adds to `title` what a "Source Text" value holds: Base64 of a binary header and either the plain name of
/// a font, or a JSON document in UTF-16LE with the title's text and font. A value that cannot be read adds
/// nothing. Nothing is read once the font is known.
void read_source_text(std::string_view base64, title_text& title);

} // namespace tallyframe
