// SPDX-License-Identifier: MIT
#include "run/account.h"

#include "text/visible_text.h"

#include <fmt/format.h>

#include <algorithm>

namespace tallyframe {

namespace {

constexpr std::size_t longest_example = 500; ///< bytes

/// `several` has the count in place of "{}".
struct loss_sentence {
    loss_kind kind;
    std::string_view one;
    const char* several;
};

constexpr std::array<loss_sentence, loss_kind_count> sentences = {{
    {loss_kind::mended_lines, "1 line of the document held bad characters and was mended",
     "{} lines of the document held bad characters and were mended"},
    {loss_kind::dropped_characters, "1 bad character was dropped from the document",
     "{} bad characters were dropped from the document"},
    {loss_kind::reread_characters,
     "1 letter of the document, which is not in UTF-8, was read as Windows-1252",
     "{} letters of the document, which is not in UTF-8, were read as Windows-1252"},
    {loss_kind::passed_over_errors, "1 error of the document was passed over: clips may be missing",
     "{} errors of the document were passed over: clips may be missing"},
    {loss_kind::cut_texts, "1 text was cut at the 32,767 characters that a cell takes",
     "{} texts were cut at the 32,767 characters that a cell takes"},
    {loss_kind::missing_media, "1 media file was not found", "{} media files were not found"},
    {loss_kind::unreadable_media, "1 media file could not be read", "{} media files could not be read"},
    {loss_kind::missing_pictures, "1 row shows a placeholder, because its media was not found",
     "{} rows show a placeholder, because their media was not found"},
    {loss_kind::unreadable_pictures, "1 row shows a placeholder, because its media could not be read",
     "{} rows show a placeholder, because their media could not be read"},
    {loss_kind::unmade_pictures,
     "1 row has no picture, because the folder for temporary files takes none: set TMPDIR to another folder",
     "{} rows have no picture, because the folder for temporary files takes none: set TMPDIR to another "
     "folder"},
    {loss_kind::guessed_media,
     "1 media file was found more than once, nothing told which is meant, and the first was taken",
     "{} media files were found more than once, nothing told which are meant, and the first were taken"},
    {loss_kind::unused_maps, "1 mapping of media folders fits no file of the document",
     "{} mappings of media folders fit no file of the document"},
    {loss_kind::absent_map_folders, "1 mapping of media folders leads to a folder that is not there",
     "{} mappings of media folders lead to folders that are not there"},
    {loss_kind::unread_folders, "1 folder could not be searched for media",
     "{} folders could not be searched for media"},
    {loss_kind::absent_pictures, "1 row is without its picture, which could not be made",
     "{} rows are without their pictures, which could not be made"},
    {loss_kind::unread_tags, "The tags of 1 media file could not be read",
     "The tags of {} media files could not be read"},
    {loss_kind::supplied_facts, "1 fact that the sequence lacks was supplied",
     "{} facts that the sequence lacks were supplied"},
    {loss_kind::nested_sequences, "1 nested sequence without a media file is not listed",
     "{} nested sequences without a media file are not listed"},
    {loss_kind::clips_without_media, "1 clip without a media file is not listed",
     "{} clips without a media file are not listed"},
    {loss_kind::clips_without_length, "1 clip of no length is not listed",
     "{} clips of no length are not listed"},
    {loss_kind::overlapped_clips, "1 clip is not listed, because a later one of its track covers it",
     "{} clips are not listed, because later ones of their tracks cover them"},
    {loss_kind::further_channels, "1 audio clip is a further channel of another, and not listed",
     "{} audio clips are further channels of others, and not listed"},
}};

std::string sentence_of(const loss_sentence& texts, const loss& lost)
{
    std::string sentence =
        lost.count == 1 ? std::string(texts.one) : fmt::format(fmt::runtime(texts.several), lost.count);
    if (!lost.examples.empty()) {
        std::vector<std::string> shown;
        for (const std::string& example : lost.examples)
            shown.push_back(visible_text(example));
        const bool has_more = lost.examples.size() < lost.count;
        sentence += fmt::format(" ({}{})", fmt::join(shown, ", "), has_more ? ", …" : "");
    }
    return sentence + ".";
}

} // namespace

void account::add(loss_kind kind, std::size_t count, std::string_view example)
{
    loss& lost = losses_[static_cast<std::size_t>(kind)];
    lost.count += count;
    if (!example.empty() && lost.examples.size() < most_examples)
        lost.examples.emplace_back(example.substr(0, longest_example));
}

bool account::is_empty() const
{
    return std::all_of(losses_.begin(), losses_.end(), [](const loss& lost) { return lost.count == 0; });
}

account& account::operator+=(const account& other)
{
    for (std::size_t i = 0; i < loss_kind_count; ++i) {
        losses_[i].count += other.losses_[i].count;
        for (const std::string& example : other.losses_[i].examples) {
            if (losses_[i].examples.size() < most_examples)
                losses_[i].examples.push_back(example);
        }
    }
    return *this;
}

std::vector<std::string> sentences_of(const account& lost)
{
    std::vector<std::string> texts;
    for (const loss_sentence& sentence : sentences) {
        if (lost.of(sentence.kind).count != 0)
            texts.push_back(sentence_of(sentence, lost.of(sentence.kind)));
    }
    return texts;
}

} // namespace tallyframe
