// SPDX-License-Identifier: MIT
#include "document/document_index.h"
#include "support/parsed_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing::ElementsAre;
using testing_support::parsed_text;

constexpr std::size_t logginginfo = 0;
constexpr std::size_t labels = 1;
constexpr std::size_t filmdata = 2;
constexpr std::size_t comments = 3;

std::vector<std::string> ids(const std::vector<xml_node>& nodes)
{
    std::vector<std::string> found;
    found.reserve(nodes.size());
    for (const xml_node node : nodes)
        found.push_back(node.attribute("id").value_or("none"));
    return found;
}

std::string id(xml_node node)
{
    return node ? node.attribute("id").value_or("no id") : "none";
}

std::string video_items(const std::string& items)
{
    return "<media><video><track>" + items + "</track></video></media>";
}

std::string sequence(const std::string& sequence_id, const std::string& items)
{
    return "<sequence id=\"" + sequence_id + "\">" + video_items(items) + "</sequence>";
}

std::string clip_item(const std::string& inside)
{
    return "<clipitem>" + inside + "</clipitem>";
}

TEST(document_index, finds_every_file_in_document_order)
{
    const auto parsed =
        parsed_text("<xmeml><file id='a'/><x><file id='b'><file id='c'/></file></x><file/></xmeml>");
    EXPECT_THAT(ids(parsed.index.files), ElementsAre("a", "b", "c", "none"));
}

TEST(document_index, finds_the_media_of_bin_clips_only)
{
    const auto parsed =
        parsed_text("<xmeml><clip><media id='no'/></clip><children><clip><media id='a'/><media id='b'/>"
                    "<x><media id='no'/></x></clip><media id='no'/></children></xmeml>");
    EXPECT_THAT(ids(parsed.index.bin_clip_media), ElementsAre("a", "b"));
    EXPECT_TRUE(parsed.index.has_bin_clips);
}

TEST(document_index, sees_bin_clips_without_media)
{
    EXPECT_TRUE(parsed_text("<xmeml><children><clip/></children></xmeml>").index.has_bin_clips);
    EXPECT_FALSE(parsed_text("<xmeml><clip/><children><bin/></children></xmeml>").index.has_bin_clips);
}

TEST(document_index, sees_updatebehavior_anywhere)
{
    EXPECT_TRUE(parsed_text("<xmeml><clip><updatebehavior/></clip></xmeml>").index.has_updatebehavior);
    EXPECT_FALSE(parsed_text("<xmeml><update/></xmeml>").index.has_updatebehavior);
}

TEST(document_index, overlooks_elements_of_a_namespace)
{
    const auto parsed = parsed_text("<xmeml xmlns:v='urn:v'><v:file/><v:updatebehavior/></xmeml>");
    EXPECT_TRUE(parsed.index.files.empty());
    EXPECT_FALSE(parsed.index.has_updatebehavior);
}

TEST(sequence_with_uuid, finds_by_the_exact_text)
{
    const auto parsed =
        parsed_text("<xmeml><sequence id='1'><uuid> a</uuid></sequence><sequence id='2'><uuid>a</uuid>"
                    "</sequence><clip><uuid>b</uuid></clip></xmeml>");
    EXPECT_EQ(id(parsed.index.sequence_with_uuid("a")), "2");
    EXPECT_EQ(id(parsed.index.sequence_with_uuid(" a")), "1");
    EXPECT_EQ(id(parsed.index.sequence_with_uuid("b")), "none");
    EXPECT_EQ(id(parsed.index.sequence_with_uuid("")), "none");
}

TEST(sequence_with_uuid, finds_the_sequence_that_begins_first)
{
    const auto parsed =
        parsed_text("<xmeml><sequence id='outer'><sequence id='inner'><uuid>a</uuid></sequence>"
                    "<uuid>a</uuid></sequence><sequence id='later'><uuid>a</uuid></sequence></xmeml>");
    EXPECT_EQ(id(parsed.index.sequence_with_uuid("a")), "outer");
    EXPECT_EQ(parsed.index.sequence_uuids.size(), 3U);
}

TEST(sequence_with_uuid, knows_each_uuid_of_a_sequence)
{
    const auto parsed =
        parsed_text("<xmeml><sequence id='1'><uuid>a</uuid><uuid>b</uuid></sequence></xmeml>");
    EXPECT_EQ(id(parsed.index.sequence_with_uuid("b")), "1");
}

