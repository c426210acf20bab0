// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/native.h"

#include <utility>

#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process_runner.h"

namespace quorbit {

std::unique_ptr<FileSystem> MakeFileSystem(DriveMap drives)
{
    return std::make_unique<PosixFileSystem>(std::move(drives));
}

std::unique_ptr<ProcessRunner> MakeProcessRunner(std::uint64_t openFileLimit)
{
    return std::make_unique<PosixProcessRunner>(openFileLimit);
}

}  // namespace quorbit
