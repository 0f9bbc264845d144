// SPDX-License-Identifier: MIT
#pragma once

namespace tallyframe {

/// The menu of what a document offers to report. Its items stand in the session.
class sequence_menu {
public:
    virtual ~sequence_menu() = default;

    /// Enables or disables `sequencesPopupMenu` and `analyzeButton` together.
    virtual void set_enabled(bool enabled) = 0;

    /// Starts the analysis of the only entry, as if the user had asked for it.
    virtual void analyze_sequence() = 0;
};

/// A host without a menu: it asks the session what there is.
class no_sequence_menu final : public sequence_menu {
public:
    void set_enabled(bool) override { }
    void analyze_sequence() override { }
};

} // namespace tallyframe
