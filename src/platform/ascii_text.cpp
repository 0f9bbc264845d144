// SPDX-License-Identifier: MIT
#include "platform/ascii_text.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace tallyframe {

namespace {

bool is_ascii(char character)
{
    return static_cast<unsigned char>(character) < 0x80;
}

} // namespace

std::string to_ascii(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), is_ascii))
        return std::string(text);

    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposition = icu::Normalizer2::getNFDInstance(status);
    icu::UnicodeString decomposed =
        icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
    if (U_SUCCESS(status))
        decomposed = decomposition->normalize(decomposed, status);

    std::string ascii;
    for (int32_t i = 0; i < decomposed.length(); ++i) {
        if (decomposed[i] < 0x80)
            ascii += static_cast<char>(decomposed[i]);
    }
    return ascii;
}

} // namespace tallyframe
