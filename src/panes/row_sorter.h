// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Sorts the rows of the list of files; many of them in a thread that nobody waits for. User
// interface thread only.

#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "panes/file_list_model.h"

namespace quorbit {

class RowSorter {
public:
    using Deliver = std::function<void(std::vector<const ShellListItem*>)>;

    // As many rows are sorted at once.
    static constexpr int kFew = 5000;

    RowSorter();
    // Gives up what is being sorted.
    ~RowSorter();
    RowSorter(const RowSorter&) = delete;
    RowSorter& operator=(const RowSorter&) = delete;

    // By StandsAbove; rows that are equal there keep their order. Gives up what is being sorted
    // before. deliver is called once: before this returns if there are few rows, else by the event
    // loop.
    void Start(FileRows rows, int column, Deliver deliver);
    // deliver is not called any more.
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return m_job != nullptr; }

private:
    struct Job;
    void OnPoll();

    std::shared_ptr<Job> m_job;  // shared with the thread, which may outlive this object
    Deliver m_deliver;
    QTimer m_poll;
};

}  // namespace quorbit
