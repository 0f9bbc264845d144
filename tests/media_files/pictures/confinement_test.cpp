// SPDX-License-Identifier: MIT
#include "media_files/helper/confinement.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <thread>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

/// What a confined process finds: the number that `tried` gives, or -1 for a signal.
int confined(const std::function<int()>& tried)
{
    const pid_t child = fork();
    if (child == 0) {
        confine_this_process(256U << 20U);
        _exit(tried());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(confine_this_process, leaves_no_way_to_other_files_processes_and_the_network)
{
    const temporary_folder folder;
    const auto file = write_file(folder.path() / "a.mov", "0123456789");
    EXPECT_EQ(confined([] { return 7; }), 7);
    EXPECT_EQ(confined([&] { return open(file.c_str(), O_RDONLY) >= 0; }), 0);
    EXPECT_EQ(confined([&] { return open((folder.path() / "new").c_str(), O_WRONLY | O_CREAT, 0600) >= 0; }),
              0);
    EXPECT_EQ(confined([] { return socket(AF_INET, SOCK_STREAM, 0) >= 0; }), 0);
    EXPECT_EQ(confined([] { return socket(AF_UNIX, SOCK_STREAM, 0) >= 0; }), 0);
    EXPECT_EQ(confined([] { return kill(getppid(), 0) == 0; }), 0);
    EXPECT_EQ(confined([] { return fork() >= 0; }), 0);
    EXPECT_EQ(confined([&] { return unlink(file.c_str()) == 0; }), 0);
    EXPECT_EQ(confined([] {
                  return mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS,
                              -1, 0)
                      != MAP_FAILED;
              }),
              0);
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST(confine_this_process, leaves_threads_and_some_memory)
{
    EXPECT_EQ(confined([] {
                  int seen = 0;
                  std::thread([&] { seen = 1; }).join();
                  return seen;
              }),
              1);
#if !defined(__SANITIZE_ADDRESS__)
    EXPECT_EQ(confined([] { return std::malloc(64U << 20U) != nullptr; }), 1);
    EXPECT_EQ(confined([] { return std::malloc(512U << 20U) != nullptr; }), 0);
#endif
}

} // namespace
