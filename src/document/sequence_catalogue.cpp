// SPDX-License-Identifier: MIT
#include "document/sequence_catalogue.h"

#include "run/failures.h"
#include "text/visible_text.h"

#include <utility>

namespace tallyframe {

namespace {

// A sequence has its name once, however many identifiers it carries: each of them gives an entry with that
// name.
constexpr std::size_t titles_limit = 100'000'000; ///< bytes

/// A menu that grows, within bounds.
class growing_menu {
public:
    void add(std::string title, std::string uuid, std::optional<std::size_t> unidentified = {})
    {
        titles_size_ += title.size();
        if (titles_size_ > titles_limit)
            throw load_error(
                "The names of the sequences come to more than 100 MB. Shorten the longest ones, then "
                "export the document again.");
        entries_.push_back({std::move(title), std::move(uuid), unidentified});
    }

    /// Sets the entries so far apart from those that follow.
    void separate()
    {
        if (!entries_.empty())
            entries_.push_back({"", std::string(separator_uuid)});
    }

    std::vector<catalogue_entry> take() { return std::move(entries_); }

private:
    std::vector<catalogue_entry> entries_;
    std::size_t titles_size_ = 0;
};

} // namespace

std::vector<catalogue_entry> sequence_catalogue(const document_index& index,
                                                unidentified_sequences without_uuid)
{
    growing_menu menu;
    if (index.has_bin_clips)
        menu.add("Bin Clips", "");
    if (!index.sequence_uuids.empty())
        menu.separate();
    for (const xml_node uuid : index.sequence_uuids) {
        auto title = uuid.parent().text_of("name");
        if (!title)
            throw load_error("The sequence " + in_quotes(uuid.text()) + " has no name.",
                             load_fault::unexpected);
        menu.add(std::move(*title), uuid.text());
    }
    if (without_uuid == unidentified_sequences::listed && !index.unidentified_sequences.empty()) {
        menu.separate();
        for (std::size_t i = 0; i < index.unidentified_sequences.size(); ++i) {
            auto title = index.unidentified_sequences[i].text_of("name");
            menu.add(title ? std::move(*title) : "Sequence " + std::to_string(i + 1), "", i);
        }
    }
    return menu.take();
}

} // namespace tallyframe
