// SPDX-License-Identifier: MIT
#include "cli/help_text.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string_view>

namespace tallyframe::cli {

namespace {

constexpr std::size_t line_width = 80; ///< of a terminal that nobody has made larger
constexpr std::size_t flags_width = 28;

/// `text` with line breaks for blanks, so that no line is longer than `width` where its words allow.
std::string wrapped(std::string_view text, std::size_t width)
{
    std::string lines;
    while (text.size() > width) {
        std::size_t blank = text.rfind(' ', width);
        if (blank == std::string_view::npos)
            blank = text.find(' ');
        if (blank == std::string_view::npos)
            break;
        lines += text.substr(0, blank);
        lines += '\n';
        text.remove_prefix(blank + 1);
    }
    return lines += text;
}

class wrapping_formatter final : public CLI::Formatter {
public:
    wrapping_formatter()
    {
        column_width(flags_width);
        label("REQUIRED", "");
        label("Positionals", "Document");
        label("SUBCOMMAND", "COMMAND");
    }

    std::string make_option_desc(const CLI::Option* option) const override
    {
        return wrapped(option->get_description(), line_width - flags_width);
    }

    std::string make_option_opts(const CLI::Option* option) const override
    {
        const std::string text = option->get_option_text();
        return text.starts_with('[') ? text : CLI::Formatter::make_option_opts(option); // --flag[=VALUE]
    }
};

} // namespace

void set_help_form(CLI::App& app)
{
    app.formatter(std::make_shared<wrapping_formatter>());
}

std::string help_text(const CLI::App& app)
{
    const std::string parent = app.get_parent() == nullptr ? "" : app.get_parent()->get_name();
    std::string text = app.help(parent);
    for (std::size_t at = text.find("\n\n\n"); at != std::string::npos; at = text.find("\n\n\n"))
        text.erase(at, 1);
    return text;
}

} // namespace tallyframe::cli
