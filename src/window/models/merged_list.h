// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>

namespace tallyframe::window {

/// What is kept of a list that two windows have changed: `theirs`, as the other one has written it, with what
/// this one has changed from `before` to `mine`. Entries with the same key are states of the same thing.
template <class List, class KeyOf>
List merged_list(const List& before, const List& mine, List theirs, KeyOf key_of)
{
    const auto find_in = [&](auto& list, const auto& entry) {
        return std::ranges::find(list, std::invoke(key_of, entry), key_of);
    };
    if (theirs == before)
        return mine;
    for (const auto& entry : before) {
        const auto kept = find_in(theirs, entry);
        if (kept != theirs.end() && find_in(mine, entry) == mine.end())
            theirs.erase(kept);
    }
    for (const auto& entry : mine) {
        const auto known = find_in(before, entry);
        if (known != before.end() && *known == entry)
            continue;
        const auto kept = find_in(theirs, entry);
        if (kept != theirs.end())
            *kept = entry;
        else
            theirs.push_back(entry);
    }
    return theirs;
}

} // namespace tallyframe::window
