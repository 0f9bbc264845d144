// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe {

/// Messages that the user has to see.
class alerts {
public:
    virtual ~alerts() = default;

    /// An alert of informational style on the main window. Closes the progress display first.
    virtual void show(std::string_view message_text, std::string_view informative_text) = 0;

    /// A text for the system's log, for whoever supports the user later.
    virtual void write_system_log(std::string_view text) = 0;
};

/// A host without alerts: failures reach the caller.
class no_alerts final : public alerts {
public:
    void show(std::string_view, std::string_view) override { }
    void write_system_log(std::string_view) override { }
};

} // namespace tallyframe
