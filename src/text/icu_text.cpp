// SPDX-License-Identifier: MIT
#include "text/icu_text.h"

#include <cstdint>
#include <new>

namespace tallyframe {

namespace {

using normal_form = const icu::Normalizer2*(UErrorCode&);

/// The tables of these forms are built into ICU: nothing but memory can be missing.
icu::UnicodeString normalized(std::string_view utf8, normal_form* form)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = form(status);
    if (U_FAILURE(status))
        throw std::bad_alloc();
    icu::UnicodeString text = normalizer->normalize(icu_text(utf8), status);
    if (U_FAILURE(status))
        throw std::bad_alloc();
    return finished(text);
}

} // namespace

icu::UnicodeString icu_text(std::string_view utf8)
{
    return finished(icu::UnicodeString::fromUTF8({utf8.data(), static_cast<std::int32_t>(utf8.size())}));
}

const icu::UnicodeString& finished(const icu::UnicodeString& text)
{
    if (text.isBogus())
        throw std::bad_alloc();
    return text;
}

icu::UnicodeString decomposed(std::string_view utf8)
{
    return normalized(utf8, &icu::Normalizer2::getNFDInstance);
}

icu::UnicodeString composed(std::string_view utf8)
{
    return normalized(utf8, &icu::Normalizer2::getNFCInstance);
}

} // namespace tallyframe
