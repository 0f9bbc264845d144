// SPDX-License-Identifier: MIT
// The XML library's own tree of a document tells of it what ours does: texts and the blanks that only lay out
// the markup, entities, what is left of damaged places, errors.
#include "support/library_tree.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

namespace {

using testing_support::difference_from_library_tree;

/// The files of a folder by their names.
std::vector<std::string> documents_in(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".xml")
            paths.push_back(entry.path());
    }
    std::ranges::sort(paths);
    std::vector<std::string> texts;
    texts.reserve(paths.size());
    for (const std::filesystem::path& path : paths)
        texts.push_back(testing_support::content_of(path));
    return texts;
}

const std::vector<std::string>& odd_documents()
{
    static const std::string entities = "<!DOCTYPE a [<!ENTITY e 'x<b>y</b>'><!ENTITY two '&e; &e;'>]>";
    static const std::string xhtml = "<!DOCTYPE html PUBLIC '-//W3C//DTD XHTML 1.0 Strict//EN' "
                                     "'http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd'>";
    static const std::vector<std::string> documents = {
        "",
        "text",
        "<a",
        "<a/>",
        "<a>t<b> </b> <c/>\n<d>x</d>y</a>",
        "<a> <b/> </a>",
        "<a> <b/>t <c/> </a>",
        "<a>\n<!-- c -->\n<b>\n</b>\n<?p d?> <?q?>\n</a>",
        "<!-- c --><?p d?><a/><!-- behind --><?q?>",
        "<a><![CDATA[ ]]> <b/><![CDATA[x]]><![CDATA[y]]>z<![CDATA[]]></a>",
        "<a xml:space='preserve'> <b/> <c xml:space='default'> <d/> </c> </a>",
        "<a>x&amp;y&lt;&#13;&#233;<b c='&amp; &#10;\t\n\"'/>\r\nz</a>",
        "<a xmlns='u' xmlns:n='v'><n:b n:c='1' d='2'/> <c xmlns=''> <d/></c><e xml:lang='en'/></a>",
        "<a><n:b n:c='1'/><n:b/></a>",
        "<a xml:id='i'><b xml:id='i'/><c xml:id='1'/></a>",
        "<a b='1' b='2' c='3'/>",
        "<a><b>x</c> <d/></a>",
        "<a><b x='1' <c/>t</b> </a>",
        "<a><b <c>t</c> u</a>",
        "<a>x<b>y",
        "<a>x&u;y</a>",
        "<a>x<b/>\x01y</a>",
        "<a/><b/>text",
        "<!DOCTYPE a SYSTEM 'a.dtd'><a>x&u;y<b c='&u;'/></a>",
        "<!DOCTYPE a [<!ELEMENT a (b)><!ELEMENT b (#PCDATA)>]><a> <b> </b> </a>",
        entities + "<a k='&f;'> <b>&e;</b>&two;<c> &e;</c>&two;</a>",
        "<!DOCTYPE a [<!ENTITY e 'x'><!ENTITY two '&e; &e;'>]><a k='&two;&amp;'>&two;<b k='&e;'/>&two;</a>",
        "<!DOCTYPE a [<!ENTITY e '<b>'><!ENTITY f SYSTEM 'f'>]><a>1&e;2&f;3</b>4</a>",
        xhtml + "<html><head><p/></head><body id='a'><br></br><a name='&amp;'/></body></html>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xE9'>\xE9</a>",
        "<a b='\xC3\xA9'>\xC3\xA9</a>",
    };
    return documents;
}

std::vector<std::string> all_documents()
{
    std::vector<std::string> texts = odd_documents();
    for (const char* folder : {"document_loading", "whole_run"}) {
        const auto seeds = documents_in(std::filesystem::path(FUZZ_CORPORA) / folder);
        texts.insert(texts.end(), seeds.begin(), seeds.end());
    }
    return texts;
}

void expect_no_difference(const std::string& text)
{
    for (const blank_texts blanks : {blank_texts::dropped, blank_texts::kept})
        EXPECT_EQ(difference_from_library_tree(text, blanks), "")
            << (blanks == blank_texts::kept ? "blanks kept: " : "") << text.substr(0, 2000);
}

TEST(the_librarys_tree, tells_the_same_of_examples)
{
    const auto examples = documents_in(EXAMPLES);
    ASSERT_FALSE(examples.empty());
    for (const std::string& text : examples)
        expect_no_difference(text);
}

