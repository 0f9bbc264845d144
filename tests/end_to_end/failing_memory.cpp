// SPDX-License-Identifier: MIT
// Loaded into the program (LD_PRELOAD), this makes memory run out. Which request fails stands in the
// environment, counted from 1 where main begins:
//
//     MEMORY_FAULT_AT     this one alone
//     MEMORY_FAULT_FROM   this one and all that follow
//     MEMORY_COUNT        a file that is told, at the end of main, how many requests there were
//
// What the dynamic linker, the sanitizers and the libraries take before main is not concerned.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

// The C library's own names, under which its allocator is there whoever takes the place of the usual ones.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

std::atomic<long> requests = 0;
long fails_at = 0;
long fails_from = 0;
std::atomic<bool> is_armed = false;

bool fails()
{
    if (!is_armed)
        return false;
    const long request = ++requests;
    if (request != fails_at && (fails_from == 0 || request < fails_from))
        return false;
    errno = ENOMEM;
    return true;
}

long number_of(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::atol(value) : 0;
}

void tell_count()
{
    is_armed = false;
    const char* file = std::getenv("MEMORY_COUNT");
    std::FILE* out = file != nullptr ? std::fopen(file, "w") : nullptr;
    if (out == nullptr)
        return;
    std::fprintf(out, "%ld\n", requests.load());
    std::fclose(out);
}

using main_function = int(int, char**, char**);
main_function* program_main = nullptr;

int armed_main(int argument_count, char** arguments, char** environment)
{
    fails_at = number_of("MEMORY_FAULT_AT");
    fails_from = number_of("MEMORY_FAULT_FROM");
    is_armed = true;
    const int code = program_main(argument_count, arguments, environment);
    tell_count();
    return code;
}

} // namespace

// The C library's own names for the parameters are reserved ones.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name, bugprone-reserved-identifier)
extern "C" {

void* malloc(std::size_t size)
{
    return fails() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    return fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    return fails() ? nullptr : __libc_realloc(memory, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return fails() ? nullptr : __libc_memalign(alignment, size);
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return fails() ? nullptr : __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    if (fails())
        return ENOMEM;
    *memory = __libc_memalign(alignment, size);
    return *memory != nullptr ? 0 : ENOMEM;
}

using start_function = int(main_function*, int, char**, void (*)(), void (*)(), void (*)(), void*);

int __libc_start_main(main_function* main, int argument_count, char** arguments, void (*begin)(),
                      void (*end)(), void (*unload)(), void* stack)
{
    program_main = main;
    const auto start = reinterpret_cast<start_function*>(dlsym(RTLD_NEXT, "__libc_start_main"));
    return start(armed_main, argument_count, arguments, begin, end, unload, stack);
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name, bugprone-reserved-identifier)
