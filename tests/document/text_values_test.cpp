// SPDX-License-Identifier: MIT
#include "document/text_values.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

TEST(with_quotes_escaped, replaces_every_double_quote)
{
    EXPECT_EQ(with_quotes_escaped("plain"), "plain");
    EXPECT_EQ(with_quotes_escaped("\"a\"\"b\""), "&quot;a&quot;&quot;b&quot;");
    EXPECT_EQ(with_quotes_escaped(""), "");
}

} // namespace
} // namespace tallyframe
