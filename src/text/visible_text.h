// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tallyframe {

/// A text of a document or a file's name as a terminal or a sentence may show it: what cannot be seen, or
/// would move the cursor, turn the line round or forge another one, stands as its code in angle brackets.
///
/// Control characters (C0, DEL, C1) and Unicode's line, direction and other invisible format characters
/// become "<U+202E>"; each byte that is no part of UTF-8 becomes "<9B>". Everything else stays.
std::string visible_text(std::string_view text);

/// The same in double quotes, as the name of something in a sentence.
std::string visible_name(std::string_view name);

/// A name of the document as the sentence of a failure tells it: a visible_name, shortened to 100 bytes.
std::string in_quotes(std::string_view name);

} // namespace tallyframe
