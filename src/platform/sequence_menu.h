// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tallyframe {

/// The menu of what a document offers to report, and the controls that depend on it.
class sequence_menu {
public:
    virtual ~sequence_menu() = default;

    virtual void remove_all_items() = 0;
    virtual void add_item(std::string_view title) = 0;
    virtual void add_separator() = 0;

    /// Enables or disables `sequencesPopupMenu` and `analyzeButton` together.
    virtual void set_enabled(bool enabled) = 0;

    /// Shows the track tables anew from their check-box lists.
    virtual void reload_track_tables() = 0;

    /// Starts the analysis of the only entry, as if the user had asked for it.
    virtual void analyze_sequence() = 0;
};

/// A host without a menu: it asks the session what there is.
class no_sequence_menu final : public sequence_menu {
public:
    void remove_all_items() override { }
    void add_item(std::string_view) override { }
    void add_separator() override { }
    void set_enabled(bool) override { }
    void reload_track_tables() override { }
    void analyze_sequence() override { }
};

} // namespace tallyframe
