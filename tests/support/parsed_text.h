// SPDX-License-Identifier: MIT
#pragma once

#include "document/parse_xml.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyframe::testing_support {

/// A document and its index from a text, without any host.
inline parsed_xml parsed_text(std::string text)
{
    no_diagnostics out;
    no_progress display;
    return parse_xml(std::move(text), out, display);
}

/// Keeps what is written.
class kept_diagnostics final : public diagnostics {
public:
    std::string text;

    void write(std::string_view more) override { text += more; }
};

/// Keeps the messages that are shown.
class kept_messages final : public progress {
public:
    std::vector<std::string> messages;

    void begin(std::int64_t) override { }
    void advance(std::string_view message) override { messages.emplace_back(message); }
    void show_message(std::string_view message) override { messages.emplace_back(message); }
    void spin(std::string_view message) override { messages.emplace_back(message); }
    void end() override { }
};

} // namespace tallyframe::testing_support
