// SPDX-License-Identifier: MIT
#include "window/models/settings.h"

#include "report/column_switches.h"
#include "window/models/merged_list.h"
#include "window/models/option_checkboxes.h"
#include "window/models/qt_text.h"
#include "window/models/row_color_popups.h"
#include "window/models/saved_layouts.h"
#include "window/models/scope.h"
#include "window/models/time_column_rows.h"
#include "writers/text_colors.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <algorithm>
#include <array>
#include <functional>
#include <iterator>

namespace tallyframe::window {

namespace {

struct named_adjustment {
    const char* key;
    std::int64_t time_adjustments::*member;
};

constexpr named_adjustment named_adjustments[] = {
    {"hhmmssff_adj", &time_adjustments::hhmmssff_adj}, {"clock_adj", &time_adjustments::clock_adj},
    {"frames_adj", &time_adjustments::frames_adj},     {"feetframes_adj", &time_adjustments::feetframes_adj},
    {"seconds_adj", &time_adjustments::seconds_adj},
};

constexpr const char* appearance_names[] = {"system", "light", "dark"};

std::array<std::span<const option_checkbox>, 3> all_checkboxes()
{
    return {sheet_checkboxes(), row_checkboxes(), picture_checkboxes()};
}

bool is_column_title(const std::string& title)
{
    return std::ranges::find(all_column_switches, title, &column_switch_entry::title)
        != all_column_switches.end();
}

/// A whole number within its bounds; otherwise what `number` is.
template <class Number>
void read_number(const QSettings& settings, const QString& key, Number lowest, Number highest, Number& number)
{
    bool is_number = false;
    const qlonglong value = settings.value(key).toLongLong(&is_number);
    if (is_number && value >= lowest && value <= highest)
        number = static_cast<Number>(value);
}

void read_flag(const QSettings& settings, const QString& key, bool& flag)
{
    const QString text = settings.value(key).toString();
    if (text == "true" || text == "false")
        flag = text == "true";
}

void read_colors(const QSettings& settings, report_options& options)
{
    for (const color_popup& popup : row_color_popups()) {
        const std::string name = settings.value(popup.object_name).toString().toStdString();
        if (std::ranges::find(color_names(), name) != color_names().end())
            options.*popup.option = name;
    }
}

QStringList format_names(const std::vector<time_format>& formats)
{
    QStringList names;
    for (const time_format format : formats)
        names.append(qt_text(std::ranges::find(time_formats, format, &time_format_name::format)->name));
    return names;
}

void read_formats(const QSettings& settings, const QString& key, std::vector<time_format>& formats)
{
    if (!settings.contains(key))
        return;
    std::vector<time_format> read;
    for (const QString& name : settings.value(key).toStringList()) {
        const auto* known = std::ranges::find(time_formats, name.toStdString(), &time_format_name::name);
        if (known != time_formats.end() && std::ranges::find(read, known->format) == read.end())
            read.push_back(known->format);
    }
    const bool is_empty_on_purpose = settings.value(key).toString() == "none";
    if (!read.empty() || is_empty_on_purpose)
        formats = read;
}

QVariant formats_value(const std::vector<time_format>& formats)
{
    return formats.empty() ? QVariant("none") : QVariant(format_names(formats));
}

/// [{"name": "Conform", "checkboxes": {"Track": 1, …}}, …]
QString layouts_as_json(const std::vector<column_layout>& layouts)
{
    QJsonArray list;
    for (const column_layout& layout : layouts) {
        QJsonObject states;
        for (const column_layout::checkbox& box : layout.checkboxes)
            states.insert(qt_text(box.title), box.state);
        list.append(QJsonObject{{"name", qt_text(layout.name)}, {"checkboxes", states}});
    }
    return QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact));
}

