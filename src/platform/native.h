// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes the implementations of this system, so that no code above platform names one of them.

#pragma once

#include <cstdint>
#include <memory>

#include "platform/file_system.h"
#include "platform/path_text.h"
#include "platform/process_runner.h"

namespace quorbit {

// drives: where the drives of drive paths are.
[[nodiscard]] std::unique_ptr<FileSystem> MakeFileSystem(DriveMap drives = {});

// openFileLimit: how many files a started program may have open, since programs that are not made
// for it do not expect the high limit of this process; see RaiseOpenFileLimit. 0 leaves it alone.
[[nodiscard]] std::unique_ptr<ProcessRunner> MakeProcessRunner(std::uint64_t openFileLimit = 0);

}  // namespace quorbit
