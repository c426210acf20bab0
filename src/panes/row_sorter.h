// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Sorts the rows of the file list, large lists in a background thread. User interface thread only.

#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "panes/file_list_model.h"
#include "platform/background_task.h"

namespace quorbit {

class RowSorter {
public:
    using Deliver = std::function<void(std::vector<const ShellListItem*>)>;

    // Up to this many rows are sorted synchronously.
    static constexpr int kFew = 5000;

    RowSorter() = default;
    // Cancels a sort in progress.
    ~RowSorter() { Cancel(); }
    RowSorter(const RowSorter&) = delete;
    RowSorter& operator=(const RowSorter&) = delete;

    // Starts a stable sort by StandsAbove and cancels the one in progress. `deliver` is called
    // once: before this function returns if there are at most kFew rows or no thread can be
    // created, otherwise from the event loop.
    void Start(FileRows rows, int column, Deliver deliver);
    // Cancels the sort; `deliver` is not called.
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return m_receiver != nullptr; }

private:
    void Finish(FileRows& rows);

    std::unique_ptr<QObject> m_receiver;  // of the thread's event; null unless sorting
    Deliver m_deliver;
    BackgroundTask m_task;
};

}  // namespace quorbit
