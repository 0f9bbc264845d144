// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>
#include <string_view>

namespace tallyframe::window {

/// Texts of the logic are UTF-8.
inline QString qt_text(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
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
