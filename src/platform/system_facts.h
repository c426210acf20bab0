// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Facts about the machine and this process. Any thread.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace quorbit {

// Returns the full path of the running program; empty if it cannot be determined.
[[nodiscard]] std::string ProgramPath();

enum class PathKind {
    Missing,
    File,  // a regular file
    Folder,
    Special,  // a device, FIFO or socket
    Unknown,  // access denied, or another error
};

// Returns the kind of item at a path. Follows links. May block on a server that does not respond.
[[nodiscard]] PathKind KindOfPath(const std::string& path);

// Returns the physical memory in KB (1024 bytes), or 0 if unknown.
[[nodiscard]] std::uint64_t PhysicalMemoryKb();

// Returns the mount point of the volume that contains an absolute path, without accessing the
// volume; empty if it cannot be determined.
[[nodiscard]] std::string VolumeRootOf(const std::string& path);

// Returns the space in KB (1024 bytes) available to unprivileged users on the file system of a
// path. nullopt on an error or after `atMost`, so that an unresponsive server does not block the
// caller.
[[nodiscard]] std::optional<std::uint64_t> FreeSpaceKb(const std::string& path,
                                                       std::chrono::milliseconds atMost);

}  // namespace quorbit
