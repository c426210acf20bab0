// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Simulates a file system such as FAT, which has neither hard links nor anonymous files.

#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <iterator>

namespace quorbit {

// Makes link(2) and linkat(2) fail with EPERM, and O_TMPFILE with EOPNOTSUPP, for the rest of this
// process. Returns false if the system does not support such a filter.
inline bool ForbidHardLinks()
{
    constexpr unsigned kAnonymous = 020000000;  // __O_TMPFILE
    constexpr auto kFail = [](unsigned code) { return SECCOMP_RET_ERRNO | code; };
    const sock_filter rules[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_linkat, 4, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 0, 4),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, kAnonymous, 0, 2),
        BPF_STMT(BPF_RET | BPF_K, kFail(EOPNOTSUPP)),
        BPF_STMT(BPF_RET | BPF_K, kFail(EPERM)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program = {std::size(rules), const_cast<sock_filter*>(rules)};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

// Runs `call` in a child without hard links and returns its exit code, which must be below 100.
// Returns 100 if the system does not support this.
template <class Call>
int WithoutHardLinks(Call call)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(ForbidHardLinks() ? call() : 100);
    }
    int status = 0;
    const bool ended = child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status);
    return ended ? WEXITSTATUS(status) : -1;
}

}  // namespace quorbit
