// SPDX-License-Identifier: MIT
#include "document/sequence_catalogue.h"
#include "run/failures.h"
#include "support/parsed_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using entries = std::vector<catalogue_entry>;

entries catalogue_of(const std::string& inside,
                     unidentified_sequences without_uuid = unidentified_sequences::left_out)
{
    return sequence_catalogue(testing_support::parsed_text("<xmeml>" + inside + "</xmeml>").index,
                              without_uuid);
}

std::string named_sequence(const std::string& uuid, const std::string& name)
{
    return "<sequence><uuid>" + uuid + "</uuid><name>" + name + "</name></sequence>";
}

const catalogue_entry bin_clips = {"Bin Clips", ""};
const catalogue_entry separator = {"", "----------"};
const std::string loose_clip = "<bin><children><clip id=\"c\"/></children></bin>";

TEST(sequence_catalogue, lists_bin_clips_a_separator_and_every_sequence)
{
    EXPECT_EQ(catalogue_of(named_sequence("u1", "Reel 1") + loose_clip + named_sequence("u2", "Reel 2")),
              (entries{bin_clips, separator, {"Reel 1", "u1"}, {"Reel 2", "u2"}}));
}

TEST(sequence_catalogue, has_no_separator_when_one_kind_is_missing)
{
    EXPECT_EQ(catalogue_of(loose_clip + loose_clip), entries{bin_clips});
    EXPECT_EQ(catalogue_of(named_sequence("u1", "Reel 1")), (entries{{"Reel 1", "u1"}}));
}

TEST(sequence_catalogue, is_empty_for_a_document_with_neither)
{
    EXPECT_EQ(catalogue_of("<clip/><sequence><name>no uuid</name></sequence>"), entries{});
}

TEST(sequence_catalogue, lists_sequences_without_a_uuid_behind_the_others_where_that_is_wanted)
{
    const std::string unnamed = "<sequence><rate/></sequence>";
    const std::string nested = "<sequence id=\"n\"><name>Nested</name></sequence>";
    const std::string text = "<sequence><name>First</name><media>" + nested
        + "<sequence id=\"n\"/></media></sequence>" + loose_clip + named_sequence("u1", "Cut") + unnamed;
    EXPECT_EQ(catalogue_of(text), (entries{bin_clips, separator, {"Cut", "u1"}}));
    EXPECT_EQ(catalogue_of(text, unidentified_sequences::listed),
              (entries{bin_clips,
                       separator,
                       {"Cut", "u1"},
                       separator,
                       {"First", "", 0},
                       {"Nested", "", 1},
                       {"Sequence 3", "", 2}}))
        << "an element that only repeats an id is no sequence of its own";
}

TEST(sequence_catalogue, begins_with_sequences_without_a_uuid_where_there_is_nothing_else)
{
    EXPECT_EQ(catalogue_of("<sequence><name>Only</name></sequence>", unidentified_sequences::listed),
              (entries{{"Only", "", 0}}));
    EXPECT_FALSE((catalogue_entry{"Only", "", 0}.is_bins()));
    EXPECT_TRUE(bin_clips.is_bins());
}

TEST(sequence_catalogue, finds_nested_sequences_in_document_order)
{
    const std::string inner = named_sequence("inner", "Inner");
    EXPECT_EQ(catalogue_of("<bin><children>" + inner + "</children></bin><sequence><media><video>"
                           + named_sequence("deep", "Deep")
                           + "</video></media><uuid>outer</uuid><name>Outer</name></sequence>"),
              (entries{{"Inner", "inner"}, {"Deep", "deep"}, {"Outer", "outer"}}));
}

TEST(sequence_catalogue, lists_two_sequences_of_one_name)
{
    EXPECT_EQ(catalogue_of(named_sequence("u1", "Cut") + named_sequence("u2", "Cut")),
              (entries{{"Cut", "u1"}, {"Cut", "u2"}}));
}

TEST(sequence_catalogue, takes_the_first_name_as_it_is_written)
{
    EXPECT_EQ(
        catalogue_of("<sequence><media><name>not this</name></media><name> A &amp; <![CDATA[<B>]]>\n</name>"
                     "<name>nor this</name><uuid>u</uuid></sequence>"),
        (entries{{" A & <B>\n", "u"}}));
}

TEST(sequence_catalogue, fails_for_a_sequence_without_a_name)
{
    EXPECT_THAT([] { catalogue_of("<sequence><uuid>u7</uuid></sequence>"); },
                testing::Throws<load_error>(testing::AllOf(
                    testing::Property(&load_error::what, testing::StrEq(R"(The sequence "u7" has no name.)")),
                    testing::Property(&load_error::fault, load_fault::unexpected))));
}

TEST(sequence_catalogue, fails_for_a_long_name_that_many_identifiers_share)
{
    std::string identifiers;
    for (int i = 0; i < 200; ++i)
        identifiers += "<uuid/>";
    EXPECT_THAT(
        [&] {
            catalogue_of("<sequence><name>" + std::string(1'000'000, 'x') + "</name>" + identifiers
                         + "</sequence>");
        },
        testing::ThrowsMessage<load_error>(testing::HasSubstr("more than 100 MB")));
}

TEST(catalogue_entry, tells_the_separator)
{
    EXPECT_TRUE(separator.is_separator());
    EXPECT_FALSE(bin_clips.is_separator());
}

} // namespace

} // namespace tallyframe
