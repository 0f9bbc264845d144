// SPDX-License-Identifier: MIT
#include "document/attribute_limit.h"

#include "platform/failures.h"

#include <algorithm>

namespace tallyframe {

// "=" is rare in these documents, and "<" cannot stand within a tag: only the bytes between the last "<"
// before an "=" and that "=" need a look.
void attribute_limit::check(std::string_view piece)
{
    while (!piece.empty()) {
        const std::size_t equals = std::min(piece.find('='), piece.size());
        std::string_view gap = piece.substr(0, equals);
        if (const std::size_t tag = gap.rfind('<'); tag != std::string_view::npos) {
            place_ = place::tag_begin;
            attributes_ = 0;
            gap.remove_prefix(tag + 1);
        }
        walk(gap);
        if (equals == piece.size())
            return;
        if (place_ == place::tag && ++attributes_ > most)
            throw load_error(
                "The document has an element with more than 1,000 attributes, which no export has. Please "
                "export it again.");
        piece.remove_prefix(equals + 1);
    }
}

void attribute_limit::walk(std::string_view bytes)
{
    for (const char byte : bytes) {
        switch (place_) {
        case place::outside:
            return;
        case place::double_quoted:
        case place::single_quoted:
            if (byte == (place_ == place::double_quoted ? '"' : '\''))
                place_ = place::tag;
            break;
        case place::tag_begin:
        case place::tag:
            if (byte == '>' || (place_ == place::tag_begin && (byte == '!' || byte == '?')))
                place_ = place::outside;
            else if (byte == '"')
                place_ = place::double_quoted;
            else if (byte == '\'')
                place_ = place::single_quoted;
            else
                place_ = place::tag;
            break;
        }
    }
}

} // namespace tallyframe
