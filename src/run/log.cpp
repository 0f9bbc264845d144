// SPDX-License-Identifier: MIT
#include "run/log.h"

#include "run/gui_mode.h"

#include <array>
#include <utility>

namespace tallyframe {

namespace {

constexpr std::array<std::pair<char, std::string_view>, 10> named_escapes = {{
    {'"', "\\\""},
    {'\\', "\\\\"},
    {'\n', "\\n"},
    {'\r', "\\r"},
    {'\t', "\\t"},
    {'\f', "\\f"},
    {'\v', "\\v"},
    {'\b', "\\b"},
    {'\a', "\\a"},
    {'\x1b', "\\e"},
}};

void append_escaped(std::string& out, char character)
{
    for (const auto& [plain, escape] : named_escapes) {
        if (character == plain) {
            out += escape;
            return;
        }
    }
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= 0x20 && byte != 0x7f) {
        out += character;
        return;
    }
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += "\\x";
    out += digits[byte >> 4U];
    out += digits[byte & 0xfU];
}

} // namespace

std::string debug_representation(std::string_view text)
{
    std::string out = "\"";
    for (const char character : text)
        append_escaped(out, character);
    out += '"';
    return out;
}

void log(diagnostics& out, std::string_view text)
{
    log_literal(out, debug_representation(text));
}

void log_literal(diagnostics& out, std::string_view literal)
{
    if (gui_mode == true)
        return;
    out.write(literal);
    out.write("\n");
}

} // namespace tallyframe
