// SPDX-License-Identifier: MIT
#pragma once

#include "document/text_values.h"

#include <QString>
#include <filesystem>
#include <string_view>

namespace tallyframe::window {

/// Texts of the logic are UTF-8.
inline QString qt_text(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text of the document for a label, a menu or a cell: all that anyone can see of it. Qt would lay out
/// names of megabytes for seconds.
inline QString shown_text(std::string_view text)
{
    constexpr std::size_t longest = 1000;
    return qt_text(shortened(text, longest));
}

inline QString qt_path(const std::filesystem::path& path)
{
    return QString::fromStdU16String(path.u16string());
}

inline std::filesystem::path file_path(const QString& path)
{
    return {path.toStdU16String()};
}

} // namespace tallyframe::window
