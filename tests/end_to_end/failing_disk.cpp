// SPDX-License-Identifier: MIT
// Loaded into the program (LD_PRELOAD), this makes its disk a bad one. What is wrong with it stands in the
// environment:
//
//     DISK_FAULT    the call that fails (open, fwrite, fflush, fsync, fsync of folder, fclose, rename); or
//                   "slow", then all of them take their time; or "vanish", then DISK_FOLDER gets another
//                   name before the fsync; or "readdir", then DISK_FOLDER cannot be listed
//     DISK_ERRNO    what it fails with
//     DISK_ROOM     how many bytes can be written before fwrite fails
//     DISK_LOG      a file that gets a line for each fsync and rename: "fsync file", "fsync folder", "rename"
//
// Only files that are open for writing are concerned, so that the program can read what it needs.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

std::string_view setting(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

long number_of(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? std::atol(value) : 0;
}

template <class Function>
Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Whether this call is the one to fail; errno is set then.
bool fails(std::string_view call)
{
    constexpr useconds_t pause = 200;
    if (setting("DISK_FAULT") == "slow")
        usleep(pause);
    if (setting("DISK_FAULT") != call)
        return false;
    errno = static_cast<int>(number_of("DISK_ERRNO"));
    return true;
}

/// Adds a line to the log, if there is to be one.
void note(const char* call)
{
    const int log = ::open(std::getenv("DISK_LOG") != nullptr ? std::getenv("DISK_LOG") : "",
                           O_WRONLY | O_APPEND | O_CLOEXEC);
    if (log < 0)
        return;
    dprintf(log, "%s\n", call);
    close(log);
}

bool is_folder(int descriptor)
{
    struct stat status { };
    return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

bool is_written(std::FILE* file)
{
    struct stat status { };
    const int descriptor = file != nullptr ? fileno(file) : -1;
    return descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_WRONLY;
}

bool lists(DIR* entries, std::string_view folder)
{
    std::error_code unseen;
    const std::string listed = "/proc/self/fd/" + std::to_string(dirfd(entries));
    return std::filesystem::read_symlink(listed, unseen) == folder;
}

} // namespace

// The C library's own names for the parameters are reserved ones.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int open(const char* path, int flags, ...) // NOLINT(cert-dcl50-cpp): as the C library declares it
{
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    if ((flags & O_CREAT) != 0 && fails("open"))
        return -1;
    return real<int(const char*, int, ...)>("open")(path, flags, mode);
}

std::size_t fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file)
{
    static long written = 0;
    if (is_written(file)) {
        written += static_cast<long>(size * count);
        if (written > number_of("DISK_ROOM") && fails("fwrite")) {
            file->_flags |= _IO_ERR_SEEN; // what ferror looks at
            return 0;
        }
    }
    return real<decltype(std::fwrite)>("fwrite")(bytes, size, count, file);
}

int fflush(std::FILE* file)
{
    if (is_written(file) && fails("fflush"))
        return EOF;
    return real<decltype(std::fflush)>("fflush")(file);
}

int fsync(int descriptor)
{
    const std::string folder(setting("DISK_FOLDER"));
    if (setting("DISK_FAULT") == "vanish")
        real<decltype(std::rename)>("rename")(folder.c_str(), (folder + ".gone").c_str());
    note(is_folder(descriptor) ? "fsync folder" : "fsync file");
    if (fails(is_folder(descriptor) ? "fsync of folder" : "fsync"))
        return -1;
    return real<decltype(::fsync)>("fsync")(descriptor);
}

int fclose(std::FILE* file)
{
    const bool is_concerned = is_written(file);
    const int result = real<decltype(std::fclose)>("fclose")(file);
    return is_concerned && fails("fclose") ? EOF : result;
}

dirent* readdir(DIR* entries)
{
    if (setting("DISK_FAULT") == "readdir" && lists(entries, setting("DISK_FOLDER")) && fails("readdir"))
        return nullptr;
    return real<decltype(::readdir)>("readdir")(entries);
}

int rename(const char* from, const char* to) noexcept
{
    note("rename");
    if (fails("rename") || (std::string_view(to).ends_with(setting("DISK_NAME")) && fails("rename to")))
        return -1;
    return real<decltype(std::rename)>("rename")(from, to);
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
