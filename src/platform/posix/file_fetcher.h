// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Prefetches the start of files and the listings of folders in a background thread. Changes nothing
// on the disk. Errors are ignored, since the worker thread will report them.
//
// One thread at a time. The background thread starts with the first request.

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
    // Drops queued requests and waits for the one in progress.
    ~FileFetcher();
    FileFetcher(const FileFetcher&) = delete;
    FileFetcher& operator=(const FileFetcher&) = delete;

    // Queues a regular file, or a folder to list. folder: the open folder that contains the item.
    // Does not block. Requests beyond a fixed number are dropped.
    void Fetch(SharedFd folder, const FindData& item);

    // Returns the number of consecutive files that were already cached.
    [[nodiscard]] std::size_t InVain() const { return m_inVain.load(std::memory_order_relaxed); }

private:
    struct Request {
        SharedFd folder;
        std::string name;
    };

    void Work(const std::stop_token& stop);
    // Waits for a request. Returns false on a stop request.
    bool Next(const std::stop_token& stop, Request& request, bool& isFolder);
    void FetchFile(const Request& request);
    static void FetchListing(const Request& request);

    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    std::deque<Request> m_files;
    std::deque<Request> m_folders;  // served after m_files, which are needed sooner
    std::atomic<std::size_t> m_inVain = 0;
    std::jthread m_thread;  // last member: uses all of the above
};

}  // namespace quorbit