TEST(the_librarys_tree, tells_the_same_of_odd_documents)
{
    for (const std::string& text : all_documents())
        expect_no_difference(text);
}

/// Changes documents of which some parts are more likely to be changed than others: the borders of tags.
class changes {
public:
    std::string mutated(std::string text)
    {
        static constexpr std::array<std::string_view, 47> pieces = {
            "<a>",
            "</a>",
            "<b/>",
            " ",
            "\n",
            "  \n",
            "<![CDATA[x]]>",
            "<![CDATA[]]>",
            "<!-- c -->",
            "<?p d?>",
            "<?p?>",
            "&amp;",
            "&#13;",
            "&lt;",
            "&e;",
            "&u;",
            "&two;",
            "<n:a>",
            "<n:a xmlns:n='u'>",
            " xml:id='i'",
            " xml:id='1'",
            " xml:space='preserve'",
            " xml:space='default'",
            "<a b='&amp;c&e;'>",
            "<a b='1' b='2'>",
            "]]>",
            "\r",
            "\r\n",
            "\x01",
            "\xE9",
            "\xC3\xA9",
            "<",
            ">",
            "&",
            "'",
            "\"",
            "<a ",
            "</",
            "<!DOCTYPE a [<!ENTITY e 'x<b>y</b>'><!ENTITY two '&e; &e;'>]>",
            "<!DOCTYPE a SYSTEM 'x'>",
            "<?xml version='1.0' encoding='ISO-8859-1'?>",
            " xmlns='u'",
            " xmlns=''",
            " xmlns:q='v'",
            " q:z='1'",
            "<q:y/>",
            "text"};
        for (std::size_t count = 1 + any(4); count > 0; --count) {
            const std::size_t place = any_place(text);
            if (any(3) == 0)
                text.erase(place, 1 + any(40));
            else if (any(3) == 0)
                text.insert(any_place(text), text.substr(place, any(200)));
            else
                text.insert(place, pieces.at(any(pieces.size())));
        }
        return text;
    }

    /// Bytes turned into any others, and the end cut off.
    std::string damaged(std::string text)
    {
        for (std::size_t count = any(6); count > 0 && !text.empty(); --count)
            text[any(text.size())] = static_cast<char>(any(256));
        if (any(2) == 0)
            text.resize(any(text.size() + 1));
        return text;
    }

    std::size_t any(std::size_t count) { return random_() % std::max<std::size_t>(count, 1); }

private:
    std::size_t any_place(std::string_view text)
    {
        const std::size_t place = any(text.size() + 1);
        const std::size_t border = text.find_first_of("<>", place);
        return any(2) == 0 || border == std::string_view::npos ? place
                                                               : border + (text[border] == '>' ? 1 : 0);
    }

    std::mt19937 random_{7}; // the same changes in every run
};

/// Some document that is not long: most of them odd ones.
const std::string& any_of(const std::vector<std::string>& texts, changes& random)
{
    const std::string& text = texts[random.any(random.any(3) == 0 ? texts.size() : odd_documents().size())];
    return text.size() < 10'000 ? text : texts.front();
}

TEST(the_librarys_tree, tells_the_same_of_5000_mutated_documents)
{
    const auto texts = all_documents();
    changes random;
    for (int i = 0; i < 5'000; ++i)
        expect_no_difference(random.mutated(any_of(texts, random)));
}

TEST(the_librarys_tree, tells_the_same_of_2000_damaged_documents)
{
    const auto texts = all_documents();
    changes random;
    for (int i = 0; i < 2'000; ++i)
        expect_no_difference(random.damaged(any_of(texts, random)));
}

TEST(the_librarys_tree, tells_the_same_of_long_texts)
{
    const std::string half(6'000'000, 'x');
    expect_no_difference("<a><b>" + half + "</b><b>" + half + "&amp;" + half + "</b><b>y</b></a>");
    expect_no_difference("<a><![CDATA[" + half + "]]><![CDATA[" + half + "]]>" + half + "</a>");
}

TEST(the_librarys_tree, tells_the_same_of_deep_documents)
{
    for (const int depth : {250, 255, 256, 257, 258, 300}) {
        std::string text;
        for (int i = 0; i < depth; ++i)
            text += "<a xml:id='i'> <b/>";
        expect_no_difference(text);
    }
}

} // namespace

} // namespace tallyframe
