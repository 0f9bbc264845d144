// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallyframe {

/// The path on disk that a `pathurl` names: "file://localhost/Volumes/Media/My%20Clip.mov" gives
/// "/Volumes/Media/My Clip.mov". Dot segments go as RFC 3986 says; a "%" that starts no escape, "#" and "?"
/// belong to the name; a text without a scheme is a relative path. Nothing when it is no URL or its bytes are
/// not UTF-8 once decoded.
std::optional<std::string> path_of_url(std::string_view pathurl);

/// Last component of a path; "/" at its end is ignored.
std::string_view last_path_component(std::string_view path);

} // namespace tallyframe
