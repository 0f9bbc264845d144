// SPDX-License-Identifier: MIT
#include "analysis/title_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

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

constexpr char padding = '=';

/// What a character of Base64 stands for; nothing for one outside its alphabet.
std::optional<std::uint32_t> sextet_of(char character)
{
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    if (character == padding)
        return 0;
    const std::size_t value = alphabet.find(character);
    return value != std::string_view::npos ? std::optional(static_cast<std::uint32_t>(value)) : std::nullopt;
}

/// The bytes of four characters: padding in the third or fourth place takes a byte away.
void append_bytes(std::string& bytes, std::uint32_t sextets, const std::array<char, 4>& characters)
{
    bytes += static_cast<char>(sextets >> 16 & 0xFF);
    if (characters[2] != padding)
        bytes += static_cast<char>(sextets >> 8 & 0xFF);
    if (characters[3] != padding)
        bytes += static_cast<char>(sextets & 0xFF);
}

/// Characters outside the Base64 alphabet are skipped; missing padding does not matter.
std::string base64_decoded(std::string_view base64)
{
    std::string bytes;
    bytes.reserve(base64.size() / 4 * 3 + 3);
    std::uint32_t sextets = 0;
    std::array<char, 4> characters{};
    std::size_t count = 0;
    const auto take = [&](char character) {
        const std::optional<std::uint32_t> sextet = sextet_of(character);
        if (!sextet)
            return;
        sextets = sextets << 6 | *sextet;
        characters[count++] = character;
        if (count == characters.size()) {
            append_bytes(bytes, sextets, characters);
            count = 0;
        }
    };
    for (const char character : base64)
        take(character);
    while (count != 0)
        take(padding);
    return bytes;
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

/// What stands behind a header that tells its length; nothing where the first bytes are none.
std::optional<std::string_view> behind_header(std::string_view bytes)
{
    constexpr std::size_t header_size = 8;
    if (bytes.size() < header_size)
        return std::nullopt;
    std::uint64_t length = 0;
    for (std::size_t i = header_size; i > 0; --i)
        length = length << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return length == bytes.size() - header_size ? std::optional(bytes.substr(header_size)) : std::nullopt;
}

/// The bytes from the first "{" on, of those behind a header: one of its bytes may be a "{".
std::string_view without_header(std::string_view bytes)
{
    bytes = behind_header(bytes).value_or(bytes);
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

/// Listens to the parser for the title's text and font, whatever else the document says. Of an element that
/// comes twice the last one counts.
///
/// A tree of the document would not do: its destructor needs memory, and ends the program when there is none.
class title_listener final : public nlohmann::json_sax<json> {
public:
    const std::optional<std::string>& text() const { return text_; }
    const std::string& font() const { return font_; }

    /// Whether the document is one of a title at all.
    bool is_title() const { return is_title_; }

    bool null() override { return meet(nullptr); }
    bool boolean(bool) override { return meet(nullptr); }
    bool number_integer(number_integer_t) override { return meet(nullptr); }
    bool number_unsigned(number_unsigned_t) override { return meet(nullptr); }
    bool number_float(number_float_t, const string_t&) override { return meet(nullptr); }
    bool string(string_t& value) override { return meet(&value); }
    bool binary(binary_t&) override { return meet(nullptr); }
    bool start_object(std::size_t) override { return enter(false); }
    bool start_array(std::size_t) override { return enter(true); }
    bool end_object() override { return leave(); }
    bool end_array() override { return leave(); }
    bool parse_error(std::size_t, const std::string&, const json::exception&) override { return false; }
    bool key(string_t& name) override
    {
        if (depth_ <= levels_.size())
            levels_[depth_ - 1].key = name;
        return true;
    }

private:
    /// An object or array around the value that is met.
    struct level {
        bool is_array = false;
        std::string key; ///< of the value that is met, or around it
        std::size_t values = 0; ///< how many were met
    };

    static constexpr std::array<std::string_view, 3> text_path = {"mTextParam", "mStyleSheet", "mText"};
    static constexpr std::array<std::string_view, 4> fonts_path = {"mTextParam", "mStyleSheet", "mFontName",
                                                                   "mParamValues"};

    bool leads_to(std::span<const std::string_view> path) const
    {
        const std::size_t count = std::min(depth_, path.size());
        return std::equal(
            path.begin(), path.begin() + static_cast<std::ptrdiff_t>(count), levels_.begin(),
            [](std::string_view key, const level& around) { return !around.is_array && around.key == key; });
    }

    /// In the first pair of a list such as [[0,"Menlo-Regular"],[1,"Menlo-Regular"]].
    bool is_in_first_pair() const
    {
        constexpr std::size_t list = fonts_path.size();
        return depth_ == levels_.size() && levels_[list].is_array && levels_[list].values == 1
            && levels_[list + 1].is_array && leads_to(fonts_path);
    }

    /// `value`: null for all but a text.
    bool meet(const std::string* value)
    {
        if (depth_ <= text_path.size() && leads_to(text_path))
            text_ = depth_ == text_path.size() && value != nullptr ? std::optional(*value) : std::nullopt;
        if ((depth_ <= fonts_path.size() && leads_to(fonts_path)) || is_in_first_pair())
            font_ = is_in_first_pair() && value != nullptr ? *value : std::string();
        if (depth_ > 0 && depth_ <= levels_.size())
            ++levels_[depth_ - 1].values;
        return true;
    }

    bool enter(bool is_array)
    {
        meet(nullptr);
        is_title_ = is_title_ || (depth_ == 1 && leads_to(text_path));
        if (++depth_ <= levels_.size())
            levels_[depth_ - 1] = {is_array, {}, 0};
        return true;
    }

    bool leave()
    {
        --depth_;
        return true;
    }

    std::array<level, fonts_path.size() + 2> levels_; ///< the outermost ones; nothing deeper is wanted
    std::size_t depth_ = 0;
    std::optional<std::string> text_;
    std::string font_;
    bool is_title_ = false;
};

/// What the document says of the title, if it can be parsed.
template <class Text>
std::optional<title_listener> heard_from(const Text& document)
{
    title_listener title;
    if (!json::sax_parse(document.begin(), document.end(), &title))
        return std::nullopt;
    return title;
}

/// The same, and once more with a closing brace when that fails: some exports lose the last one.
std::optional<title_listener> title_of(std::u16string document)
{
    while (!document.empty() && document.back() == 0)
        document.pop_back();
    std::optional<title_listener> title = heard_from(document);
    return title ? title : heard_from(document + u'}');
}

/// The title of a document behind a right header, in UTF-16LE or UTF-8; nothing where there is none.
std::optional<title_listener> title_behind_header(std::string_view bytes)
{
    const std::optional<std::string_view> document = behind_header(bytes);
    if (!document || document->find('{') == std::string_view::npos)
        return std::nullopt;
    std::optional<title_listener> title = title_of(from_utf16le(*document));
    if (!title || !title->is_title())
        title = heard_from(*document);
    return title && title->is_title() ? title : std::nullopt;
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
    // Before the plain name of a font is looked for: four bytes of Japanese or Chinese can look like one.
    std::optional<title_listener> heard = title_behind_header(bytes);
    if (!heard) {
        title.font = first_plain_text(bytes);
        if (!title.font.empty())
            return;
        heard = title_of(from_utf16le(without_header(bytes)));
    }
    if (!heard)
        return;
    title.font = heard->font();
    if (heard->text())
        add_lines(*heard->text(), title.texts);
}

} // namespace tallyframe
