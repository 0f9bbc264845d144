// SPDX-License-Identifier: MIT
#include "analysis/title_text.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>

namespace tallyframe {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view title_json =
    R"({"mTextParam":{"mStyleSheet":{"mFontName":{"mParamValues":[[0,"Menlo-Regular"],[1,"Arial"]]},)"
    R"("mText":"First line\rSecond line\r"}}})";

std::string base64(std::string_view bytes)
{
    gchar* encoded = g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size());
    std::string text = encoded;
    g_free(encoded);
    return text;
}

std::string utf16(std::u16string_view text)
{
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::string utf16(std::string_view ascii)
{
    return utf16(std::u16string(ascii.begin(), ascii.end()));
}

std::string with_length(std::string_view bytes)
{
    std::string header;
    for (int i = 0; i < 8; ++i)
        header += static_cast<char>(static_cast<std::uint64_t>(bytes.size()) >> (8 * i) & 0xFF);
    return header.append(bytes);
}

title_text title_of(std::string_view bytes)
{
    title_text title;
    read_source_text(base64(bytes), title);
    return title;
}

std::u16string with_text(std::u16string_view text)
{
    return uR"({"mTextParam":{"mStyleSheet":{"mFontName":{"mParamValues":[[0,"Menlo-Regular"]]},"mText":")"
        + std::u16string(text) + uR"("}}})";
}

TEST(title_text, reads_japanese_and_chinese)
{
    const std::pair<std::u16string_view, const char*> phrases[] = {
        {u"です", "です"},
        {u"漢字", "漢字"},
        {u"夜の市場へようこそ", "夜の市場へようこそ"},
        {u"第三集", "第三集"},
        {u"今天晚上的夜市", "今天晚上的夜市"}};
    for (const auto& [text, utf8] : phrases) {
        const title_text title = title_of(with_length(utf16(with_text(text))));
        EXPECT_EQ(title.font, "Menlo-Regular");
        EXPECT_THAT(title.texts, ElementsAre(utf8));
    }
}

TEST(title_text, reads_text_and_font_from_utf8_behind_a_right_length)
{
    EXPECT_EQ(title_of(with_length(title_json)),
              (title_text{"Menlo-Regular", {"First line", "Second line"}}));
}

TEST(title_text, takes_no_other_document_for_a_title)
{
    const std::string other = R"({"mOther":{"mStyleSheet":{"mText":"x"}}})";
    EXPECT_EQ(title_of(with_length(other)).font, other) << "the first plain text";
}

TEST(title_text, reads_text_and_font_from_utf16)
{
    const title_text title = title_of(with_length(utf16(title_json)));
    EXPECT_EQ(title.font, "Menlo-Regular");
    EXPECT_THAT(title.texts, ElementsAre("First line", "Second line"));
}

TEST(title_text, takes_a_document_of_single_bytes_without_its_length_for_the_name_of_a_font_on_purpose)
{
    for (const std::string& bytes : {std::string(title_json), "\x01\x02" + std::string(title_json)})
        EXPECT_EQ(title_of(bytes), (title_text{std::string(title_json), {}}));
}

TEST(title_text, reads_letters_beyond_ascii)
{
    const title_text title =
        title_of(utf16(u"{\"mTextParam\":{\"mStyleSheet\":{\"mText\":\"Zoë 漢 \U0001F3AC\"}}}"));
    EXPECT_THAT(title.texts, ElementsAre("Zoë 漢 \U0001F3AC"));
    EXPECT_EQ(title.font, "");
}

TEST(title_text, mends_a_document_without_its_last_brace)
{
    std::string_view cut = title_json;
    cut.remove_suffix(1);
    EXPECT_THAT(title_of(with_length(utf16(cut))).texts, ElementsAre("First line", "Second line"));
    EXPECT_THAT(title_of(with_length(utf16(title_json) + std::string(2, '\0'))).texts,
                ElementsAre("First line", "Second line"));
}

TEST(title_text, is_not_misled_by_a_brace_in_the_header)
{
    std::string json(title_json);
    while (json.size() * 2 / 256 != '{') // the second byte of the length
        json += ' ';
    const std::string bytes = with_length(utf16(json));
    ASSERT_EQ(bytes[1], '{');
    EXPECT_THAT(title_of(bytes).texts, ElementsAre("First line", "Second line"));
}