std::vector<column_layout> layouts_from_json(const QString& text)
{
    std::vector<column_layout> layouts;
    for (const QJsonValue entry : QJsonDocument::fromJson(text.toUtf8()).array()) {
        column_layout layout{entry["name"].toString().toStdString(), {}};
        const QJsonObject states = entry["checkboxes"].toObject();
        for (auto state = states.begin(); state != states.end(); ++state) {
            std::string title = state.key().toStdString();
            if (is_column_title(title))
                layout.checkboxes.push_back({std::move(title), state.value().toInt() != 0 ? 1 : 0});
        }
        layouts.push_back(std::move(layout));
    }
    return usable_layouts(std::move(layouts));
}

void read_layouts(const QSettings& settings, report_options& options)
{
    options.layouts_array = layouts_from_json(settings.value("layouts_array").toString());
    const std::string chosen = settings.value("layoutsAppPopupMenu").toString().toStdString();
    if (find_layout(chosen, options.layouts_array) < options.layouts_array.size())
        options.layout = chosen;
}

void read_options(const QSettings& settings, report_options& options)
{
    for (const auto checkboxes : all_checkboxes()) {
        for (const option_checkbox& box : checkboxes)
            read_flag(settings, box.object_name, options.*box.option);
    }
    read_colors(settings, options);
    read_layouts(settings, options);
    read_formats(settings, "timeline_time_columns", options.timeline_time_columns);
    read_formats(settings, "source_time_columns", options.source_time_columns);
    for (const named_adjustment& adjustment : named_adjustments) {
        read_number<std::int64_t>(settings, adjustment.key, -adjustment_limit, adjustment_limit,
                                  options.adjustments.*adjustment.member);
    }
    read_number(settings, "thumbnail_width", narrowest_thumbnail, widest_thumbnail, options.thumbnail_width);
}

/// [["/Volumes/Rushes", "/mnt/rushes"], ["", "/mnt/music"], …]
QString media_places_as_json(const std::vector<media_place>& places)
{
    QJsonArray list;
    for (const media_place& place : places)
        list.append(QJsonArray{qt_text(place.named_in_timeline), qt_text(place.folder)});
    return QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact));
}

std::vector<media_place> media_places_from_json(const QString& text)
{
    std::vector<media_place> places;
    for (const QJsonValue entry : QJsonDocument::fromJson(text.toUtf8()).array()) {
        media_place place{entry[0].toString().toStdString(), entry[1].toString().toStdString()};
        if (!place.folder.empty())
            places.push_back(std::move(place));
    }
    return places;
}

QStringList recent_documents_from(const QSettings& settings)
{
    QStringList documents = settings.value("recent_documents").toStringList().mid(0, recent_document_limit);
    documents.removeAll(QString());
    return documents;
}

/// The values of all choices by their keys, but for the media places.
QVariantMap values_of(const choices& kept)
{
    const report_options& options = kept.options;
    QVariantMap values;
    for (const auto checkboxes : all_checkboxes()) {
        for (const option_checkbox& box : checkboxes)
            values[box.object_name] = options.*box.option;
    }
    for (const color_popup& popup : row_color_popups())
        values[popup.object_name] = qt_text(options.*popup.option);
    values["layouts_array"] = layouts_as_json(options.layouts_array);
    values["layoutsAppPopupMenu"] = qt_text(options.layout.value_or(""));
    values["timeline_time_columns"] = formats_value(options.timeline_time_columns);
    values["source_time_columns"] = formats_value(options.source_time_columns);
    for (const named_adjustment& adjustment : named_adjustments)
        values[adjustment.key] = qlonglong{options.adjustments.*adjustment.member};
    values["thumbnail_width"] = qlonglong{options.thumbnail_width};
    values["importVideoAudioRadioButtons"] = tag_for_scope(kept.scope);
    values["exactFiguresCheckbox"] = kept.figures == figure_style::exact;
    values["appearance"] = appearance_names[static_cast<int>(kept.look)];
    values["recent_documents"] = kept.recent_documents;
    values["save_folder"] = kept.save_folder;
    return values;
}

