// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe {

/// By which rules a report's figures are made. `comparable`: those of older lists, oddities included, for
/// people who hold new lists against old ones. `exact`: right in themselves. The README lists where the two
/// differ.
enum class figure_style { comparable, exact };

} // namespace tallyframe
