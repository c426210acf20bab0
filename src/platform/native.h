// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates the implementations for this system, so that the layers above name none of them.

#pragma once

#include <cstdint>
#include <memory>

#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/process_runner.h"

namespace quorbit {

// drives: maps drives and shares to native folders.
[[nodiscard]] std::unique_ptr<FileSystem> MakeFileSystem(DriveMap drives = {});

// openFileLimit: limit of open files for started programs, since programs that use select(2) do not
// expect the high limit of this process; see RaiseOpenFileLimit. 0 keeps the current limit.
[[nodiscard]] std::unique_ptr<ProcessRunner> MakeProcessRunner(std::uint64_t openFileLimit = 0);

}  // namespace quorbit
