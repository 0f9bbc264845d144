// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tallyframe {

/// Plain ASCII form of a text: letters lose their accents ("Zoë" gives "Zoe"), what has no ASCII base is
/// dropped. Reel names travel through systems that know nothing else.
std::string to_ascii(std::string_view text);

} // namespace tallyframe
