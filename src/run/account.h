// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

/// What a run can lose or change without failing.
enum class loss_kind {
    mended_lines, ///< lines of the document from which characters were dropped; examples: their numbers
    dropped_characters, ///< what was dropped there
    reread_characters, ///< letters of a document that is not in UTF-8, read as Windows-1252
    passed_over_errors, ///< errors of the document that the parser went on after; examples: "line N"
    cut_texts, ///< texts that end at a cell's 32,767 characters; examples: "SHEET, row N"
    missing_media, ///< media files that are not there; examples: their paths
    unreadable_media, ///< media files that are there and gave no picture; examples: their paths
    missing_pictures, ///< rows that show a placeholder, as their media is missing; examples: "row N, CLIP"
    unreadable_pictures, ///< rows that show one, as their media cannot be read; examples: "row N, CLIP"
    unmade_pictures, ///< rows without a picture, because there is no place for temporary files
    guessed_media, ///< media files with several of their name, where nothing told which; examples: which
    unused_maps, ///< mappings of folders in which the document has no file; examples: "FROM=TO"
    absent_map_folders, ///< mappings to folders that are not there; examples: "FROM=TO"
    unread_folders, ///< folders below --media-search that could not be read; examples: their paths
    absent_pictures, ///< rows whose picture could not be made or stored, and that show none; examples
                     ///< likewise
    unread_tags, ///< media files whose tags could not be read; examples: their paths
    supplied_facts, ///< what the sequence lacked and was supplied; examples: "its rate: 25"
    nested_sequences, ///< clip items that are sequences without a media file; examples: "NAME on V2"
    clips_without_media, ///< clip items whose media file the document does not tell
    clips_without_length, ///< clip items that last no frame
    overlapped_clips, ///< clips that a later one of their track covers
    further_channels, ///< clip items of tracks that hold another channel of the track before
};
inline constexpr std::size_t loss_kind_count = 22;

/// How much was lost of one kind.
struct loss {
    std::size_t count = 0;
    std::vector<std::string> examples; ///< the first few, in the order in which they were met
};

/// What a run has lost or changed without failing: whoever reads its workbook has to know. Counts everything
/// and keeps the first few names of each kind, so that it stays small whatever the document holds.
class account {
public:
    static constexpr std::size_t most_examples = 5; ///< of each kind

    /// `example`: what to name in the sentence, as it stands in the document; may be empty. A count of 0
    /// names one more of what is counted already.
    void add(loss_kind kind, std::size_t count = 1, std::string_view example = {});

    const loss& of(loss_kind kind) const { return losses_[static_cast<std::size_t>(kind)]; }
    bool is_empty() const;

    account& operator+=(const account& other);

private:
    std::array<loss, loss_kind_count> losses_;
};

/// A sentence for each kind of loss that there is, in the order of loss_kind: "3 lines of the document held
/// bad characters and were mended (14, 15, 90)." Names in it are made visible and shortened.
std::vector<std::string> sentences_of(const account& lost);

} // namespace tallyframe