TEST(master_clip_group, finds_the_first_group_of_any_clip_with_that_id)
{
    const auto parsed =
        parsed_text("<xmeml><clip id='c'><labels id='l1'/></clip><clip id='c'><labels id='l2'/>"
                    "<logginginfo id='i1'/><logginginfo id='i2'/></clip><clip id='d'><filmdata id='f'/>"
                    "<comments id='m'/></clip></xmeml>");
    EXPECT_EQ(id(parsed.index.master_clip_group(logginginfo, "c")), "i1");
    EXPECT_EQ(id(parsed.index.master_clip_group(labels, "c")), "l1");
    EXPECT_EQ(id(parsed.index.master_clip_group(filmdata, "d")), "f");
    EXPECT_EQ(id(parsed.index.master_clip_group(comments, "d")), "m");
    EXPECT_EQ(id(parsed.index.master_clip_group(comments, "c")), "none");
    EXPECT_EQ(id(parsed.index.master_clip_group(labels, "")), "none");
}

TEST(master_clip_group, looks_at_children_of_clips_alone)
{
    const auto parsed =
        parsed_text("<xmeml><clipitem id='c'><labels id='no'/></clipitem><clip id='c'><x><labels id='no'/>"
                    "</x></clip><clip><labels id='no'/></clip></xmeml>");
    EXPECT_EQ(id(parsed.index.master_clip_group(labels, "c")), "none");
}

TEST(master_clip_group, never_finds_an_id_with_a_double_quote)
{
    const auto parsed = parsed_text("<xmeml><clip id='a\"b'><labels id='l'/></clip></xmeml>");
    EXPECT_EQ(id(parsed.index.master_clip_group(labels, "a&quot;b")), "none"); // as clip items ask for it
}

std::string in_clip_item(const parsed_xml& parsed, std::string_view sequence_id)
{
    return id(parsed.index.first_file(nesting::in_clip_item, sequence_id));
}

std::string one_sequence_deeper(const parsed_xml& parsed, std::string_view sequence_id)
{
    return id(parsed.index.first_file(nesting::one_sequence_deeper, sequence_id));
}

TEST(first_file, stands_in_a_clip_item_of_a_video_track)
{
    const auto parsed =
        parsed_text("<xmeml><sequence id='s'><media><audio><track><clipitem><file id='no'/></clipitem>"
                    "</track></audio><video><file id='no'/><track><clipitem/><clipitem><file id='a'/>"
                    "<file id='b'/></clipitem></track></video></media></sequence></xmeml>");
    EXPECT_EQ(in_clip_item(parsed, "s"), "a");
    EXPECT_EQ(in_clip_item(parsed, "t"), "none");
}

TEST(first_file, is_told_apart_from_one_a_sequence_deeper)
{
    const std::string inner = sequence("inner", clip_item("<file id='deep'/>"));
    const auto parsed =
        parsed_text("<xmeml>" + sequence("s", clip_item(inner) + clip_item("<file id='own'/>")) + "</xmeml>");
    EXPECT_EQ(in_clip_item(parsed, "s"), "own");
    EXPECT_EQ(one_sequence_deeper(parsed, "s"), "deep");
    EXPECT_EQ(in_clip_item(parsed, "inner"), "deep");
    EXPECT_EQ(one_sequence_deeper(parsed, "inner"), "none");
}

TEST(first_file, stands_no_two_sequences_deeper)
{
    const std::string innermost = sequence("c", clip_item("<file id='deep'/>"));
    const auto parsed =
        parsed_text("<xmeml>" + sequence("a", clip_item(sequence("b", clip_item(innermost)))) + "</xmeml>");
    EXPECT_EQ(in_clip_item(parsed, "a"), "none");
    EXPECT_EQ(one_sequence_deeper(parsed, "a"), "none");
    EXPECT_EQ(one_sequence_deeper(parsed, "b"), "deep");
}

TEST(first_file, stands_in_any_sequence_of_that_id)
{
    const auto parsed =
        parsed_text("<xmeml><sequence id='s'/>" + sequence("s", clip_item("<file id='a'/>")) + "</xmeml>");
    EXPECT_EQ(in_clip_item(parsed, "s"), "a");
}

TEST(first_file, counts_a_deeper_sequence_without_id)
{
    const std::string inner = "<sequence>" + video_items(clip_item("<file id='deep'/>")) + "</sequence>";
    const auto parsed = parsed_text("<xmeml>" + sequence("s", clip_item(inner)) + "</xmeml>");
    EXPECT_EQ(one_sequence_deeper(parsed, "s"), "deep");
    EXPECT_EQ(in_clip_item(parsed, ""), "none");
}

} // namespace

} // namespace tallyframe
