#include "preview/Confinement.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <vector>

namespace {

constexpr rlim_t mostMemory = rlim_t(2) << 30;
constexpr rlim_t mostFiles = 64;
/// Seconds for one question; the program stops waiting about then.
constexpr rlim_t timeForQuestion = 20;

void limit(__rlimit_resource resource, rlim_t most) {
    const rlimit bounds{most, most};
    setrlimit(resource, &bounds);
}

void limitResources() {
#ifndef __SANITIZE_ADDRESS__
    limit(RLIMIT_AS, mostMemory);
#endif
    limit(RLIMIT_NOFILE, mostFiles);
    limit(RLIMIT_FSIZE, 0);
    limit(RLIMIT_CORE, 0);
    // Libraries that would like to write a cache are to go on without it.
    std::signal(SIGXFSZ, SIG_IGN);
}

using Filter = std::vector<sock_filter>;

sock_filter load(std::size_t offset) {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<__u32>(offset));
}

sock_filter answer(__u32 action) {
    return BPF_STMT(BPF_RET | BPF_K, action);
}

constexpr __u32 refusal = SECCOMP_RET_ERRNO | EPERM;
/// Makes the C library use the older call, whose flags can be seen.
constexpr __u32 absence = SECCOMP_RET_ERRNO | ENOSYS;

void refuse(Filter &filter, long call, __u32 action = refusal) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(call), 0, 1));
    filter.push_back(answer(action));
}

constexpr std::size_t argument(int number) {
    // The lower half of 64 bits, which comes first on the machines that Debian's Qt with PDF is built for.
    return offsetof(seccomp_data, args) + 8 * static_cast<std::size_t>(number);
}

/// Refuses the call when the argument has any of these bits set.
void refuseBits(Filter &filter, long call, int number, __u32 bits) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(call), 0, 4));
    filter.push_back(load(argument(number)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, bits, 0, 1));
    filter.push_back(answer(refusal));
    filter.push_back(load(offsetof(seccomp_data, nr)));
}

/// Threads are let be; a new process is not.
void refuseForking(Filter &filter) {
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(SYS_clone), 0, 4));
    filter.push_back(load(argument(0)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, CLONE_THREAD, 1, 0));
    filter.push_back(answer(refusal));
    filter.push_back(load(offsetof(seccomp_data, nr)));
}

constexpr std::array refusedCalls{
    SYS_socket,      SYS_socketpair,
    SYS_execve,      SYS_execveat,
    SYS_ptrace,      SYS_process_vm_readv,
    SYS_kill,        SYS_truncate,
    SYS_unlinkat,    SYS_renameat2,
    SYS_linkat,      SYS_process_vm_writev,
    SYS_symlinkat,   SYS_mkdirat,
    SYS_fchmodat,    SYS_fchownat,
    SYS_mknodat,     SYS_setxattr,
    SYS_unshare,     SYS_setns,
    SYS_mount,       SYS_bpf,
    SYS_userfaultfd, SYS_io_uring_setup,
    SYS_add_key,     SYS_keyctl,
    SYS_shmget,      SYS_perf_event_open,
#ifdef SYS_fork
    SYS_fork,        SYS_vfork,
    SYS_unlink,      SYS_rename,
    SYS_renameat,    SYS_link,
    SYS_symlink,     SYS_mkdir,
    SYS_rmdir,       SYS_chmod,
    SYS_chown,       SYS_lchown,
    SYS_creat,       SYS_mknod,
#endif
};

#if defined(__x86_64__)
constexpr __u32 machine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr __u32 machine = AUDIT_ARCH_AARCH64;
#else
#error "Say here what the kernel calls this machine."
#endif

/// A processor that knows a second way into the kernel numbers its calls differently there.
void refuseOtherNumbering(Filter &filter) {
    filter.push_back(load(offsetof(seccomp_data, arch)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, machine, 1, 0));
    filter.push_back(answer(SECCOMP_RET_KILL_PROCESS));
    filter.push_back(load(offsetof(seccomp_data, nr)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, 0x40000000, 0, 1));
    filter.push_back(answer(SECCOMP_RET_KILL_PROCESS));
}

Filter makeFilter() {
    constexpr __u32 writing = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;
    Filter filter;
    refuseOtherNumbering(filter);
    for (const long call : refusedCalls)
        refuse(filter, call);
    refuse(filter, SYS_clone3, absence);
    refuse(filter, SYS_openat2, absence);
    refuseForking(filter);
    refuseBits(filter, SYS_openat, 2, writing);
#ifdef SYS_open
    refuseBits(filter, SYS_open, 1, writing);
#endif
    filter.push_back(answer(SECCOMP_RET_ALLOW));
    return filter;
}

void filterSystemCalls() {
    auto filter = makeFilter();
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0);
}

} // namespace

void confine() {
    limitResources();
    filterSystemCalls();
}

void grantTime() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const rlim_t seconds = static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) + 1;
    const rlimit bounds{seconds + timeForQuestion, RLIM_INFINITY};
    setrlimit(RLIMIT_CPU, &bounds);
}