/// A layout that this window has made under a name that another one has given meanwhile gets one of its own.
void rename_clashing_layouts(const std::vector<column_layout>& before,
                             const std::vector<column_layout>& theirs, report_options& mine)
{
    for (column_layout& layout : mine.layouts_array) {
        const bool is_new = find_layout(layout.name, before) == before.size();
        if (!is_new || check_name(layout.name, theirs, theirs.size()) == name_fault::none)
            continue;
        std::vector<column_layout> taken = theirs;
        taken.insert(taken.end(), mine.layouts_array.begin(), mine.layouts_array.end());
        const std::string name = free_name(layout.name, taken);
        if (mine.layout == layout.name)
            mine.layout = name;
        layout.name = name;
    }
}

void merge_layouts(const QSettings& settings, const report_options& before, report_options& now)
{
    if (now.layouts_array == before.layouts_array)
        return;
    const std::vector<column_layout> theirs = layouts_from_json(settings.value("layouts_array").toString());
    rename_clashing_layouts(before.layouts_array, theirs, now);
    const std::vector<column_layout> mine = now.layouts_array;
    now.layouts_array = merged_list(before.layouts_array, mine, theirs, &column_layout::name);
    const std::string chosen = now.layout.value_or("");
    const std::size_t position = find_layout(chosen, mine);
    if (position < mine.size() && find_layout(chosen, now.layouts_array) == now.layouts_array.size())
        now.layouts_array.push_back(mine[position]); // another window has deleted what is in use here
}

/// The latest of this window comes first.
QStringList merged_documents(const QStringList& before, const QStringList& mine, const QStringList& theirs)
{
    choices kept;
    kept.recent_documents = merged_list(before, mine, theirs, std::identity());
    if (!mine.isEmpty() && mine.constFirst() != before.value(0))
        remember_document(kept, mine.constFirst());
    return kept.recent_documents.mid(0, recent_document_limit);
}

} // namespace

void remember_document(choices& kept, const QString& path)
{
    kept.recent_documents.removeAll(path);
    kept.recent_documents.prepend(path);
    kept.recent_documents.resize(std::min(kept.recent_documents.size(), recent_document_limit));
}

choices load_choices(const QSettings& settings)
{
    choices kept;
    read_options(settings, kept.options);
    kept.media_places = media_places_from_json(settings.value("media_places").toString());
    int scope_tag = tag_for_scope(kept.scope);
    read_number(settings, "importVideoAudioRadioButtons", 0, 2, scope_tag);
    kept.scope = scope_for_tag(scope_tag, kept.scope);
    if (settings.value("exactFiguresCheckbox").toBool())
        kept.figures = figure_style::exact;
    const auto* look = std::ranges::find(appearance_names, settings.value("appearance").toString());
    if (look != std::end(appearance_names))
        kept.look = static_cast<appearance>(look - appearance_names);
    kept.recent_documents = recent_documents_from(settings);
    kept.save_folder = settings.value("save_folder").toString();
    return kept;
}

void save_choices(QSettings& settings, const choices& before, choices& now)
{
    settings.sync(); // reads what another window has written
    merge_layouts(settings, before.options, now.options);
    if (now.recent_documents != before.recent_documents)
        now.recent_documents =
            merged_documents(before.recent_documents, now.recent_documents, recent_documents_from(settings));
    if (now.media_places != before.media_places) {
        const std::vector<media_place> places =
            merged_list(before.media_places, now.media_places,
                        media_places_from_json(settings.value("media_places").toString()), std::identity());
        settings.setValue("media_places", media_places_as_json(places));
    }
    const QVariantMap old_values = values_of(before);
    const QVariantMap new_values = values_of(now);
    for (auto value = new_values.begin(); value != new_values.end(); ++value) {
        if (value.value() != old_values.value(value.key()))
            settings.setValue(value.key(), value.value());
    }
    settings.sync();
}

} // namespace tallyframe::window
