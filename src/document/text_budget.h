// SPDX-License-Identifier: MIT
#pragma once

#include "run/failures.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tallyframe {

/// How much text records may still repeat. The document has a track's name, a master clip's notes or a file's
/// path once, however many clips share it, and what stands inside of elements in each other counts to each of
/// them, while each record has its own: without a bound a short document could fill the memory.
class text_budget {
public:
    static constexpr std::size_t bytes = 500'000'000;

    /// Throws analysis_error once the budget is used up.
    void spend(const std::string& text)
    {
        if (text.size() > left_)
            throw analysis_error(
                "The document has names or notes of such length, shared by so many clips, that the report "
                "would take more than 500 MB for them. Shorten the longest ones, then export the document "
                "again.");
        left_ -= text.size();
    }

    void spend(const std::optional<std::string>& text)
    {
        if (text)
            spend(*text);
    }

private:
    std::size_t left_ = bytes;
};

} // namespace tallyframe
