// SPDX-License-Identifier: MIT
#include "document/xml_input.h"

#include "document/character_repair.h"
#include "run/failures.h"
#include "text/utf8.h"
#include "text/visible_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace tallyframe {

namespace {

constexpr std::size_t file_buffer_size = 64UL * 1024;
constexpr std::size_t most_at_once = 1'000'000; ///< bytes, read between two looks at whether to go on

[[noreturn]] void refuse_file(const std::filesystem::path& path, const std::string& reason)
{
    throw load_error("The document " + visible_name(path.string()) + " cannot be read: " + reason + ".");
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

/// How many bytes to expect; a guess when nobody knows.
std::size_t expected_size(const xml_input& input)
{
    if (const auto* text = std::get_if<std::string>(&input))
        return text->size();
    std::error_code unknown;
    const std::uintmax_t size = std::filesystem::file_size(std::get<std::filesystem::path>(input), unknown);
    return unknown ? file_buffer_size : static_cast<std::size_t>(size);
}

bool is_blank_or_byte_order_mark(std::string_view character)
{
    return character == " " || character == "\t" || character == "\r" || character == "\xEF\xBB\xBF";
}

/// Takes the next character, within its line, off the front of `text`, and all of a hole.
std::string_view take_character(std::string_view& text)
{
    std::string_view character = text.substr(0, text.find_first_not_of('\0'));
    if (character.empty()) {
        character = text.substr(0, declared_length(text));
        character = character.substr(0, std::max<std::size_t>(1, character.find('\n')));
    }
    text.remove_prefix(character.size());
    return character;
}

} // namespace

byte_source bytes_of(const xml_input& input, progress& display)
{
    if (const auto* path = std::get_if<std::filesystem::path>(&input)) {
        return [&display, file = std::make_shared<input_file>(*path)](char* buffer, std::size_t size) {
            display.leave_if_cancelled();
            return file->read(buffer, size);
        };
    }
    return [&display, rest = std::string_view(std::get<std::string>(input))](char* buffer,
                                                                             std::size_t size) mutable {
        display.leave_if_cancelled();
        const std::size_t count = rest.copy(buffer, size);
        rest.remove_prefix(count);
        return count;
    };
}

std::string whole_text(const xml_input& input, progress& display)
{
    const byte_source source = bytes_of(input, display);
    std::string text(expected_size(input) + 1, '\0');
    std::size_t length = 0;
    while (const std::size_t count =
               source(text.data() + length, std::min(text.size() - length, most_at_once))) {
        length += count;
        if (length == text.size())
            text.resize(text.size() * 2);
    }
    text.resize(length);
    return text;
}

byte_source lines_joined(std::string_view text, progress& display)
{
    return [&display, rest = text](char* buffer, std::size_t size) mutable {
        display.leave_if_cancelled();
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

std::optional<std::string> beginning_without_tag(const xml_input& input, progress& display)
{
    constexpr std::size_t longest_character = 4;
    const byte_source source = bytes_of(input, display);
    std::string beginning;
    std::string buffer(file_buffer_size, '\0');
    std::size_t kept = 0; // of the bytes read before, at the front of the buffer
    while (true) {
        const std::size_t count = source(buffer.data() + kept, buffer.size() - kept);
        std::string_view rest = std::string_view(buffer).substr(0, kept + count);
        while (rest.size() >= longest_character || (count == 0 && !rest.empty())) {
            const std::string_view character = take_character(rest);
            if (character == "<" || character == "L") // "L" is how EBCDIC writes it
                return std::nullopt;
            if (character == "\n" || !is_clean_character(character))
                continue;
            beginning += character;
            if (!is_blank_or_byte_order_mark(character))
                return beginning;
        }
        if (count == 0)
            return beginning;
        kept = rest.copy(buffer.data(), rest.size());
    }
}

} // namespace tallyframe
