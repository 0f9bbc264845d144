// SPDX-License-Identifier: MIT
#include "workbook/sheet_name.h"

#include "workbook/records/unicode.h"
#include "workbook/workbook.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <new>

namespace xls {

namespace {

std::string without_case(std::string_view utf8)
{
    auto folded = icu::UnicodeString::fromUTF8({utf8.data(), static_cast<std::int32_t>(utf8.size())});
    folded.foldCase();
    if (folded.isBogus())
        throw std::bad_alloc();
    std::string key;
    folded.toUTF8String(key);
    return key;
}

} // namespace

std::string sheet_name_key(std::string_view name)
{
    constexpr std::size_t limit = 31;
    constexpr std::u16string_view forbidden = u"[]:*?/\\";
    const auto refuse = [&](const char* reason) {
        throw workbook_error("No sheet can be named \"" + std::string(name) + "\": " + reason);
    };
    const auto units = to_utf16(name);
    if (units.empty())
        refuse("the name is empty.");
    if (units.size() > limit)
        refuse("the name is longer than 31 characters.");
    if (units.find_first_of(forbidden) != std::u16string::npos)
        refuse("the characters [ ] : * ? / \\ are not allowed.");
    if (std::ranges::any_of(units, [](char16_t unit) { return unit < u' '; }))
        refuse("control characters are not allowed.");
    if (units.front() == u'\'' || units.back() == u'\'')
        refuse("it starts or ends with an apostrophe.");
    auto key = without_case(valid_utf8(name, limit).utf8);
    if (key == "history")
        refuse("Excel keeps this name for itself.");
    return key;
}

} // namespace xls
