// SPDX-License-Identifier: MIT
#include "media_files/helper/confinement.h"

#include <sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <memory>
#include <type_traits>

namespace tallyframe {

namespace {

struct filter_deleter {
    void operator()(void* filter) const { seccomp_release(filter); }
};
using filter_ptr = std::unique_ptr<std::remove_pointer_t<scmp_filter_ctx>, filter_deleter>;

/// What decoders, their threads and the memory they use ask the system for.
constexpr int allowed_calls[] = {
    SCMP_SYS(brk),
    SCMP_SYS(clock_gettime),
    SCMP_SYS(clock_nanosleep),
    SCMP_SYS(close),
    SCMP_SYS(exit),
    SCMP_SYS(exit_group),
    SCMP_SYS(futex),
    SCMP_SYS(getpid),
    SCMP_SYS(getrandom),
    SCMP_SYS(gettid),
    SCMP_SYS(gettimeofday),
    SCMP_SYS(madvise),
    SCMP_SYS(membarrier),
    SCMP_SYS(mremap),
    SCMP_SYS(munmap),
    SCMP_SYS(nanosleep),
    SCMP_SYS(pread64),
    SCMP_SYS(restart_syscall),
    SCMP_SYS(rseq),
    SCMP_SYS(rt_sigaction),
    SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sched_getaffinity),
    SCMP_SYS(sched_yield),
    SCMP_SYS(set_robust_list),
    SCMP_SYS(sigaltstack),
#if defined(__SANITIZE_ADDRESS__) // tries through a pipe which memory can be read, and says what it has found
    SCMP_SYS(pipe2),
    SCMP_SYS(read),
    SCMP_SYS(write),
#endif
};

scmp_arg_cmp first_is(scmp_datum_t value)
{
    return {0, SCMP_CMP_EQ, value, 0};
}

/// Of an argument, counted from 0, the bits in `mask`.
scmp_arg_cmp bits_are(unsigned argument, scmp_datum_t mask, scmp_datum_t value)
{
    return {argument, SCMP_CMP_MASKED_EQ, mask, value};
}

void limit(__rlimit_resource resource, rlim_t most)
{
    const rlimit both = {most, most};
    setrlimit(resource, &both);
}

/// Everything else fails as if it were forbidden to this user, which libraries know to live with.
void allow_only_reading()
{
    const filter_ptr filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)));
    if (!filter)
        return;
    bool is_made = true;
    const auto allow = [&](int call, const auto&... conditions) {
        const int added =
            seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, sizeof...(conditions), conditions...);
        is_made = is_made && added == 0;
    };
    for (const int call : allowed_calls)
        allow(call);
    for (const int call : {SCMP_SYS(recvmsg), SCMP_SYS(sendmsg)})
        allow(call, first_is(STDIN_FILENO));
    for (const int call : {SCMP_SYS(mmap), SCMP_SYS(mprotect)}) // no code but that of the libraries
        allow(call, bits_are(2, PROT_EXEC, 0));
    allow(SCMP_SYS(clone), bits_are(0, CLONE_THREAD, CLONE_THREAD));
    // Its flags lie in memory, where no filter sees them; told that there is no such call, clone is used.
    is_made = is_made && seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) == 0;
    if (is_made)
        seccomp_load(filter.get());
}

} // namespace

void confine_this_process(std::uint64_t most_memory)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_DUMPABLE, 0);
    close_range(STDERR_FILENO + 1, UINT_MAX, 0);
    if (chdir("/") != 0)
        _exit(1);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_NOFILE, 16);
#if !defined(__SANITIZE_ADDRESS__) // which takes terabytes of addresses for itself
    limit(RLIMIT_DATA, most_memory);
#else
    static_cast<void>(most_memory);
#endif
    allow_only_reading();
}

} // namespace tallyframe
