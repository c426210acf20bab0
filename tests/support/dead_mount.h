// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Mounts a FUSE file system whose server never answers, so every access blocks until it is
// unmounted.

#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <string>

#include "platform/posix/unique_fd.h"

namespace quorbit {

class DeadMount {
public:
    // Mounts in a private mount namespace of the calling thread and the threads that it starts, so
    // that a killed test leaves no mount behind. Needs root and /dev/fuse; check IsMounted().
    explicit DeadMount(std::string point)
        : m_strPoint(std::move(point)), m_server(::open("/dev/fuse", O_RDWR | O_CLOEXEC))
    {
        if (!m_server.IsOpen() || ::unshare(CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
            return;
        }
        const std::string options =
            "fd=" + std::to_string(m_server.Get()) + ",rootmode=40000,user_id=0,group_id=0";
        m_bMounted = ::mount("dead:/x", m_strPoint.c_str(), "fuse.sshfs", 0, options.c_str()) == 0;
    }
    // Unmounts and closes /dev/fuse; blocked accesses then fail.
    ~DeadMount()
    {
        if (m_bMounted) {
            ::umount2(m_strPoint.c_str(), MNT_DETACH);
        }
    }
    DeadMount(const DeadMount&) = delete;
    DeadMount& operator=(const DeadMount&) = delete;

    [[nodiscard]] bool IsMounted() const { return m_bMounted; }

private:
    std::string m_strPoint;
    UniqueFd m_server;
    bool m_bMounted = false;
};

}  // namespace quorbit
