// SPDX-License-Identifier: MIT
#include "text/ascii_text.h"

#include "text/icu_text.h"
#include "text/utf8.h"

#include <fmt/format.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>

namespace tallyframe {

namespace {

/// The rules take a while for each letter, and no name of a reel is longer than one of a file.
constexpr std::int32_t longest_name = 255; ///< UTF-16 units

std::unique_ptr<const icu::Transliterator> make_rules()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<const icu::Transliterator> rules(
        icu::Transliterator::createInstance("Any-Latin; Latin-ASCII; NFD", UTRANS_FORWARD, status));
    if (U_FAILURE(status) || !rules)
        throw std::bad_alloc(); // they are built into ICU: nothing but memory can be missing
    return rules;
}

icu::UnicodeString in_latin_letters(icu::UnicodeString text)
{
    static const std::unique_ptr<const icu::Transliterator> rules = make_rules();
    rules->transliterate(text);
    return finished(text);
}

std::string ascii_part(const icu::UnicodeString& units)
{
    std::string ascii;
    for (std::int32_t i = 0; i < units.length(); ++i) {
        if (units[i] < 0x80)
            ascii += static_cast<char>(units[i]);
    }
    return ascii;
}

/// Accents apart. The rules are left alone then: where memory is short, they end the program.
bool is_ascii_with_marks(const icu::UnicodeString& decomposed_text)
{
    for (std::int32_t i = 0; i < decomposed_text.length(); ++i) {
        if (decomposed_text[i] >= 0x80 && u_charType(decomposed_text[i]) != U_NON_SPACING_MARK)
            return false;
    }
    return true;
}

bool is_blank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

/// "U+1F3AC U+2713"; nothing for bytes that are not UTF-8.
std::string code_points_of(const icu::UnicodeString& text)
{
    constexpr UChar32 not_utf8 = 0xFFFD;
    std::string codes;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        if (text.char32At(i) != not_utf8 && text.char32At(i) != ' ')
            codes += fmt::format("{}U+{:04X}", codes.empty() ? "" : " ",
                                 static_cast<std::uint32_t>(text.char32At(i)));
    }
    return codes;
}

} // namespace

std::string to_ascii(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), is_ascii))
        return std::string(text);

    const icu::UnicodeString letters_and_marks = decomposed(text);
    if (is_ascii_with_marks(letters_and_marks) || letters_and_marks.length() > longest_name)
        return ascii_part(letters_and_marks);
    const icu::UnicodeString units = icu_text(text);
    std::string ascii = ascii_part(in_latin_letters(units));
    return is_blank(ascii) ? code_points_of(units) : ascii;
}

} // namespace tallyframe
