// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/report_scope.h"
#include "media_files/mapped_media.h"
#include "report/report_options.h"
#include "run/figure_style.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tallyframe::cli {

/// Which entries of a document's menu to report.
struct item_choice {
    enum class kind { only_one, position, uuid, bins, all };
    kind by = kind::only_one;
    std::size_t position = 0; ///< from 1, as `list` shows it
    std::string uuid;
};

struct list_request {
    std::filesystem::path document;
    bool json = false;
    bool unidentified = false; ///< sequences without an identifier too
};

struct report_request {
    std::filesystem::path document;
    std::optional<std::filesystem::path> output;
    item_choice item;
    bool unidentified = false; ///< sequences without an identifier too
    report_scope scope = report_scope::video_audio;
    figure_style figures = figure_style::comparable;
    std::optional<std::vector<std::string>> tracks; ///< labels of the ticked tracks; nothing for all
    report_options options;
    std::vector<media_mapping> media_map;
    std::vector<std::filesystem::path> media_search;
    bool picture_store = true; ///< pictures of earlier reports are used and new ones kept
    std::uint64_t media_memory = 0; ///< bytes; 0 for a quarter of the machine's
    bool quiet = false;
    bool progress = false;
};

/// A check of the media files that a report of the same choices would show.
struct media_request {
    enum class format { text, json, csv };

    report_request subject; ///< what has to do with clips and media files in it
    format as = format::text;
};

/// What the command line asks for: one of the three, or a text to print.
struct request {
    std::optional<list_request> list;
    std::optional<report_request> report;
    std::optional<media_request> media;
    std::string text; ///< help or version, when neither is set
};

/// The command line is wrong; what() says how to write it right.
class usage_error : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// `arguments`: those after the program's name. Throws usage_error.
request parse_arguments(const std::vector<std::string>& arguments);

} // namespace tallyframe::cli
