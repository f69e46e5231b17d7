// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/CallConfinement.h"

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <memory>

namespace quorvane {
namespace {

constexpr std::array denied{
    // other programs and processes
    "execve", "execveat", "fork", "vfork", "ptrace", "process_vm_readv", "process_vm_writev",
    "process_madvise", "kcmp", "kill", "tkill", "pidfd_open", "pidfd_getfd", "pidfd_send_signal",
    "rt_sigqueueinfo", "rt_tgsigqueueinfo", "setpriority", "sched_setaffinity",
    // networks and other ways out
    "socket", "socketpair", "socketcall", "connect", "bind", "listen", "accept", "accept4", "sendto",
    "sendmsg", "sendmmsg", "msgget", "semget", "shmget", "mq_open", "vmsplice", "splice", "tee",
    // changes to files
    "creat", "truncate", "fallocate", "unlink", "unlinkat", "rename", "renameat", "renameat2", "link",
    "linkat", "symlink", "mkdir", "rmdir", "mknod", "mknodat", "chmod", "fchmod", "fchmodat", "fchmodat2",
    "chown", "fchown", "lchown", "fchownat", "utime", "utimes", "utimensat", "futimesat", "setxattr",
    "lsetxattr", "fsetxattr", "removexattr", "lremovexattr", "fremovexattr", "memfd_create", "memfd_secret",
    "inotify_init", "inotify_init1", "fanotify_init", "name_to_handle_at", "open_by_handle_at",
    // the system
    "mount", "umount2", "pivot_root", "chroot", "unshare", "setns", "fsopen", "fsmount", "fspick",
    "open_tree", "move_mount", "mount_setattr", "bpf", "perf_event_open", "userfaultfd", "io_uring_setup",
    "io_uring_enter", "io_uring_register", "keyctl", "add_key", "request_key", "init_module", "finit_module",
    "delete_module", "kexec_load", "kexec_file_load", "reboot", "swapon", "swapoff", "syslog", "acct",
    "quotactl", "settimeofday", "clock_settime", "clock_adjtime", "adjtimex", "personality", "iopl", "ioperm",
    "setuid", "setgid", "setreuid", "setregid", "setresuid", "setresgid", "setgroups", "setfsuid", "setfsgid",
    "capset", "sethostname", "setdomainname"};

/// What the C library makes files with, beside openat.
constexpr std::array makingCalls{"mkdirat", "symlinkat"};

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

void add(const Filter &filter, std::uint32_t action, const char *call)
{
    const int number = seccomp_syscall_resolve_name(call);
    if (number != __NR_SCMP_ERROR)
        (void)seccomp_rule_add_array(filter.get(), action, number, 0, nullptr);
}

void add(const Filter &filter, const char *call, scmp_arg_cmp when)
{
    const int number = seccomp_syscall_resolve_name(call);
    if (number != __NR_SCMP_ERROR)
        (void)seccomp_rule_add_array(filter.get(), SCMP_ACT_ERRNO(EPERM), number, 1, &when);
}

void denyWriting(const Filter &filter, const char *call, unsigned argument)
{
    for (const int flag : {O_WRONLY, O_RDWR, O_CREAT, O_TRUNC}) {
        const auto bit = static_cast<scmp_datum_t>(flag);
        add(filter, call, scmp_arg_cmp{argument, SCMP_CMP_MASKED_EQ, bit, bit});
    }
}

} // namespace

void denySystemCalls(FileCalls allowed)
{
    const Filter filter(seccomp_init(SCMP_ACT_ALLOW), &seccomp_release);
    if (!filter)
        return;
    for (const char *call : denied)
        add(filter, SCMP_ACT_ERRNO(EPERM), call);
    denyWriting(filter, "open", 1);
    if (allowed == FileCalls::read) {
        denyWriting(filter, "openat", 2);
        for (const char *call : makingCalls)
            add(filter, SCMP_ACT_ERRNO(EPERM), call);
    }
    // Their arguments lie in memory, where no filter looks; the C library has older calls to fall back on.
    add(filter, SCMP_ACT_ERRNO(ENOSYS), "openat2");
    add(filter, SCMP_ACT_ERRNO(ENOSYS), "clone3");
    add(filter, "clone", scmp_arg_cmp{0, SCMP_CMP_MASKED_EQ, CLONE_THREAD, 0});
    // A process may end itself by a signal.
    add(filter, "tgkill", scmp_arg_cmp{0, SCMP_CMP_NE, static_cast<scmp_datum_t>(::getpid()), 0});
    (void)seccomp_load(filter.get());
}

} // namespace quorvane
