// SPDX-License-Identifier: MIT
#include "media_files/media_probe_module.h"

#include "media_files/pictures/facts_entry.h"
#include "media_files/program_folders.h"
#include "run/failures.h"

#include <dlfcn.h>

#include <string>
#include <utility>

namespace tallyframe {

namespace {

media_facts_function* loaded_function()
{
    void* module = dlopen(pictures_module().c_str(), RTLD_NOW | RTLD_LOCAL);
    void* entry = module != nullptr ? dlsym(module, media_facts_name) : nullptr;
    if (entry == nullptr) {
        const char* reason = dlerror(); // NOLINT(concurrency-mt-unsafe): a run has one thread
        throw failure("The part of the program that reads media files cannot be loaded. Install Tallyframe "
                      "again. ("
                      + std::string(reason != nullptr ? reason : "unknown") + ")");
    }
    return reinterpret_cast<media_facts_function*>(entry);
}

} // namespace

std::optional<media_facts> module_media_probe::facts_of(const std::filesystem::path& file)
{
    if (read_ == nullptr)
        read_ = loaded_function();
    media_facts facts;
    return read_(file.c_str(), facts) ? std::optional(std::move(facts)) : std::nullopt;
}

} // namespace tallyframe
