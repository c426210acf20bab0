// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The system data that the shell namespace is built from; replaceable by tests.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/path_text.h"
#include "platform/posix/mount_table.h"

namespace quorbit {

struct ShellSources {
    // Returns the current mount table. Called in any thread; must not access mount points.
    std::function<Result<std::vector<MountEntry>>()> readMounts;
    // The user's desktop folder, native and absolute; empty if there is none.
    std::string desktopFolder;
    DriveMap drives;
    // Folder of device files, with trailing separator.
    std::string deviceFolder = "/dev/";
};

// Returns the sources of this machine and the current user. Reads the desktop folder from the
// user's settings once.
[[nodiscard]] ShellSources SystemShellSources(DriveMap drives);

}  // namespace quorbit
