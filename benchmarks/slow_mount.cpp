// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/slow_mount.h"

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <thread>
#include <utility>

#include "benchmarks/timed_run.h"

namespace quorbit::bench {
namespace {

constexpr const char* kMicroseconds = "1000";

dev_t DeviceOf(const std::string& path)
{
    struct stat details = {};
    return stat(path.c_str(), &details) == 0 ? details.st_dev : 0;
}

}  // namespace

SlowMount::SlowMount(const std::string& program, const std::string& folder, std::string mountPoint)
    : m_mountPoint(std::move(mountPoint))
{
    const dev_t before = DeviceOf(m_mountPoint);
    const std::array<const char*, 5> arguments{program.c_str(), folder.c_str(),
                                               m_mountPoint.c_str(), kMicroseconds, nullptr};
    if (posix_spawn(&m_process, program.c_str(), nullptr, nullptr,
                    const_cast<char* const*>(arguments.data()), environ) != 0) {
        GiveUp("cannot start " + program);
    }
    for (int attempt = 0; DeviceOf(m_mountPoint) == before; ++attempt) {
        if (attempt == 500) {
            GiveUp("cannot mount " + m_mountPoint);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

SlowMount::~SlowMount()
{
    (void)RunTimed({{{"fusermount3", "-u", m_mountPoint}, {}}});
    int status = 0;
    (void)waitpid(m_process, &status, 0);
}

bool SlowMount::IsPossible(const std::string& program)
{
    return access(program.c_str(), X_OK) == 0 && access("/dev/fuse", R_OK | W_OK) == 0;
}

}  // namespace quorbit::bench
