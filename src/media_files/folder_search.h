// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/file_index.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <filesystem>
#include <vector>

namespace tallyframe {

struct found_files {
    file_index index;
    account lost; ///< folders that could not be read: they cost only what is in them
};

/// All regular files in some folders and below, in the order of the folders and of their paths. Links to
/// folders are followed after what lies there itself; each folder is read once, so that circles end.
/// `display` tells the folder meanwhile and may stop the run.
found_files files_below(const std::vector<std::filesystem::path>& folders, diagnostics& out,
                        progress& display);

} // namespace tallyframe
