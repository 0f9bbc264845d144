// SPDX-License-Identifier: MIT
#include "analysis/document_additions.h"
#include "run/failures.h"
#include "support/parsed_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing_support::parsed_text;

std::string sequence(const std::string& id, const std::string& items)
{
    return "<sequence id='" + id + "'><media><video><track>" + items + "</track></video></media></sequence>";
}

std::string clip_item(const std::string& inside)
{
    return "<clipitem>" + inside + "</clipitem>";
}

std::string file(const std::string& id)
{
    return clip_item("<file id='" + id + "'/>");
}

/// A document whose sequences are told apart by their id, and what analyses of them add.
struct growing_document {
    parsed_xml parsed;
    document_additions additions;

    explicit growing_document(const std::string& sequences)
        : parsed(parsed_text("<xmeml>" + sequences + "</xmeml>"))
    {
    }

    xml_node sequence_with_id(std::string_view id) const
    {
        for (const xml_node sequence : parsed.document.root().all_descendants("sequence")) {
            if (sequence.attribute("id") == id && sequence.has_children())
                return sequence;
        }
        return {};
    }

    void analyze(std::string_view id)
    {
        text_budget texts;
        additions.refer_to_nested_files(sequence_with_id(id), parsed.index, texts);
    }

    /// The ids of the files that the clips of a sequence have got for the sequences that they are.
    std::vector<std::string> files_of(std::string_view id) const
    {
        std::vector<std::string> ids;
        for (const xml_node nested : sequence_with_id(id).all("media/video/track/clipitem/sequence")) {
            const xml_node file = additions.file_before(nested);
            ids.push_back(file ? file.attribute("id").value_or("no id") : "none");
        }
        return ids;
    }
};

using testing::ElementsAre;

TEST(nested_files, are_those_of_the_first_clip_inside)
{
    growing_document document(sequence("outer", clip_item(sequence("inner", file("a") + file("b")))));
    document.analyze("outer");
    EXPECT_THAT(document.files_of("outer"), ElementsAre("a"));
}

TEST(nested_files, are_looked_for_one_sequence_deeper_only_when_there_is_none)
{
    const std::string deep = clip_item(sequence("inmost", file("deep")));
    growing_document document(sequence("with", clip_item(sequence("s", deep + file("own"))))
                              + sequence("without", clip_item(sequence("t", deep))));
    document.analyze("with");
    document.analyze("without");
    EXPECT_THAT(document.files_of("with"), ElementsAre("own"));
    EXPECT_THAT(document.files_of("without"), ElementsAre("deep"));
}

TEST(nested_files, leave_the_document_as_it_is)
{
    growing_document document(sequence("outer", clip_item(sequence("inner", file("a")))));
    const std::string before = document.parsed.document.root().markup();
    document.analyze("outer");
    EXPECT_EQ(document.parsed.document.root().markup(), before);
}

TEST(nested_files, stay_what_they_were_at_first)
{
    growing_document document(sequence("a", clip_item("<sequence id='b'/>"))
                              + sequence("b", clip_item("<sequence id='f'/>") + file("own"))
                              + sequence("f", file("f")));
    document.analyze("a");
    document.analyze("b");
    document.analyze("a");
    EXPECT_THAT(document.files_of("b"), ElementsAre("f"));
    EXPECT_THAT(document.files_of("a"), ElementsAre("own")) << "though the first clip of b has f by now";
}

TEST(nested_files, are_seen_by_later_analyses_and_not_before)
{
    const std::string sequences = sequence("a", clip_item("<sequence id='b'/>"))
        + sequence("b", clip_item("<sequence id='f'/>") + file("own")) + sequence("f", file("f"));
    growing_document document(sequences);
    document.analyze("b");
    document.analyze("a");
    EXPECT_THAT(document.files_of("a"), ElementsAre("f"));
}

TEST(nested_files, are_seen_by_the_clips_behind_them)
{
    growing_document document(
        sequence("a", clip_item(sequence("f", file("f"))) + file("own") + clip_item("<sequence id='a'/>")));
    document.analyze("a");
    EXPECT_THAT(document.files_of("a"), ElementsAre("f", "f"));
}

TEST(nested_files, do_not_go_before_an_earlier_file_of_the_document)
{
    growing_document document(sequence("e", clip_item("<sequence id='c'/>"))
                              + sequence("c", file("own") + clip_item(sequence("f", file("f")))));
    document.analyze("c");
    document.analyze("e");
    EXPECT_THAT(document.files_of("e"), ElementsAre("own"));
}

TEST(nested_files, are_found_in_document_order_whatever_the_order_of_the_analyses)
{
    const std::string sequences = sequence("C",
                                           clip_item(sequence("A", clip_item("<sequence id='F'/>")))
                                               + clip_item(sequence("B", clip_item("<sequence id='D'/>"))))
        + sequence("D", file("of D")) + sequence("E", clip_item("<sequence id='C'/>"))
        + sequence("F", file("of F"));
    for (const auto& order : {std::vector{"A", "B", "E"}, std::vector{"B", "A", "E"}}) {
        growing_document document(sequences);
        for (const char* id : order)
            document.analyze(id);
        EXPECT_THAT(document.files_of("E"), ElementsAre("of F")) << order.front() << " first";
    }
    growing_document document(sequences);
    document.analyze("B");
    document.analyze("E");
    document.analyze("A");
    document.analyze("E");
    EXPECT_THAT(document.files_of("E"), ElementsAre("of D")) << "the file that it has got first";
}

TEST(nested_files, with_endless_identifiers_for_many_clips_are_refused)
{
    const std::string id(1'000'000, 'x');
    std::string items;
    for (int i = 0; i < 501; ++i)
        items += clip_item("<sequence id='s'/>");
    growing_document document(sequence("many", items) + sequence("s", file(id)));
    EXPECT_THROW(document.analyze("many"), analysis_error);
}

TEST(joined_scales, stand_in_for_the_text_of_their_element)
{
    growing_document document("<value>100</value><value>50</value>");
    const auto values = document.parsed.document.root().all("value");
    document.additions.join_scale(values[0], "50%, 75");
    document.additions.join_scale(values[0], "50%, 80");
    EXPECT_EQ(document.additions.text_of(values[0]), "50%, 80");
    EXPECT_EQ(document.additions.text_of(values[1]), "50");
    EXPECT_EQ(values[0].text(), "100") << "the document stays as it is";
}

} // namespace

} // namespace tallyframe
