// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A mounted file system whose server never answers: whoever touches it waits until it goes.

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
    // Mounts in a namespace of the calling thread and those that it starts, so that nothing is left
    // behind by a test that is killed. Needs root; IsMounted tells.
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
    // Whoever waits gets an error.
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
