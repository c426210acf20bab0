// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Checks in a background thread whether a folder exists: a mount point whose server does not
// respond blocks that thread, not the window. User interface thread only.

#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "platform/background_task.h"

namespace quorbit {

class FolderProbe {
public:
    // `missing` is true if the folder certainly does not exist or the path is not a folder; false
    // also if this cannot be determined.
    using Answer = std::function<void(bool missing)>;

    FolderProbe() = default;
    // Does not block. The callback is not called afterwards.
    ~FolderProbe() { Drop(); }
    FolderProbe(const FolderProbe&) = delete;
    FolderProbe& operator=(const FolderProbe&) = delete;

    // `path` is a native path. Calls `answer` from the event loop, unless Ask or Drop is called
    // first or the system cannot create a thread.
    void Ask(const std::string& path, Answer answer);
    // Cancels the check.
    void Drop();

private:
    std::unique_ptr<QObject> m_receiver;  // receives the answer in the user interface thread
    BackgroundTask m_task;
};

}  // namespace quorbit
