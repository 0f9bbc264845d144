// SPDX-License-Identifier: MIT
#include "text/letter_case.h"

#include "text/icu_text.h"

#include <algorithm>

namespace tallyframe {

namespace {

char upper_cased_letter(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

std::string upper_cased(std::string_view text)
{
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), upper_cased_letter);
    return upper;
}

std::string case_folded(std::string_view text)
{
    icu::UnicodeString units = icu_text(text);
    std::string folded;
    finished(units.foldCase()).toUTF8String(folded);
    return folded;
}

} // namespace tallyframe
