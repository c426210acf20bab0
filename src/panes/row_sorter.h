// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Sorts the rows of the list of files; many of them in the background. User
// interface thread only.

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

    // As many rows are sorted at once.
    static constexpr int kFew = 5000;

    RowSorter() = default;
    // Gives up what is being sorted.
    ~RowSorter() { Cancel(); }
    RowSorter(const RowSorter&) = delete;
    RowSorter& operator=(const RowSorter&) = delete;

    // By StandsAbove; rows that are equal there keep their order. Gives up what is being sorted
    // before. deliver is called once: before this returns if there are few rows, else by the event
    // loop.
    void Start(FileRows rows, int column, Deliver deliver);
    // deliver is not called any more.
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return m_receiver != nullptr; }

private:
    void Finish(FileRows& rows);

    std::unique_ptr<QObject> m_receiver;  // of the thread's event; null if nothing is being sorted
    Deliver m_deliver;
    BackgroundTask m_task;
};

}  // namespace quorbit