TEST(title_text, takes_a_plain_name_for_the_font_and_reads_no_text_then)
{
    const title_text title = title_of(std::string("\x05\0\0abc\0Arial-Bold\0", 18) + std::string(title_json));
    EXPECT_EQ(title.font, "Arial-Bold");
    EXPECT_THAT(title.texts, IsEmpty());
}

TEST(title_text, takes_three_letters_for_no_font)
{
    EXPECT_EQ(title_of(std::string("\0abc\0de", 7)).font, "");
    EXPECT_EQ(title_of(std::string("\0abcd", 5)).font, "abcd");
}

TEST(title_text, reads_nothing_once_the_font_is_known)
{
    title_text title{"Helvetica", {"Lower third"}};
    read_source_text(base64(with_length(utf16(title_json))), title);
    EXPECT_EQ(title, (title_text{"Helvetica", {"Lower third"}}));
}

TEST(title_text, skips_what_is_not_base64)
{
    std::string text = base64(with_length(utf16(title_json)));
    for (std::size_t i = 10; i < text.size(); i += 20)
        text.insert(i, "\n\t *");
    while (text.back() == '=')
        text.pop_back();
    title_text title;
    read_source_text(text, title);
    EXPECT_THAT(title.texts, ElementsAre("First line", "Second line"));
}

TEST(title_text, gives_nothing_for_what_it_cannot_read)
{
    for (const std::string& bytes :
         {std::string(), utf16("{"), utf16("{{{{"), utf16("[1]"), utf16("{}"), utf16("null"),
          utf16(R"({"mTextParam":3})"),
          utf16(R"({"mTextParam":{"mStyleSheet":{"mText":5,"mFontName":{"mParamValues":[]}}}})"),
          utf16(R"({"mTextParam":{"mStyleSheet":{"mText":null,"mFontName":{"mParamValues":[[]]}}}})"),
          utf16(R"({"mTextParam":{"mStyleSheet":{"mText":[],"mFontName":{"mParamValues":[[1,2]]}}}})"),
          utf16(R"({"mTextParam":{"mStyleSheet":{"mFontName":{"mParamValues":[7]}}}})"),
          utf16(R"({"mTextParam":{"mStyleSheet":{"mFontName":{"mParamValues":"Arial"}}}})"),
          utf16(u"{\"mText\":\"\xD800"), std::string("\xFF\xFE\x7B", 3)})
        EXPECT_EQ(title_of(bytes), title_text{}) << bytes;
    title_text title;
    read_source_text("!!! not Base64 ***", title);
    EXPECT_THAT(title.texts, IsEmpty());
}

TEST(title_text, survives_a_deeply_nested_document)
{
    std::string deep(200'000, '[');
    EXPECT_EQ(title_of(utf16("{\"a\":" + deep)), title_text{});
    deep = "{\"a\":" + deep + std::string(200'000, ']') + "}";
    EXPECT_EQ(title_of(utf16(deep)), title_text{});
}

TEST(title_text, takes_the_last_of_elements_that_come_twice)
{
    const auto style = [](const std::string& content) {
        return utf16(R"({"mTextParam":{"mStyleSheet":{)" + content + "}}}");
    };
    const std::string font = R"("mFontName":{"mParamValues":[[0,"Menlo-Regular"]]})";
    EXPECT_THAT(title_of(style(font + R"(,"mText":"a","mText":"b")")).texts, ElementsAre("b"));
    EXPECT_THAT(title_of(style(font + R"(,"mText":"a","mText":1)")).texts, IsEmpty());
    EXPECT_EQ(title_of(style(font + R"(,"mFontName":{})")).font, "");
}

TEST(title_text, takes_the_last_text_of_the_first_pair_for_the_font)
{
    const auto font_of = [](const std::string& values) {
        return title_of(
                   utf16(R"({"mTextParam":{"mStyleSheet":{"mFontName":{"mParamValues":)" + values + "}}}}"))
            .font;
    };
    EXPECT_EQ(font_of(R"([[0,"A","B"],[1,"C"]])"), "B");
    EXPECT_EQ(font_of(R"([["A",0],[1,"C"]])"), "");
    EXPECT_EQ(font_of(R"([[],[1,"C"]])"), "");
    EXPECT_EQ(font_of(R"([[["A"]],[1,"C"]])"), "");
    EXPECT_EQ(font_of(R"([{"x":"A"},[1,"C"]])"), "");
    EXPECT_EQ(font_of(R"("A")"), "");
}

} // namespace

} // namespace tallyframe
