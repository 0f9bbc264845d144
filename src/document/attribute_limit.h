// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace tallyframe {

/// Watches markup on its way to the parser for a tag with more attributes than any export has: the parser
/// compares the attributes of a tag with each other, and would take minutes for a hundred thousand of them.
class attribute_limit {
public:
    static constexpr std::size_t most = 1'000;

    /// Takes the next piece of the markup, which may be cut anywhere. Throws load_error when a tag goes
    /// beyond the limit.
    void check(std::string_view piece);

private:
    enum class place { outside, tag_begin, tag, double_quoted, single_quoted };

    void walk(std::string_view bytes);

    place place_ = place::outside;
    std::size_t attributes_ = 0; ///< of the tag so far
};

} // namespace tallyframe
