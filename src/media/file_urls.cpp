// SPDX-License-Identifier: MIT
#include "media/file_urls.h"

#include "text/trimmed.h"
#include "text/utf8.h"

#include <uriparser/Uri.h>

#include <algorithm>
#include <new>
#include <string>
#include <utility>

namespace tallyframe {

namespace {

// Far above any path that a file system holds; what is longer names no file.
constexpr std::size_t longest_url = 1 << 20;

constexpr std::string_view digits = "0123456789";
constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

bool is_letter(char c)
{
    return letters.find(c) != std::string_view::npos;
}

bool is_letter_or_digit(char c)
{
    return is_letter(c) || digits.find(c) != std::string_view::npos;
}

/// "file:" of "file:///a"; empty for a text without a scheme.
std::string_view scheme_of(std::string_view url)
{
    const std::size_t colon = url.find(':');
    if (colon == std::string_view::npos || colon == 0 || !is_letter(url.front()))
        return {};
    const auto belongs_to_scheme = [](char c) {
        return is_letter_or_digit(c) || c == '+' || c == '-' || c == '.';
    };
    const std::string_view name = url.substr(0, colon);
    return std::ranges::all_of(name, belongs_to_scheme) ? url.substr(0, colon + 1) : std::string_view{};
}

std::string percent_decoded(std::string_view text)
{
    std::string decoded(text);
    const char* end = uriUnescapeInPlaceExA(decoded.data(), URI_FALSE, URI_BR_DONT_TOUCH);
    decoded.resize(static_cast<std::size_t>(end - decoded.data()));
    return decoded;
}

/// Escapes all that could be taken for something else than a part of the path.
std::string percent_encoded(std::string_view text, std::string_view kept)
{
    constexpr std::string_view hexadecimal = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(text.size() + text.size() / 2);
    for (const char c : text) {
        if (is_letter_or_digit(c) || kept.find(c) != std::string_view::npos) {
            encoded += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            encoded += '%';
            encoded += hexadecimal[byte >> 4];
            encoded += hexadecimal[byte & 15];
        }
    }
    return encoded;
}

/// False for what is no URL. Throws std::bad_alloc.
bool succeeded(int result)
{
    if (result == URI_ERROR_MALLOC)
        throw std::bad_alloc();
    return result == URI_SUCCESS;
}

class parsed_uri {
public:
    explicit parsed_uri(std::string text)
        : text_(std::move(text)),
          valid_(succeeded(uriParseSingleUriExA(&uri_, text_.data(), text_.data() + text_.size(), nullptr)))
    {
    }
    parsed_uri(const parsed_uri&) = delete;
    parsed_uri& operator=(const parsed_uri&) = delete;
    ~parsed_uri()
    {
        if (valid_)
            uriFreeUriMembersA(&uri_);
    }

    /// Removes "." and ".." segments.
    bool normalize() { return valid_ && succeeded(uriNormalizeSyntaxExA(&uri_, URI_NORMALIZE_PATH)); }

    std::string path() const
    {
        std::string path;
        bool after_slash = uri_.absolutePath == URI_TRUE || uri_.hostText.first != nullptr;
        for (const UriPathSegmentA* segment = uri_.pathHead; segment != nullptr; segment = segment->next) {
            if (after_slash)
                path += '/';
            path.append(segment->text.first, segment->text.afterLast);
            after_slash = true;
        }
        return percent_decoded(path);
    }

private:
    std::string text_; // uri_ points into it
    UriUriA uri_{};
    bool valid_;
};

} // namespace

std::optional<std::string> path_of_url(std::string_view pathurl)
{
    std::string url(trimmed(pathurl));
    if (url.size() > longest_url)
        return std::nullopt;
    constexpr std::string_view volumes_without_host = "///Volumes/";
    if (const std::size_t found = url.find(volumes_without_host); found != std::string::npos)
        url.erase(found, 2);

    // Decoded and encoded anew: exporters differ in what they escape, and "#" or "?" in a name start nothing.
    std::string scheme(scheme_of(url));
    const std::string name = percent_decoded(std::string_view(url).substr(scheme.size()));
    if (!is_utf8(name) || name.find('\0') != std::string::npos)
        return std::nullopt;
    const std::string_view kept = scheme.empty() ? "-._~/" : "-._~/:@";
    if (scheme.empty() && name.starts_with("//"))
        scheme = "file:"; // "//host/../a" begins at a root, which the library sees by the scheme only

    parsed_uri uri(scheme + percent_encoded(name, kept));
    if (!uri.normalize())
        return std::nullopt;
    return uri.path();
}

std::string_view last_path_component(std::string_view path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return path.substr(path.rfind('/') + 1);
}

} // namespace tallyframe
