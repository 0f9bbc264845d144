// SPDX-License-Identifier: MIT
#include "document/other_format.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <iterator>

namespace tallyframe {

namespace {

constexpr std::string_view advice =
    "Tallyframe reads the XML that Premiere Pro writes with File > Export > Final Cut Pro "
    "XML, and Final Cut Pro 7 with File > Export > XML.";

struct known_format {
    std::string_view mark;
    std::string_view name;
};

constexpr known_format formats_by_root[] = {
    {"fcpxml", "an FCPXML document (Final Cut Pro X)"},
    {"PremiereData", "a Premiere Pro project, unpacked"},
    {"project", "a project file"},
};

constexpr known_format formats_by_beginning[] = {
    {"\x1F\x8B", "a compressed file, such as a Premiere Pro project"},
    {"PK\x03\x04", "a ZIP archive"},
    {"\xD0\xCF\x11\xE0", "an AAF file or an Excel workbook"},
    {"TITLE:", "an edit decision list (EDL)"},
    {"Heading", "an Avid Log Exchange list (ALE)"},
};

/// The name of the first element; empty where there is none.
std::string_view root_name(std::string_view text)
{
    constexpr std::string_view comment = "<!--";
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        text.remove_prefix(at);
        at = text.starts_with(comment) ? std::min(text.find("-->"), text.size() - 1) : 0;
        std::size_t length = 0;
        while (length + 1 < text.size() && std::isalnum(static_cast<unsigned char>(text[length + 1])) != 0)
            ++length;
        if (length != 0) // not a declaration, a comment or a document type
            return text.substr(1, length);
    }
    return {};
}

std::string_view name_of(std::string_view beginning)
{
    for (const known_format& format : formats_by_beginning) {
        if (beginning.starts_with(format.mark))
            return format.name;
    }
    if (beginning.find("\"OTIO_SCHEMA\"") != std::string_view::npos)
        return "an OpenTimelineIO document";
    const std::string_view root = root_name(beginning);
    for (const known_format& format : formats_by_root) {
        if (root == format.mark)
            return format.name;
    }
    return {};
}

} // namespace

std::optional<std::string> other_format(std::string_view beginning)
{
    const std::string_view name = name_of(beginning);
    if (name.empty())
        return std::nullopt;
    return "This is " + std::string(name) + ". " + std::string(advice);
}

std::optional<std::string> other_format_of(const std::filesystem::path& path)
{
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(path, unknown))
        return std::nullopt;
    std::array<char, 4096> beginning{};
    std::ifstream file(path, std::ios::binary);
    file.read(beginning.data(), beginning.size());
    return other_format({beginning.data(), static_cast<std::size_t>(file.gcount())});
}

} // namespace tallyframe
