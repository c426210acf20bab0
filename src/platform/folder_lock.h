// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A lock by which writers of the files of one folder take turns, in this process and in others.

#pragma once

#include <memory>
#include <string>

#include "platform/error.h"

namespace quorbit {

// Held until it is destroyed, or until the process ends, however it ends.
class FolderLock {
public:
    virtual ~FolderLock() = default;
};

// Waits for as long as somebody else holds the lock of the folder. Where the file system has no
// locks, every caller holds one.
Result<std::unique_ptr<FolderLock>> LockFolder(const std::string& path);

}  // namespace quorbit
