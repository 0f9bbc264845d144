// SPDX-License-Identifier: MIT
// Changes documents by whole elements, so that most of them stay well-formed and reach what lies behind the
// parser; every third change is one of the fuzzing library's own, to any bytes.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

namespace tallyframe::fuzz {

namespace {

/// Where an element with an end tag stands in its document.
struct element {
    std::size_t begin;
    std::size_t content_begin;
    std::size_t content_end = 0;
    std::size_t end = 0;

    std::size_t content_size() const { return content_end - content_begin; }
};

/// The elements of a document as far as its tags match, by their ends.
std::vector<element> elements_of(std::string_view document)
{
    std::vector<element> open;
    std::vector<element> closed;
    for (std::size_t tag = document.find('<'); tag != std::string_view::npos;
         tag = document.find('<', tag + 1)) {
        const std::size_t end = document.find('>', tag);
        if (end == std::string_view::npos)
            break;
        const char kind = document[tag + 1];
        if (kind == '/' && !open.empty()) {
            open.back().content_end = tag;
            open.back().end = end + 1;
            closed.push_back(open.back());
            open.pop_back();
        } else if (kind != '/' && kind != '!' && kind != '?' && document[end - 1] != '/') {
            open.push_back({tag, end + 1});
        }
    }
    return closed;
}

class document_mutator {
public:
    document_mutator(std::string_view document, unsigned seed)
        : document_(document), random_(seed), elements_(elements_of(document))
    {
    }

    bool has_elements() const { return !elements_.empty(); }
    std::size_t any(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }

    std::string mutated()
    {
        const element chosen = any_element();
        switch (any(6)) {
        case 0:
            return replaced(chosen.begin, chosen.end, "");
        case 1:
            return replaced(chosen.end, chosen.end, repeated(text_of(chosen)));
        case 2:
            return replaced(chosen.content_begin, chosen.content_begin, text_of(any_element()));
        case 3:
            return replaced(chosen.begin, chosen.end, text_of(any_element()));
        default:
            return with_another_value(any_leaf());
        }
    }

private:
    element any_element() { return elements_[any(elements_.size())]; }

    /// An element that holds a text and no element, when that is soon found.
    element any_leaf()
    {
        element chosen = any_element();
        for (int tries = 0; tries < 20 && content_of(chosen).find('<') != std::string_view::npos; ++tries)
            chosen = any_element();
        return chosen;
    }

    std::string_view text_of(const element& which) const
    {
        return document_.substr(which.begin, which.end - which.begin);
    }
    std::string_view content_of(const element& which) const
    {
        return document_.substr(which.content_begin, which.content_size());
    }

    std::string replaced(std::size_t begin, std::size_t end, std::string_view text) const
    {
        std::string result(document_.substr(0, begin));
        return result.append(text).append(document_.substr(end));
    }

    std::string repeated(std::string_view text)
    {
        std::string result;
        for (std::size_t times = any(8) == 0 ? any(40) : 1; times > 0; --times)
            result += text;
        return result;
    }

    std::string with_another_value(const element& leaf)
    {
        constexpr std::array<std::string_view, 24> values = {"",
                                                             "0",
                                                             "1",
                                                             "-1",
                                                             "2",
                                                             "24",
                                                             "25",
                                                             "30",
                                                             "50",
                                                             "60",
                                                             "99",
                                                             "100",
                                                             "1000000",
                                                             "2147483647",
                                                             "1e9",
                                                             "-0.5",
                                                             "TRUE",
                                                             "FALSE",
                                                             "DF",
                                                             "NDF",
                                                             "4294967296",
                                                             "-9999999999",
                                                             "9223372036854775807",
                                                             "9223372036854775808"};
        if (any(2) == 0)
            return replaced(leaf.content_begin, leaf.content_end, values[any(values.size())]);
        if (any(2) == 0)
            return replaced(leaf.content_begin, leaf.content_end, content_of(any_leaf()));
        constexpr std::size_t room = 64;
        std::string content(content_of(leaf));
        const std::size_t size = content.size();
        content.resize(size + room);
        content.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(content.data()), size, size + room));
        return replaced(leaf.content_begin, leaf.content_end, content);
    }

    std::string_view document_;
    std::minstd_rand random_;
    std::vector<element> elements_;
};

} // namespace

} // namespace tallyframe::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size,
                                               unsigned seed)
{
    tallyframe::fuzz::document_mutator mutator({reinterpret_cast<const char*>(data), size}, seed);
    if (mutator.has_elements() && mutator.any(3) != 0) {
        const std::string mutated = mutator.mutated();
        if (mutated.size() <= max_size) {
            std::copy(mutated.begin(), mutated.end(), data);
            return mutated.size();
        }
    }
    return LLVMFuzzerMutate(data, size, max_size);
}
