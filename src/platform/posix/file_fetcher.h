// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Has the beginnings of files read into the system's memory by a thread of its own, before whoever
// works on the files gets to them. It changes nothing on the disk, and what it cannot open it
// leaves: the worker will see for itself.
//
// The thread starts with the first request. All functions are for one thread at a time.

#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <thread>

#include "platform/find_data.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class FileFetcher {
public:
    using SharedFd = std::shared_ptr<const UniqueFd>;

    FileFetcher() = default;
    // Drops what is waiting; waits for the one request that is being served.
    ~FileFetcher();
    FileFetcher(const FileFetcher&) = delete;
    FileFetcher& operator=(const FileFetcher&) = delete;

    // Takes a note of a regular file, or of a folder, whose listing is read then. folder: the open
    // folder that it lies in. Does not wait. Requests beyond a fixed number are dropped.
    void Fetch(SharedFd folder, const FindData& item);

    // How many files in a row were found in memory already.
    [[nodiscard]] std::size_t InVain() const { return m_inVain.load(std::memory_order_relaxed); }

private:
    struct Request {
        SharedFd folder;
        std::string name;
    };

    void Work(const std::stop_token& stop);
    // False if there is nothing to do any more.
    bool Next(const std::stop_token& stop, Request& request, bool& isFolder);
    void FetchFile(const Request& request);
    static void FetchListing(const Request& request);

    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    std::deque<Request> m_files;
    std::deque<Request> m_folders;  // after the files: those are needed sooner
    std::atomic<std::size_t> m_inVain = 0;
    std::jthread m_thread;  // last: it uses all of the above
};

}  // namespace quorbit
