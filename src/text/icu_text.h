// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <string_view>

// ICU tells of memory that runs out by a mark on its text, or by a status. Overlooked, the text is empty.

namespace tallyframe {

/// A text as ICU takes it; bytes that are not UTF-8 become U+FFFD. Throws std::bad_alloc.
icu::UnicodeString icu_text(std::string_view utf8);

/// The text that ICU has made. Throws std::bad_alloc for one that it could not finish.
const icu::UnicodeString& finished(const icu::UnicodeString& text);

/// Letters apart from their accents. Throws std::bad_alloc.
icu::UnicodeString decomposed(std::string_view utf8);

/// Letters one with their accents. Throws std::bad_alloc.
icu::UnicodeString composed(std::string_view utf8);

} // namespace tallyframe
