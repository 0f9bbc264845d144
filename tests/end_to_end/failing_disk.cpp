// SPDX-License-Identifier: MIT
// Loaded into the program (LD_PRELOAD), this makes its disk a bad one. What is wrong with it stands in the
// environment:
//
//     DISK_FAULT    the call that fails (open, fwrite, fflush, fsync, fclose, rename); or "slow", then all of
//                   them take their time; or "vanish", then DISK_FOLDER gets another name before the fsync
//     DISK_ERRNO    what it fails with
//     DISK_ROOM     how many bytes can be written before fwrite fails
//
// Only files that are open for writing are concerned, so that the program can read what it needs.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
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

bool is_written(std::FILE* file)
{
    struct stat status { };
    const int descriptor = file != nullptr ? fileno(file) : -1;
    return descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)
        && (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_WRONLY;
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
    if (fails("fsync"))
        return -1;
    return real<decltype(::fsync)>("fsync")(descriptor);
}

int fclose(std::FILE* file)
{
    const bool is_concerned = is_written(file);
    const int result = real<decltype(std::fclose)>("fclose")(file);
    return is_concerned && fails("fclose") ? EOF : result;
}

int rename(const char* from, const char* to) noexcept
{
    if (fails("rename"))
        return -1;
    return real<decltype(std::rename)>("rename")(from, to);
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
