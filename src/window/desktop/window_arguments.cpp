// SPDX-License-Identifier: MIT
#include "window/desktop/window_arguments.h"

#include "platform/application.h"
#include "text/visible_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace tallyframe::window {

namespace {

constexpr const char* help = R"(tallyframe-window [DOCUMENT]

Opens the window, and in it the exported timeline DOCUMENT.

  -h, --help  Print this help and leave
  --version   Print the version and leave

Without a window: tallyframe --help
)";

/// Options that Qt takes for itself, without their one or two dashes.
constexpr std::string_view qt_options_with_value[] = {
    "platform",    "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry", "geometry", "display",
    "qwindowicon", "qwindowtitle",       "session",       "style",  "stylesheet",      "icon",     "title",
    "fontengine",  "qmljsdebugger"};
constexpr std::string_view qt_options[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

template <class Names>
bool is_one_of(const Names& names, std::string_view argument)
{
    argument.remove_prefix(std::min(argument.find_first_not_of('-'), argument.size()));
    return std::ranges::find(names, argument) != std::end(names);
}

bool is_of_qt(std::string_view argument)
{
    const std::string_view name = argument.substr(0, argument.find('='));
    return is_one_of(qt_options, argument) || (name != argument && is_one_of(qt_options_with_value, name))
        || argument.starts_with("-psn_"); // how old systems of Apple number a program
}

window_request complain(const std::string& sentence)
{
    return {.document = {}, .answer = {}, .complaint = fmt::format("tallyframe-window: {}\n", sentence)};
}

} // namespace

window_request read_window_arguments(const std::vector<std::string>& arguments)
{
    window_request request;
    bool may_be_option = true;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool is_option = may_be_option && argument.size() > 1 && argument.front() == '-';
        if (is_option && argument == "--") {
            may_be_option = false;
        } else if (is_option && is_one_of(qt_options_with_value, argument)) {
            ++i;
        } else if (is_option && (argument == "--help" || argument == "-h")) {
            return {.document = {}, .answer = help, .complaint = {}};
        } else if (is_option && argument == "--version") {
            return {.document = {},
                    .answer = fmt::format("tallyframe-window {}\n", application::version),
                    .complaint = {}};
        } else if (is_option && !is_of_qt(argument)) {
            return complain(fmt::format("There is no option \"{}\". `tallyframe-window --help` shows all.",
                                        visible_text(argument)));
        } else if (!is_option && !request.document.empty()) {
            return complain("One document can be opened at a time. Give one name only.");
        } else if (!is_option) {
            request.document = argument;
        }
    }
    return request;
}

} // namespace tallyframe::window
