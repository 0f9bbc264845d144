// SPDX-License-Identifier: MIT
#pragma once

#include "platform/workspace.h"

#include <QString>

namespace tallyframe::window {

/// The desktop that the window runs on. Its calls may come from any thread.
class desktop_workspace final : public workspace {
public:
    void open_folder(const std::filesystem::path& folder) override;
};

/// Opens a file with the application that the desktop has for it. False when there is none.
bool open_file(const QString& path);

/// Shows a file in the desktop's file browser: selected where the browser can do that, otherwise its folder.
bool show_in_folder(const QString& path);

} // namespace tallyframe::window
