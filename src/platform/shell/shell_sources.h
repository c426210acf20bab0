// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Where the shell namespace has its knowledge of the machine from.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/path_text.h"
#include "platform/posix/mount_table.h"

namespace quorbit {

struct ShellSources {
    // The mount table as it is now. Called in any thread; must touch no mount point.
    std::function<Result<std::vector<MountEntry>>()> readMounts;
    // The user's desktop folder, native and absolute; empty if there is none.
    std::string desktopFolder;
    DriveMap drives;
    // Where devices are, with closing separator.
    std::string deviceFolder = "/dev/";
};

// Those of this machine and of the user who runs the program. The desktop folder is read from the
// user's settings, once.
[[nodiscard]] ShellSources SystemShellSources(DriveMap drives);

}  // namespace quorbit
