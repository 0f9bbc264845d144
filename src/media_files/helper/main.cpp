// SPDX-License-Identifier: MIT
// tallyframe-media reads media files for the program: whatever a file does to the libraries that read it, it
// does to this process alone.
#include "media_files/helper/confinement.h"
#include "media_files/helper/service.h"

#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdint>
#include <iostream>
#include <string_view>
#include <system_error>

namespace {

bool is_socket(int number)
{
    struct stat found = {};
    return fstat(number, &found) == 0 && S_ISSOCK(found.st_mode);
}

} // namespace

int main(int argument_count, char** arguments)
{
    std::uint64_t most_memory = 0;
    const std::string_view memory = argument_count == 2 ? arguments[1] : "";
    const auto [end, error] = std::from_chars(memory.data(), memory.data() + memory.size(), most_memory);
    if (!is_socket(STDIN_FILENO) || error != std::errc() || end != memory.data() + memory.size()) {
        std::cerr << "tallyframe-media reads media files for tallyframe, which starts it by itself.\n";
        return 2;
    }
    tallyframe::confine_this_process(most_memory);
    // Nothing is put away at the end: what the libraries do then is more than this process may.
    _exit(tallyframe::answer_questions(STDIN_FILENO) ? 0 : 1);
}
