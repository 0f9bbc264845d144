// SPDX-License-Identifier: MIT
#include "analysis/title_text.h"

#include <glib.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <memory>

// The decoded bytes as Premiere Pro writes them:
//
//   0  8  length of the rest, little-endian
//   8  …  {"mTextParam":{"mStyleSheet":{"mText":"First line\rSecond line","mFontName":{"mParamValues":
//         [[0,"Menlo-Regular"],…]},…},…},…} in UTF-16LE
//
// Other versions write a binary form that holds the font's name as plain text; its text is not read.

namespace tallyframe {

namespace {

using nlohmann::json;

/// Characters outside the Base64 alphabet are skipped; missing padding does not matter.
std::string base64_decoded(std::string_view base64)
{
    const std::string padded = std::string(base64) + "===";
    gsize size = 0;
    const std::unique_ptr<guchar, decltype(&g_free)> bytes(g_base64_decode(padded.c_str(), &size), &g_free);
    return {reinterpret_cast<const char*>(bytes.get()), size};
}

/// The first run of more than three printable ASCII characters, or the empty text. In UTF-16 every letter is
/// a run of its own.
std::string_view first_plain_text(std::string_view bytes)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i <= bytes.size(); ++i) {
        if (i < bytes.size() && bytes[i] >= 0x20 && bytes[i] <= 0x7E)
            continue;
        if (i - begin > 3)
            return bytes.substr(begin, i - begin);
        begin = i + 1;
    }
    return {};
}

/// The bytes from the first "{" on. When the length in front is right the header is left out first: one of
/// its bytes may be a "{".
std::string_view without_header(std::string_view bytes)
{
    constexpr std::size_t header_size = 8;
    if (bytes.size() >= header_size) {
        std::uint64_t length = 0;
        for (std::size_t i = header_size; i > 0; --i)
            length = length << 8 | static_cast<unsigned char>(bytes[i - 1]);
        if (length == bytes.size() - header_size)
            bytes.remove_prefix(header_size);
    }
    const std::size_t brace = bytes.find('{');
    return brace == std::string_view::npos ? bytes : bytes.substr(brace);
}

std::u16string from_utf16le(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i])
                                      | static_cast<unsigned char>(bytes[i + 1]) << 8);
    return text;
}

/// Parses the text, and once more with a closing brace when that fails: some exports lose the last one.
json parsed(std::u16string text)
{
    while (!text.empty() && text.back() == 0)
        text.pop_back();
    json document = json::parse(text.begin(), text.end(), nullptr, false);
    if (document.is_discarded()) {
        text.push_back(u'}');
        document = json::parse(text.begin(), text.end(), nullptr, false);
    }
    return document;
}

/// The value at a path of keys, or null.
const json& value_at(const json& document, std::initializer_list<const char*> path)
{
    static const json none;
    const json* value = &document;
    for (const char* key : path) {
        const auto found = value->find(key); // the end for anything but an object
        if (found == value->end())
            return none;
        value = &*found;
    }
    return *value;
}

/// The font of the first pair of a list such as [[0,"Menlo-Regular"],[1,"Menlo-Regular"]].
std::string font_of(const json& pairs)
{
    if (!pairs.is_array() || pairs.empty() || !pairs.front().is_array() || pairs.front().empty())
        return {};
    const json& font = pairs.front().back();
    return font.is_string() ? font.get<std::string>() : std::string();
}

void add_lines(std::string_view text, std::vector<std::string>& lines)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\r'), text.size());
        if (end > 0)
            lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace

void read_source_text(std::string_view base64, title_text& title)
{
    if (!title.font.empty())
        return;
    const std::string bytes = base64_decoded(base64);
    title.font = first_plain_text(bytes);
    if (!title.font.empty())
        return;

    const json document = parsed(from_utf16le(without_header(bytes)));
    const json& text = value_at(document, {"mTextParam", "mStyleSheet", "mText"});
    title.font = font_of(value_at(document, {"mTextParam", "mStyleSheet", "mFontName", "mParamValues"}));
    if (text.is_string())
        add_lines(text.get_ref<const std::string&>(), title.texts);
}

} // namespace tallyframe
