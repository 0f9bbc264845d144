// SPDX-License-Identifier: MIT
#include "text/icu_text.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace tallyframe {
namespace {

std::string utf8(const icu::UnicodeString& text)
{
    std::string bytes;
    return text.toUTF8String(bytes);
}

TEST(icu_text, is_composed_and_decomposed)
{
    EXPECT_EQ(utf8(decomposed("Zo\u00eb")), "Zoe\u0308");
    EXPECT_EQ(utf8(composed("Zoe\u0308")), "Zo\u00eb");
    EXPECT_EQ(utf8(icu_text("\u65e5\xFF")), "\u65e5\ufffd");
    EXPECT_EQ(utf8(composed("")), "");
}

TEST(icu_text, that_icu_could_not_finish_is_no_empty_text)
{
    icu::UnicodeString text;
    text.setToBogus();
    EXPECT_THROW(finished(text), std::bad_alloc);
    EXPECT_EQ(finished(icu_text("a")), icu::UnicodeString("a"));
}

} // namespace
} // namespace tallyframe
