// SPDX-License-Identifier: MIT
#include "media_files/thumbnailer_module.h"

#include "media_files/pictures/module_entry.h"
#include "media_files/program_folders.h"
#include "run/failures.h"

#include <dlfcn.h>

#include <string>

namespace tallyframe {

namespace {

/// The reason that the dynamic linker gave last.
std::string link_error()
{
    const char* reason = dlerror(); // NOLINT(concurrency-mt-unsafe): a run has one thread
    return reason != nullptr ? reason : "unknown";
}

} // namespace

std::unique_ptr<thumbnailer> load_thumbnailer(diagnostics& out)
{
    // Never unloaded: what it makes may live as long as the process. Among the libraries that it brings some
    // end the process when there is no memory for them (GLib), which nobody can prevent.
    void* module = dlopen(pictures_module().c_str(), RTLD_NOW | RTLD_LOCAL);
    void* entry = module != nullptr ? dlsym(module, new_thumbnailer_name) : nullptr;
    if (entry == nullptr)
        throw failure(
            "The part of the program that makes thumbnails cannot be loaded. Install Tallyframe again, "
            "or report without thumbnails. ("
            + link_error() + ")");
    const auto new_thumbnailer = reinterpret_cast<new_thumbnailer_function*>(entry);
    return std::unique_ptr<thumbnailer>(new_thumbnailer(resource_folder().c_str(), out));
}

} // namespace tallyframe
