// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/system_facts.h"

#include <limits.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <future>
#include <memory>
#include <utility>

#include "platform/background_task.h"
#include "platform/posix/mount_table.h"

namespace quorbit {
namespace {

constexpr std::uint64_t kKb = 1024;

std::optional<std::uint64_t> AskFreeSpaceKb(const std::string& path)
{
    struct statvfs facts {};
    if (::statvfs(path.c_str(), &facts) != 0) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(facts.f_bavail) * facts.f_frsize / kKb;
}

}  // namespace

std::string ProgramPath()
{
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof(path));  // proc(5)
    return length > 0 ? std::string(path, static_cast<std::size_t>(length)) : std::string();
}

PathKind KindOfPath(const std::string& path)
{
    struct stat details {};
    if (::stat(path.c_str(), &details) != 0) {
        return errno == ENOENT || errno == ENOTDIR ? PathKind::Missing : PathKind::Unknown;
    }
    if (S_ISDIR(details.st_mode)) {
        return PathKind::Folder;
    }
    return S_ISREG(details.st_mode) ? PathKind::File : PathKind::Special;
}

std::uint64_t PhysicalMemoryKb()
{
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long pageSize = ::sysconf(_SC_PAGESIZE);
    if (pages <= 0 || pageSize <= 0) {
        return 0;
    }
    return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize) / kKb;
}

std::string VolumeRootOf(const std::string& path)
{
    const auto table = ReadMountTable();
    if (!table) {
        return {};
    }
    const std::vector<MountEntry> mounts = VisibleMounts(*table);
    const MountEntry* mount = MountOf(mounts, path);
    return mount != nullptr ? mount->mountPoint : std::string();
}

std::optional<std::uint64_t> FreeSpaceKb(const std::string& path, std::chrono::milliseconds atMost)
{
    // statvfs(2) may block on a server. After a timeout the abandoned thread keeps its share of the
    // task.
    const auto task = std::make_shared<std::packaged_task<std::optional<std::uint64_t>()>>(
        [path] { return AskFreeSpaceKb(path); });
    auto answer = task->get_future();
    BackgroundTask asking;
    const bool started = asking.Start([task](auto&) { (*task)(); });
    return started && answer.wait_for(atMost) == std::future_status::ready ? answer.get()
                                                                           : std::nullopt;
}

}  // namespace quorbit
