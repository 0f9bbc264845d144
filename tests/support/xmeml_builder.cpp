// SPDX-License-Identifier: MIT
#include "support/xmeml_builder.h"

namespace tallyframe::testing_support {

namespace {

std::string escaped(std::string_view text)
{
    std::string markup;
    for (const char c : text) {
        if (c == '&')
            markup += "&amp;";
        else if (c == '<')
            markup += "&lt;";
        else if (c == '\r')
            markup += "&#13;";
        else
            markup += c;
    }
    return markup;
}

std::string rate(std::int64_t timebase, std::string_view ntsc)
{
    return around("rate", element("timebase", timebase) + element("ntsc", ntsc));
}

std::string element_with(std::string_view name, std::string_view attributes, std::string_view markup)
{
    std::string text = "<" + std::string(name);
    if (!attributes.empty())
        text.append(" ").append(attributes);
    return text.append(">").append(markup).append("</").append(name).append(">\n");
}

std::string track(const std::vector<track_item>& items, const track_options& options)
{
    std::string markup;
    for (const track_item& item : items)
        markup += item.text();
    if (!options.enabled.empty())
        markup += element("enabled", options.enabled);
    return element_with("track", options.attributes, markup);
}

} // namespace

std::string around(std::string_view name, std::string_view markup)
{
    return element_with(name, {}, markup);
}

std::string element(std::string_view name, std::string_view text)
{
    return around(name, escaped(text));
}

std::string element(std::string_view name, std::int64_t number)
{
    return around(name, std::to_string(number));
}

std::string media_file::text() const
{
    std::string markup;
    if (duration)
        markup += element("duration", *duration);
    if (timebase)
        markup += rate(*timebase, ntsc);
    if (!media_source.empty())
        markup += element("mediaSource", media_source);
    else if (!path.empty())
        markup += element("pathurl", "file://localhost" + path);
    std::string timecode = timebase ? rate(*timebase, ntsc) : std::string();
    timecode += element("frame", timecode_frame) + element("displayformat", displayformat);
    if (!reel.empty())
        timecode += around("reel", element("name", reel));
    markup += around("timecode", timecode) + with;
    const std::string& own_id = id.empty() ? media_source.empty() ? path : media_source : id;
    return element_with("file", "id=\"" + own_id + "\"", markup);
}

clip& clip::at(std::int64_t start, std::int64_t end)
{
    start_ = start;
    end_ = end;
    return in_out(0, end - start);
}

clip& clip::in_out(std::int64_t in, std::int64_t out)
{
    in_ = in;
    out_ = out;
    return *this;
}

clip& clip::duration(std::int64_t frames)
{
    duration_ = frames;
    return *this;
}

clip& clip::file(const media_file& file)
{
    file_ = file.text();
    return *this;
}

clip& clip::without_file()
{
    file_.clear();
    return *this;
}

clip& clip::same_file(std::string_view id)
{
    file_ = element_with("file", "id=\"" + std::string(id) + "\"", {});
    return *this;
}

clip& clip::enabled(std::string_view text)
{
    enabled_ = element("enabled", text);
    return *this;
}

clip& clip::speed(std::string_view percent)
{
    time_remap_parameters_ += parameter("speed", "speed", value(percent));
    return *this;
}

clip& clip::reversed(std::string_view text)
{
    time_remap_parameters_ += parameter("reverse", "reverse", value(text));
    return *this;
}

clip& clip::marker(std::string_view name, std::int64_t in, std::int64_t out)
{
    return with(testing_support::marker(name, in, out));
}

clip& clip::with(std::string_view markup)
{
    more_ += markup;
    return *this;
}

std::string clip::text() const
{
    std::string markup = element("name", name_) + element("duration", duration_) + element("start", start_)
        + element("end", end_) + element("in", in_) + element("out", out_) + enabled_ + file_;
    if (!time_remap_parameters_.empty())
        markup += filter{"Time Remap", "timeremap", "motion", {}, time_remap_parameters_}.text();
    return around("clipitem", markup + more_);
}

std::string filter::text() const
{
    std::string markup;
    if (!enabled.empty())
        markup += element("enabled", enabled);
    return around("filter",
                  markup
                      + around("effect",
                               element("name", name) + element("effectid", effectid)
                                   + element("effecttype", effecttype) + parameters));
}

std::string parameter(std::string_view parameterid, std::string_view name, std::string_view markup)
{
    return around("parameter",
                  element("parameterid", parameterid) + element("name", name) + std::string(markup));
}

std::string value(std::string_view text)
{
    return element("value", text);
}

std::string point(std::string_view horiz, std::string_view vert)
{
    return around("value", element("horiz", horiz) + element("vert", vert));
}

std::string marker(std::string_view name, std::int64_t in, std::int64_t out, std::string_view with)
{
    return around("marker",
                  element("name", name) + element("in", in) + element("out", out) + std::string(with));
}

std::string transition(std::int64_t start, std::int64_t end, std::string_view category, std::string_view name)
{
    std::string effect;
    if (!name.empty())
        effect += element("name", name);
    if (!category.empty())
        effect += element("effectcategory", category);
    return around("transitionitem", element("start", start) + element("end", end) + around("effect", effect));
}

xmeml& xmeml::sequence(std::string_view name, const sequence_options& options)
{
    sequence_parts parts;
    parts.attributes = options.attributes;
    parts.header = (options.uuid.empty() ? "" : element("uuid", options.uuid)) + element("name", name)
        + element("duration", options.duration) + rate(options.timebase, options.ntsc)
        + around("timecode",
                 rate(options.timebase, options.ntsc) + element("frame", options.start_frame)
                     + element("displayformat", options.displayformat))
        + options.with;
    sequences_.push_back(parts);
    return *this;
}

xmeml& xmeml::video_track(const std::vector<track_item>& items, const track_options& options)
{
    sequences_.back().video_tracks += track(items, options);
    return *this;
}

xmeml& xmeml::audio_track(const std::vector<track_item>& items, const track_options& options)
{
    sequences_.back().audio_tracks += track(items, options);
    return *this;
}

xmeml& xmeml::with_marker(std::string_view markup)
{
    sequences_.back().markers += markup;
    return *this;
}

xmeml& xmeml::bin_clip(std::string_view bin_name, std::string_view clip_markup)
{
    return with(around("bin", element("name", bin_name) + around("children", clip_markup)));
}

xmeml& xmeml::with(std::string_view markup)
{
    more_ += markup;
    return *this;
}

std::string xmeml::text() const
{
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xmeml>\n<xmeml version=\"5\">\n";
    for (const sequence_parts& parts : sequences_) {
        text += element_with(
            "sequence", parts.attributes,
            parts.header
                + around("media", around("video", parts.video_tracks) + around("audio", parts.audio_tracks))
                + parts.markers);
    }
    return text + more_ + "</xmeml>\n";
}

std::string bin_clip(std::string_view id, std::int64_t duration, std::string_view track_kind,
                     const std::vector<track_item>& items, std::string_view with, std::string_view attributes)
{
    return element_with("clip", "id=\"" + std::string(id) + "\" " + std::string(attributes),
                        element("duration", duration) + std::string(with)
                            + around("media", around(track_kind, track(items, {}))));
}

} // namespace tallyframe::testing_support
