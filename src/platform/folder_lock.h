// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A lock that serialises writers of the files of one folder, within and across processes.

#pragma once

#include <memory>
#include <string>

#include "platform/error.h"

namespace quorbit {

// Holds the lock until it is destroyed or the process ends, even by a kill.
class FolderLock {
public:
    virtual ~FolderLock() = default;
};

// Waits until the lock of the folder is free. On file systems without locks, returns at once
// without locking. Fails if the folder cannot be opened. Any thread.
Result<std::unique_ptr<FolderLock>> LockFolder(const std::string& path);

}  // namespace quorbit
