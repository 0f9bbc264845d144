// SPDX-License-Identifier: MIT
#include "document/text_values.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

TEST(shown_name, has_its_quotes_escaped_unless_figures_are_exact)
{
    EXPECT_EQ(shown_name("12\" vinyl", figure_style::comparable), "12&quot; vinyl");
    EXPECT_EQ(shown_name("12\" vinyl", figure_style::exact), "12\" vinyl");
}

TEST(with_quotes_escaped, replaces_every_double_quote)
{
    EXPECT_EQ(with_quotes_escaped("plain"), "plain");
    EXPECT_EQ(with_quotes_escaped("\"a\"\"b\""), "&quot;a&quot;&quot;b&quot;");
    EXPECT_EQ(with_quotes_escaped(""), "");
}

} // namespace
} // namespace tallyframe
