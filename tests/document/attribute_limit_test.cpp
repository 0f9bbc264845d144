// SPDX-License-Identifier: MIT
#include "document/attribute_limit.h"
#include "platform/failures.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyframe {

namespace {

/// `count` times name and value, told apart by their numbers.
std::string attributes(std::size_t count, const std::string& value = "\"1\"")
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += " a" + std::to_string(i) + "=" + value;
    return text;
}

bool passes(const std::string& text, std::size_t piece_size = std::string::npos)
{
    attribute_limit limit;
    try {
        for (std::size_t begin = 0; begin < text.size();) {
            const std::string piece = text.substr(begin, piece_size);
            limit.check(piece);
            begin += piece.size();
        }
        return true;
    } catch (const load_error&) {
        return false;
    }
}

constexpr std::size_t most = attribute_limit::most;

TEST(attribute_limit, is_exact_wherever_the_text_is_cut)
{
    for (const std::size_t piece_size : {std::string::npos, std::size_t{1}, std::size_t{2}, std::size_t{7}}) {
        EXPECT_TRUE(passes("<a" + attributes(most) + ">", piece_size)) << piece_size;
        EXPECT_FALSE(passes("<a" + attributes(most + 1) + ">", piece_size)) << piece_size;
    }
}

TEST(attribute_limit, counts_each_tag_alone)
{
    std::string text;
    for (int i = 0; i < 3; ++i)
        text += "<a" + attributes(most) + "><b/></a>";
    EXPECT_TRUE(passes(text));
    EXPECT_FALSE(passes(text + "<a" + attributes(most + 1) + ">"));
}

TEST(attribute_limit, is_not_misled_by_values)
{
    for (const char* value : {"'>'", "\">\"", "'\">'", "\"'>\""}) {
        EXPECT_FALSE(passes("<a" + attributes(most + 1, value) + ">")) << value;
        EXPECT_TRUE(passes("<a" + attributes(most, value) + ">")) << value;
    }
    EXPECT_TRUE(passes("<a b='" + attributes(most + 1, "1") + "'>")) << "one value full of them";
}

TEST(attribute_limit, does_not_concern_what_is_no_tag)
{
    const std::string many = attributes(most + 1);
    EXPECT_TRUE(passes("<value>" + many + "</value>"));
    EXPECT_TRUE(passes("<a b=\"it's\">" + many + "</a>"));
    EXPECT_TRUE(passes("<!-- it's" + many + " -->"));
    EXPECT_TRUE(passes("<?note" + many + "?>"));
    EXPECT_TRUE(passes("<![CDATA[" + many + "]]>"));
}

} // namespace

} // namespace tallyframe
