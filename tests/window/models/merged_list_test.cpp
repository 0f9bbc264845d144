// SPDX-License-Identifier: MIT
#include "window/models/merged_list.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

using testing::ElementsAre;

namespace tallyframe::window {

namespace {

using names = std::vector<std::string>;
using entry = std::pair<std::string, int>; ///< a name, and its state
using entries = std::vector<entry>;

names merged(const names& before, const names& mine, const names& theirs)
{
    return merged_list(before, mine, theirs, std::identity());
}

entries merged(const entries& before, const entries& mine, const entries& theirs)
{
    return merged_list(before, mine, theirs, &entry::first);
}

} // namespace

TEST(merged_list, is_mine_where_the_others_have_changed_nothing)
{
    EXPECT_THAT(merged(names{"a", "b"}, {"b", "a"}, {"a", "b"}), ElementsAre("b", "a"));
}

TEST(merged_list, is_theirs_where_nothing_has_changed_here)
{
    EXPECT_THAT(merged(names{"a"}, {"a"}, {"c", "a"}), ElementsAre("c", "a"));
}

TEST(merged_list, takes_what_both_have_added_and_leaves_out_what_either_has_removed)
{
    EXPECT_THAT(merged(names{"a", "b", "c"}, {"a", "c", "mine"}, {"b", "c", "theirs"}),
                ElementsAre("c", "theirs", "mine"));
    EXPECT_THAT(merged(names{}, {"same"}, {"same", "theirs"}), ElementsAre("same", "theirs"));
}

TEST(merged_list, has_my_state_of_an_entry_that_was_changed_here_and_theirs_of_any_other)
{
    const entries before = {{"a", 1}, {"b", 1}};
    EXPECT_THAT(merged(before, {{"a", 2}, {"b", 1}}, {{"a", 1}, {"b", 3}}),
                ElementsAre(entry("a", 2), entry("b", 3)));
    EXPECT_THAT(merged(before, {{"a", 2}, {"b", 1}}, {{"b", 1}}), ElementsAre(entry("b", 1), entry("a", 2)))
        << "what they have removed and I have changed";
}

} // namespace tallyframe::window
