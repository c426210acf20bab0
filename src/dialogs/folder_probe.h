// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Looks whether there is a folder, in a thread of its own: a mount point whose server is gone holds
// up that thread and no window.

#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "platform/background_task.h"

namespace quorbit {

// User interface thread only.
class FolderProbe {
public:
    // missing: there is certainly no such folder; what could not be told counts as there.
    using Answer = std::function<void(bool missing)>;

    FolderProbe() = default;
    // Returns at once. No answer comes any more.
    ~FolderProbe() { Drop(); }
    FolderProbe(const FolderProbe&) = delete;
    FolderProbe& operator=(const FolderProbe&) = delete;

    // path: native. The answer comes by the event loop, unless another question came meanwhile.
    void Ask(const std::string& path, Answer answer);
    // Forgets the question.
    void Drop();

private:
    std::unique_ptr<QObject> m_receiver;  // of the answer, in the user interface thread
    BackgroundTask m_task;
};

}  // namespace quorbit
