// SPDX-License-Identifier: MIT
#include "document/track_checkboxes.h"

namespace tallyframe {

namespace {

constexpr int ticked = 1;

} // namespace

void track_checkboxes::clone_and_clear()
{
    if (!current)
        clone.clear();
    else if (!current->empty())
        clone = *current;
    current.emplace();
}

void track_checkboxes::restore(std::size_t position)
{
    if (!current)
        current.emplace();
    if (position >= current->size())
        current->resize(position + 1, ticked);
    (*current)[position] = position < clone.size() ? clone[position] : ticked;
}

bool track_checkboxes::is_ticked(std::size_t position) const
{
    return current && position < current->size() && (*current)[position] == ticked;
}

} // namespace tallyframe
