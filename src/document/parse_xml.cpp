// SPDX-License-Identifier: MIT
#include "document/parse_xml.h"

#include "document/character_repair.h"
#include "document/text_values.h"
#include "document/tolerant_parser.h"
#include "platform/failures.h"
#include "platform/gui_mode.h"

#include <libxml/parser.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>
#include <system_error>

namespace tallyframe {

namespace {

constexpr std::size_t file_buffer_size = 64UL * 1024;

[[noreturn]] void refuse_file(const std::filesystem::path& path, const std::string& reason)
{
    throw load_error("The document \"" + path.string() + "\" cannot be read: " + reason + ".");
}

/// A file that is read from its begin to its end.
class input_file {
public:
    explicit input_file(const std::filesystem::path& path) : path_(path)
    {
        std::error_code error;
        const auto status = std::filesystem::status(path, error);
        if (error)
            refuse_file(path, error.message());
        if (is_directory(status))
            refuse_file(path, "it is a folder");
        if (exists(status) && !is_regular_file(status)) // a pipe cannot be read a second time, for the repair
            refuse_file(path, "it is not a file");
        file_.reset(std::fopen(path.c_str(), "rb"));
        if (file_ == nullptr)
            refuse_file(path, std::generic_category().message(errno));
        buffer_.resize(file_buffer_size);
        (void)std::setvbuf(file_.get(), buffer_.data(), _IOFBF, buffer_.size());
    }

    std::size_t read(char* buffer, std::size_t size)
    {
        const std::size_t count = std::fread(buffer, 1, size, file_.get());
        if (count == 0 && std::ferror(file_.get()) != 0)
            refuse_file(path_, std::generic_category().message(errno));
        return count;
    }

private:
    struct close_file {
        void operator()(std::FILE* file) const { (void)std::fclose(file); }
    };
    std::filesystem::path path_;
    std::string buffer_;
    std::unique_ptr<std::FILE, close_file> file_;
};

byte_source bytes_of(const xml_input& input)
{
    if (const auto* path = std::get_if<std::filesystem::path>(&input)) {
        return [file = std::make_shared<input_file>(*path)](char* buffer, std::size_t size) {
            return file->read(buffer, size);
        };
    }
    return [rest = std::string_view(std::get<std::string>(input))](char* buffer, std::size_t size) mutable {
        const std::size_t count = rest.copy(buffer, size);
        rest.remove_prefix(count);
        return count;
    };
}

std::string whole_text(const xml_input& input)
{
    if (const auto* text = std::get_if<std::string>(&input))
        return *text;
    const auto& path = std::get<std::filesystem::path>(input);
    input_file file(path);
    std::error_code unknown_size;
    const std::uintmax_t expected_size = std::filesystem::file_size(path, unknown_size);
    std::string text(unknown_size ? file_buffer_size : static_cast<std::size_t>(expected_size) + 1, '\0');
    std::size_t length = 0;
    while (const std::size_t count = file.read(text.data() + length, text.size() - length)) {
        length += count;
        if (length == text.size())
            text.resize(text.size() * 2);
    }
    text.resize(length);
    return text;
}

/// The lines of a text joined with nothing between them.
byte_source lines_joined(std::string_view text)
{
    return [rest = text](char* buffer, std::size_t size) mutable {
        std::size_t filled = 0;
        while (filled < size && !rest.empty()) {
            const std::string_view piece = rest.substr(0, size - filled);
            const std::size_t line_end = std::min(piece.find('\n'), piece.size());
            filled += piece.copy(buffer + filled, line_end);
            rest.remove_prefix(std::min(line_end + (line_end < piece.size() ? 1 : 0), rest.size()));
        }
        return filled;
    };
}

/// Parses the text once more with all lines clean, prints what is still wrong with it, and fails if that is
/// fatal.
xml_document parse_for_the_last_time(std::string& text, diagnostics& out)
{
    clean_all_lines(text);
    bool is_fatal = false;
    parser_limit passed = parser_limit::none;
    xml_document document =
        parse_tolerantly(lines_joined(text), blank_texts::kept, [&](const xml_error& error) {
            out.write(error.printable + "\n");
            is_fatal = is_fatal || error.is_fatal;
            if (passed == parser_limit::none)
                passed = error.limit;
        });
    if (passed == parser_limit::depth)
        throw load_error("The document nests elements more than 256 deep. Please export a simpler sequence.");
    if (passed == parser_limit::text_length)
        throw load_error("The document holds a text of more than 10 million characters. Please shorten it, "
                         "then export the document again.");
    if (is_fatal && document.root())
        throw load_error(fatal_error_message);
    return document;
}

xml_document parse_repaired(const xml_input& input, const damaged_lines& damaged, diagnostics& out)
{
    std::string text = whole_text(input);
    clean_lines(text, damaged);
    bool has_errors = false;
    xml_document document =
        parse_tolerantly(lines_joined(text), blank_texts::kept, [&](const xml_error&) { has_errors = true; });
    if (!has_errors)
        return document;
    document = xml_document(); // its memory first, then that of the next one
    return parse_for_the_last_time(text, out);
}

} // namespace

parsed_xml parse_xml(const xml_input& input, diagnostics& out, progress& display)
{
    damaged_lines damaged;
    xml_document document = parse_tolerantly(bytes_of(input), blank_texts::dropped,
                                             [&](const xml_error& error) { damaged.add(error.line); });
    if (!damaged.empty()) {
        if (gui_mode != false)
            display.show_message("Fixing bad characters in the XML file...\n");
        document = xml_document();
        document = parse_repaired(input, damaged, out);
    }
    if (!document.root())
        throw load_error(not_xmeml_message);
    if (!document.entities_stay_within(expanded_text_limit))
        throw load_error(
            "The document defines entities that stand for more than 10 million characters. Please "
            "export it again.");

    document_index index(document);
    std::string first_node_name = document.first_node_name();
    const bool no_updatebehavior = !index.has_updatebehavior;
    return {std::move(document), std::move(first_node_name), no_updatebehavior, std::move(index)};
}

std::string xml_library_version()
{
    const std::int64_t number = leading_integer(xmlParserVersion);
    return "libxml2 " + std::to_string(number / 10'000) + "." + std::to_string(number / 100 % 100) + "."
        + std::to_string(number % 100) + " (built with " LIBXML_DOTTED_VERSION ")";
}

} // namespace tallyframe
