// SPDX-License-Identifier: MIT
#include "document/xml_node.h"
#include "support/parsed_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>

namespace tallyframe {

namespace {

using testing::ElementsAre;
using testing_support::parsed_text;

class an_element : public testing::Test {
protected:
    xml_node root_of(const std::string& text)
    {
        parsed_ = parsed_text(text);
        return parsed_.document.root();
    }

    static std::vector<std::string> texts(const std::vector<xml_node>& nodes)
    {
        std::vector<std::string> found;
        found.reserve(nodes.size());
        for (const xml_node node : nodes)
            found.push_back(node.text());
        return found;
    }

private:
    parsed_xml parsed_ = parsed_text("<none/>");
};

TEST_F(an_element, joins_all_text_inside_it)
{
    const xml_node root = root_of("<a> x<b>y<!-- no --><c/></b><![CDATA[<&]]>&amp;&#13;<?no no?>z\n</a>");
    EXPECT_EQ(root.text(), " xy<&&\rz\n");
    EXPECT_TRUE(root.text_is(" xy<&&\rz\n"));
    EXPECT_FALSE(root.text_is(" xy"));
}

TEST_F(an_element, has_an_empty_text_when_nothing_is_inside)
{
    const xml_node root = root_of("<a><b/><c></c><d><e/></d></a>");
    for (const char* name : {"b", "c", "d"}) {
        EXPECT_EQ(root.text_of(name), "") << name;
        EXPECT_TRUE(root.child(name).text_is("")) << name;
    }
}

TEST_F(an_element, has_a_text_of_blanks)
{
    const xml_node root = root_of("<a><b> </b><c>\t\n</c></a>");
    EXPECT_EQ(root.text_of("b"), " ");
    EXPECT_EQ(root.text_of("c"), "\t\n");
}

TEST_F(an_element, expands_the_documents_own_entities)
{
    const xml_node root = root_of("<!DOCTYPE a [<!ENTITY one 'first'><!ENTITY two '<b>&one;</b> second'>]>"
                                  "<a name='the &one;'>&two;, &one;</a>");
    EXPECT_EQ(root.text(), "first second, first");
    EXPECT_EQ(root.attribute("name"), "the first");
}

TEST_F(an_element, has_attributes)
{
    const xml_node root = root_of("<track MZ.TrackName='A &amp; B' id=''/>");
    EXPECT_EQ(root.attribute("MZ.TrackName"), "A & B");
    EXPECT_EQ(root.attribute("id"), "");
    EXPECT_EQ(root.attribute("ID"), std::nullopt);
    EXPECT_EQ(root.attribute("MZ.Track"), std::nullopt);
}

TEST_F(an_element, is_told_by_its_whole_name)
{
    const xml_node root = root_of("<rate/>");
    EXPECT_EQ(root.name(), "rate");
    EXPECT_TRUE(root.has_name("rate"));
    for (const char* other : {"", "r", "rat", "rates", "Rate"})
        EXPECT_FALSE(root.has_name(other)) << other;
}

TEST_F(an_element, of_a_namespace_has_no_plain_name)
{
    const xml_node root = root_of("<a xmlns:v='urn:v'><v:b>1</v:b><b>2</b></a>");
    EXPECT_EQ(root.text_of("b"), "2");
    EXPECT_FALSE(root.first_element().has_name("b"));
}

TEST_F(an_element, knows_its_relatives)
{
    const xml_node root = root_of("<a>text<!-- c --><b/>text<c/><d/></a>");
    const xml_node b = root.first_element();
    EXPECT_EQ(b.name(), "b");
    EXPECT_EQ(b.parent(), root);
    EXPECT_FALSE(b.previous_element());
    EXPECT_EQ(b.next_element().name(), "c");
    EXPECT_EQ(b.next_element().previous_element(), b);
    EXPECT_FALSE(root.child("d").next_element());
    EXPECT_FALSE(root.parent());
    EXPECT_FALSE(b.first_element());
}

TEST_F(an_element, tells_whether_anything_is_inside)
{
    const xml_node root = root_of("<a><b/><c><!-- --></c><d> </d></a>");
    EXPECT_TRUE(root.has_children());
    EXPECT_FALSE(root.child("b").has_children());
    EXPECT_TRUE(root.child("c").has_children());
    EXPECT_TRUE(root.child("d").has_children());
}

TEST_F(an_element, follows_a_path_through_every_child_of_a_name)
{
    const xml_node root =
        root_of("<a><t><n/></t><t><r><v>1</v></r><r><v>2</v><v>3</v></r></t><t><r><v>4</v></r></t></a>");
    EXPECT_EQ(root.first("t/r/v").text(), "1");
    EXPECT_EQ(root.text_of("t/r/v"), "1");
    EXPECT_THAT(texts(root.all("t/r/v")), ElementsAre("1", "2", "3", "4"));
    EXPECT_EQ(root.first("t/r/x"), xml_node());
    EXPECT_EQ(root.text_of("t/x"), std::nullopt);
    EXPECT_THAT(root.all("r/v"), ElementsAre());
    EXPECT_EQ(root.first(""), xml_node());
}

TEST_F(an_element, finds_descendants_in_document_order_and_not_itself)
{
    const xml_node root = root_of("<v><a><v>1<v>2</v></v></a><v>3</v></v>");
    EXPECT_EQ(root.first_descendant("v").text(), "12");
    EXPECT_THAT(texts(root.all_descendants("v")), ElementsAre("12", "2", "3"));
    EXPECT_THAT(texts(root.child("a").all_descendants("v")), ElementsAre("12", "2")); // not the one after it
    EXPECT_FALSE(root.first_descendant("x"));
    EXPECT_THAT(root.child("a").first_descendant("v").child("v").all_descendants("v"), ElementsAre());
}

TEST_F(an_element, is_written_as_in_its_document)
{
    const xml_node root = root_of("<a><b x='1'> s\n<c/>t&lt;é<!-- n --></b></a>");
    EXPECT_EQ(root.child("b").markup(), "<b x=\"1\"> s\n<c/>t&lt;é<!-- n --></b>");
}

TEST_F(an_element, gives_its_children_as_a_range)
{
    const xml_node root = root_of("<a> 1<b>2</b><!-- n --><c>3<d>4</d></c>5</a>");
    std::vector<std::string> found;
    for (const xml_node child : root.children())
        found.push_back(child.text());
    EXPECT_THAT(found, ElementsAre("2", "34"));
    EXPECT_EQ(std::ranges::distance(root.child("b").children()), 0);
}

TEST(no_element, answers_with_none_or_nothing)
{
    const xml_node none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.name(), "");
    EXPECT_EQ(none.text(), "");
    EXPECT_FALSE(none.text_is(""));
    EXPECT_FALSE(none.has_name(""));
    EXPECT_EQ(none.attribute("id"), std::nullopt);
    EXPECT_FALSE(none.parent() || none.previous_element() || none.next_element() || none.first_element());
    EXPECT_FALSE(none.has_children());
    EXPECT_EQ(std::ranges::distance(none.children()), 0);
    EXPECT_FALSE(none.child("a") || none.first("a/b") || none.first_descendant("a"));
    EXPECT_TRUE(none.all("a").empty() && none.all_descendants("a").empty());
    EXPECT_EQ(none.text_of("a"), std::nullopt);
    EXPECT_EQ(none.markup(), "");
    EXPECT_FALSE(next_in_document(none, none));
    EXPECT_FALSE(stands_before(none, none));
}

TEST_F(an_element, stands_before_what_begins_later)
{
    const xml_node root = root_of("<a><b><c/><d/></b><e><f/></e></a>");
    std::vector<xml_node> in_order;
    for (xml_node node = root; node; node = next_in_document(node, root))
        in_order.push_back(node);
    ASSERT_EQ(in_order.size(), 6U);
    for (std::size_t i = 0; i < in_order.size(); ++i) {
        for (std::size_t j = 0; j < in_order.size(); ++j)
            EXPECT_EQ(stands_before(in_order[i], in_order[j]), i < j)
                << in_order[i].name() << in_order[j].name();
    }
}

TEST_F(an_element, is_followed_by_the_next_one_inside_the_root_alone)
{
    const xml_node root = root_of("<a>t<b>t<c/></b><!-- --><d/></a>");
    std::string names;
    for (xml_node node = root.child("b"); node; node = next_in_document(node, root.child("b")))
        names += node.name();
    EXPECT_EQ(names, "bc");
}

TEST(first_node_name, is_that_of_the_document_type_or_of_what_stands_first)
{
    EXPECT_EQ(parsed_text("<!DOCTYPE xmeml><other/>").document.first_node_name(), "xmeml");
    EXPECT_EQ(parsed_text("<?xml version='1.0'?>\n<xmeml/>").document.first_node_name(), "xmeml");
    EXPECT_EQ(parsed_text("<!-- made by hand --><xmeml/>").document.first_node_name(), "comment");
    EXPECT_EQ(xml_document().first_node_name(), "");
    EXPECT_FALSE(xml_document().root());
}

} // namespace

} // namespace tallyframe
