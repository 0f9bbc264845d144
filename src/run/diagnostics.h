// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe {

/// Where diagnostics go: standard output in a command-line run.
class diagnostics {
public:
    virtual ~diagnostics() = default;

    /// Writes the bytes as they stand; the caller brings its own line breaks.
    virtual void write(std::string_view text) = 0;
};

/// Drops everything.
class no_diagnostics final : public diagnostics {
public:
    void write(std::string_view) override { }
};

} // namespace tallyframe
