// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Interchange documents that spell out only what a test is about:
//
//     xmeml().sequence("Reel 1", {.timebase = 25, .start_frame = 90000})
//         .video_track({clip("Interview").at(0, 50).file({.path = "/Media/a.mov"}), transition("Dissolve")})
//         .audio_track({clip("Song").at(0, 50)})
//         .text()
//
// Whatever has no method of its own is added as markup, with `with`.

namespace tallyframe::testing_support {

/// "<name>text</name>", the text escaped.
std::string element(std::string_view name, std::string_view text);
std::string element(std::string_view name, std::int64_t number);

/// "<name>markup</name>".
std::string around(std::string_view name, std::string_view markup);

/// A media file that is defined in full.
struct media_file {
    std::string path = "/Media/clip.mov"; ///< also its id, unless there is one; none when empty
    std::string id = {};
    std::optional<std::int64_t> duration = 1000; ///< none for a still image
    std::optional<std::int64_t> timebase = 25;
    std::string ntsc = "FALSE";
    std::int64_t timecode_frame = 0;
    std::string displayformat = "NDF";
    std::string reel = {}; ///< none when empty
    std::string media_source = {}; ///< "Slug" and its like, instead of a path
    std::string with = {};

    std::string text() const;
};

/// A clip item of 50 frames at the start of its track, with the media file of the defaults.
class clip {
public:
    explicit clip(std::string_view name) : name_(name) { }

    clip& at(std::int64_t start, std::int64_t end); ///< also sets in 0, out to the length
    clip& in_out(std::int64_t in, std::int64_t out);
    clip& duration(std::int64_t frames); ///< the item's own; otherwise 1000, that of its file
    clip& file(const media_file& file);
    clip& without_file();
    clip& same_file(std::string_view id); ///< only repeats the id
    clip& enabled(std::string_view text);
    clip& speed(std::string_view percent); ///< by a time remap
    clip& reversed(std::string_view text = "TRUE");
    clip& marker(std::string_view name, std::int64_t in, std::int64_t out = -1);
    clip& with(std::string_view markup);

    std::string text() const;

private:
    std::string name_;
    std::int64_t start_ = 0, end_ = 50, in_ = 0, out_ = 50, duration_ = 1000;
    std::string file_ = media_file().text();
    std::string enabled_;
    std::string time_remap_parameters_;
    std::string more_;
};

/// A `filter` element with an effect in it.
struct filter {
    std::string name;
    std::string effectid;
    std::string effecttype = "filter";
    std::string enabled = {}; ///< no such element when empty
    std::string parameters = {};

    std::string text() const;
};

/// A `parameter` element; `markup` holds its value.
std::string parameter(std::string_view parameterid, std::string_view name, std::string_view markup);
std::string value(std::string_view text);
std::string point(std::string_view horiz, std::string_view vert);

std::string marker(std::string_view name, std::int64_t in, std::int64_t out = -1, std::string_view with = {});

std::string transition(std::int64_t start, std::int64_t end, std::string_view category,
                       std::string_view name);

/// What stands in a track: a clip, or markup.
class track_item {
public:
    track_item(const clip& item) : text_(item.text()) { }
    track_item(std::string markup) : text_(std::move(markup)) { }
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

struct track_options {
    std::string attributes = {}; ///< such as R"(MZ.TrackName="Dialogue")"
    std::string enabled = {}; ///< no such element when empty
};

struct sequence_options {
    std::string uuid = "uuid-1";
    std::int64_t timebase = 25;
    std::string ntsc = "FALSE";
    std::int64_t start_frame = 0;
    std::string displayformat = "NDF";
    std::int64_t duration = 1000;
    std::string attributes = {}; ///< such as R"(explodedTracks="true")"
    std::string with = {};
};

/// A document; tracks and markers go to the sequence that was begun last.
class xmeml {
public:
    xmeml& sequence(std::string_view name, const sequence_options& options = {});
    xmeml& video_track(const std::vector<track_item>& items, const track_options& options = {});
    xmeml& audio_track(const std::vector<track_item>& items, const track_options& options = {});
    xmeml& with_marker(std::string_view markup);

    /// A bin with one clip; `media` is the markup inside the clip's `media`.
    xmeml& bin_clip(std::string_view bin_name, std::string_view clip_markup);

    /// Markup beside the sequences.
    xmeml& with(std::string_view markup);

    std::string text() const;

private:
    struct sequence_parts {
        std::string attributes, header, video_tracks, audio_tracks, markers;
    };
    std::vector<sequence_parts> sequences_;
    std::string more_;
};

/// The markup of a clip of a bin with one track, for xmeml::bin_clip.
std::string bin_clip(std::string_view id, std::int64_t duration, std::string_view track_kind,
                     const std::vector<track_item>& items, std::string_view with = {},
                     std::string_view attributes = {});

} // namespace tallyframe::testing_support
