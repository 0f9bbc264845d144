// SPDX-License-Identifier: MIT
#include "workbook/file/saved_file.h"

#include "workbook/workbook.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace xls {

namespace fs = std::filesystem;

namespace {

constexpr int names_to_try = 100;

/// The file that a path names once its last part is no symbolic link any more. It need not exist.
fs::path behind_links(fs::path path)
{
    constexpr int most_links = 40;
    std::error_code error;
    for (int i = 0; i < most_links && fs::is_symlink(path, error); ++i) {
        const auto link = fs::read_symlink(path, error);
        path = path.parent_path() / link;
    }
    return path;
}

/// Nobody may write it, or not we. The superuser may write all, but a file without any write permission was
/// locked on purpose.
bool is_read_only(const fs::path& file)
{
    struct stat status { };
    if (stat(file.c_str(), &status) != 0)
        return false;
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || access(file.c_str(), W_OK) != 0;
}

/// Makes a file that was not there, with owner and permissions of `older` if that exists. Null: errno says
/// why.
std::FILE* create_file(const fs::path& path, const fs::path& older)
{
    constexpr mode_t for_all = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // less the umask
    constexpr mode_t for_owner = S_IRUSR | S_IWUSR;
    struct stat status { };
    const bool replaces = stat(older.c_str(), &status) == 0;
    const int descriptor =
        open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, replaces ? for_owner : for_all);
    if (descriptor < 0)
        return nullptr;
    if (replaces) {
        constexpr mode_t permission_bits = 07777;
        constexpr mode_t bits_of_any_owner = 0777; // a foreign owner's set-user-ID bit must not become ours
        const bool same_owner = fchown(descriptor, status.st_uid, status.st_gid) == 0;
        fchmod(descriptor, status.st_mode & (same_owner ? permission_bits : bits_of_any_owner));
    }
    std::FILE* file = fdopen(descriptor, "wb");
    if (file == nullptr) {
        const int error = errno;
        close(descriptor);
        unlink(path.c_str());
        errno = error;
    }
    return file;
}

bool bring_to_disk(std::FILE* file)
{
    return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOTSUP; // a file system without it
}

/// The file stands in its place by now. A file system that cannot bring its name to the disk takes nothing
/// back.
void bring_name_to_disk(const fs::path& folder)
{
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

std::string reason_of(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "its folder does not exist. Choose another folder.";
    case ENAMETOOLONG:
        return "its name is too long. Choose a shorter name.";
    case EACCES:
    case EPERM:
        return "its folder does not allow new files. Choose another folder.";
    case EROFS:
        return "its disk is write-protected. Choose another folder.";
    case ENOSPC:
    case EDQUOT:
        return "the disk is full. Make room on it or choose another disk.";
    case EFBIG:
        return "it would be larger than files may be there. Choose another disk.";
    default:
        return std::generic_category().message(error) + ".";
    }
}

[[noreturn]] void refuse_target(const fs::path& target, const std::string& reason)
{
    throw workbook_error("The workbook \"" + target.string() + "\" was not saved: " + reason);
}

} // namespace

signal_pause::signal_pause()
{
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXFSZ})
        sigaddset(&ending, signal);
    pthread_sigmask(SIG_BLOCK, &ending, &before_);
}

signal_pause::~signal_pause()
{
    // A file that grew too large has been reported as a failed write. It must not end the program as well.
    sigset_t too_large;
    sigemptyset(&too_large);
    sigaddset(&too_large, SIGXFSZ);
    sigset_t waiting;
    if (int signal = 0; sigpending(&waiting) == 0 && sigismember(&waiting, SIGXFSZ) == 1)
        sigwait(&too_large, &signal);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

saved_file::saved_file(const fs::path& target) : target_(target), real_target_(behind_links(target))
{
    std::error_code error;
    if (fs::is_symlink(real_target_, error))
        fail(ELOOP);
    const auto status = fs::status(real_target_, error);
    if (!fs::status_known(status))
        fail(error.value());
    if (fs::is_directory(status))
        refuse_target(target_, "there is a folder of this name. Choose another name.");
    if (fs::exists(status) && !fs::is_regular_file(status))
        refuse_target(target_, "there is something of this name that is not a file. Choose another name.");
    if (is_read_only(real_target_))
        refuse_target(
            target_,
            "there is a file of this name that is read-only. Choose another name or unlock the file.");
    open_beside();
}

saved_file::~saved_file()
{
    stream_.reset();
    std::error_code error;
    if (!beside_.empty())
        fs::remove(beside_, error);
}

void saved_file::open_beside()
{
    for (int i = 0; i < names_to_try; ++i) {
        const auto name = ".workbook-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp";
        auto path = real_target_.parent_path() / name;
        stream_.reset(create_file(path, real_target_));
        if (stream_) {
            beside_ = std::move(path); // copying it might fail, and leave the file behind
            return;
        }
        if (errno != EEXIST)
            break;
    }
    fail(errno);
}

void saved_file::finish()
{
    if (std::fflush(stream_.get()) != 0 || !bring_to_disk(stream_.get())
        || std::fclose(stream_.release()) != 0)
        fail(errno);
}

void saved_file::publish()
{
    if (stream_)
        finish();
    std::error_code error;
    fs::rename(beside_, real_target_, error);
    if (error)
        fail(error.value());
    beside_.clear();
    bring_name_to_disk(real_target_.parent_path());
}

void saved_file::fail(int error) const
{
    refuse_target(target_, reason_of(error));
}

} // namespace xls
