// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Determines in a background thread what a path names: a mount point whose server does not
// respond blocks that thread, not the window. User interface thread only.

#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "platform/background_task.h"
#include "platform/system_facts.h"

namespace quorbit {

class FolderProbe {
public:
    // PathKind::Unknown also if the system cannot create a thread.
    using Answer = std::function<void(PathKind kind)>;

    FolderProbe() = default;
    // Does not block. The callback is not called afterwards.
    ~FolderProbe() { Drop(); }
    FolderProbe(const FolderProbe&) = delete;
    FolderProbe& operator=(const FolderProbe&) = delete;

    // `path` is a native path. Calls `answer` from the event loop, unless Ask or Drop is called
    // first or the disk never responds.
    void Ask(const std::string& path, Answer answer);
    // Cancels the check.
    void Drop();

private:
    std::unique_ptr<QObject> m_receiver;  // receives the answer in the user interface thread
    BackgroundTask m_task;
};

}  // namespace quorbit
