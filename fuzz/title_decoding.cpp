// SPDX-License-Identifier: MIT
// Any bytes as the value of a title's "Source Text": as they are, as what Base64 stands for, and as the JSON
// document in UTF-16 behind its header.
#include "analysis/title_text.h"
#include "fuzz/promise.h"
#include "workbook/records/unicode.h"

#include <glib.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

namespace tallyframe::fuzz {

namespace {

std::string base64_of(std::string_view bytes)
{
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()), &g_free);
    return text.get();
}

std::string with_header_in_utf16(std::string_view document)
{
    const std::uint64_t length = document.size() * 2;
    std::string bytes;
    for (unsigned shift = 0; shift < 64; shift += 8)
        bytes += static_cast<char>(length >> shift & 0xFF);
    for (const char character : document) {
        bytes += character;
        bytes += '\0';
    }
    return bytes;
}

bool is_utf8(const std::string& text)
{
    return xls::valid_utf8(text, text.size()).utf8 == text;
}

void read(std::string_view base64)
{
    title_text title;
    read_source_text(base64, title);
    for (const std::string& line : title.texts) {
        promise(!line.empty() && line.find('\r') == std::string::npos, "a line of a title is one line");
        promise(is_utf8(line), "a line of a title is UTF-8");
    }
    promise(is_utf8(title.font), "a font's name is UTF-8");

    title_text known = {.font = "Menlo-Regular", .texts = {}};
    const title_text before = known;
    read_source_text(base64, known);
    promise(known == before, "nothing is read once the font is known");
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tallyframe::fuzz;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    read(input);
    read(base64_of(input));
    read(base64_of(with_header_in_utf16(input)));
    return 0;
}
