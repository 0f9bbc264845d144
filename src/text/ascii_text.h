// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tallyframe {

/// Plain ASCII form of a text: ASCII stays as it is, letters lose their accents or are written in Latin ones
/// ("Zoë" gives "Zoe", "Straße" gives "Strasse", "Łódź" gives "Lodz", "東京" gives "dong jing"), other signs
/// are dropped. A text of which nothing is left so is given by its code points ("U+1F3AC"): it stays apart
/// from others. Reel names travel through systems that know nothing else. Of a text of more than 255 UTF-16
/// units letters only lose their accents.
std::string to_ascii(std::string_view text);

} // namespace tallyframe
