// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What there is to say about the machine and this process. Any thread.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace quorbit {

// Full path of the program that runs; empty if that cannot be had.
[[nodiscard]] std::string ProgramPath();

enum class PathKind {
    Missing,
    File,     // a regular file
    Folder,   //
    Special,  // a device, FIFO or socket
    Unknown,  // access denied, or another error
};

// What a path names, links followed. May wait for a server.
[[nodiscard]] PathKind KindOfPath(const std::string& path);

// Physical memory in KB, 0 if that cannot be had.
[[nodiscard]] std::uint64_t PhysicalMemoryKb();

// Root folder of the volume that an absolute path lies on, found without touching the volume; empty
// if that cannot be told.
[[nodiscard]] std::string VolumeRootOf(const std::string& path);

// Space in KB that a user without rights may still fill on the file system of a path. Nothing if
// that cannot be had, or not in time: a server that does not answer holds nobody up.
[[nodiscard]] std::optional<std::uint64_t> FreeSpaceKb(const std::string& path,
                                                       std::chrono::milliseconds atMost);

}  // namespace quorbit
