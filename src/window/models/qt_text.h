// SPDX-License-Identifier: MIT
#pragma once

#include "text/shortened.h"

#include <QString>
#include <QTextDocument>
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

/// A text of the document or a file's name for a tool tip, which would take for markup what looks like it.
inline QString tool_tip_text(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

/// A file's name for the title of a window, where "[*]" would stand for a mark of changes.
inline QString title_text(QString name)
{
    return name.replace("[*]", "[*][*]");
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
