// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/file_fetcher.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace quorbit {
namespace {

constexpr std::size_t kMostWaiting = 512;  // requests of each kind
// Bytes to prefetch of one file. The kernel's own readahead continues from there once the file is
// read sequentially.
constexpr off_t kMostOfOneFile = off_t{256} * 1024;  // bytes
constexpr std::size_t kListingBuffer = std::size_t{32} * 1024;

// The process's signals must be handled by its other threads, not interrupt this one.
void BlockSignals()
{
    sigset_t all;
    ::sigfillset(&all);
    (void)::pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

UniqueFd OpenIn(int folder, const std::string& name, int flags)
{
    return UniqueFd(
        ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | flags));
}

// Reading one byte with RWF_NOWAIT fails with EAGAIN if the page is not cached. Other errors
// (EOPNOTSUPP on old file systems) count as cached, since prefetching then cannot be judged.
bool IsInMemory(int file)
{
    char byte = 0;
    const iovec into = {&byte, 1};
    return ::preadv2(file, &into, 1, 0, RWF_NOWAIT) >= 0 || errno != EAGAIN;
}

}  // namespace

FileFetcher::~FileFetcher()
{
    if (m_thread.joinable()) {
        m_thread.request_stop();
        m_thread.join();
    }
}

void FileFetcher::Fetch(SharedFd folder, const FindData& item)
{
    if (item.kind != ItemKind::File && item.kind != ItemKind::Folder) {
        return;
    }
    if (!m_thread.joinable()) {
        m_thread = std::jthread([this](const std::stop_token& stop) { Work(stop); });
    }
    bool wasIdle = false;
    {
        const std::scoped_lock lock(m_mutex);
        wasIdle = m_files.empty() && m_folders.empty();
        auto& waiting = item.kind == ItemKind::File ? m_files : m_folders;
        if (waiting.size() < kMostWaiting) {
            waiting.push_back({std::move(folder), item.name});
        }
    }
    if (wasIdle) {
        m_wake.notify_one();
    }
}

void FileFetcher::Work(const std::stop_token& stop)
{
    BlockSignals();
    Request request;
    bool isFolder = false;
    while (Next(stop, request, isFolder)) {
        if (isFolder) {
            FetchListing(request);
        } else {
            FetchFile(request);
        }
        request.folder.reset();
    }
}

bool FileFetcher::Next(const std::stop_token& stop, Request& request, bool& isFolder)
{
    std::unique_lock lock(m_mutex);
    const bool any =
        m_wake.wait(lock, stop, [this] { return !m_files.empty() || !m_folders.empty(); });
    if (!any || stop.stop_requested()) {
        return false;
    }
    isFolder = m_files.empty();
    auto& waiting = isFolder ? m_folders : m_files;
    request = std::move(waiting.front());
    waiting.pop_front();
    return true;
}

void FileFetcher::FetchFile(const Request& request)
{
    const UniqueFd file = OpenIn(request.folder->Get(), request.name, 0);
    if (!file.IsOpen()) {
        return;
    }
    if (IsInMemory(file.Get())) {
        m_inVain.fetch_add(1, std::memory_order_relaxed);
        return;
    }
    m_inVain.store(0, std::memory_order_relaxed);
    // Starts the read without waiting for it, so that the disk can serve several files at once.
    (void)::posix_fadvise(file.Get(), 0, kMostOfOneFile, POSIX_FADV_WILLNEED);
}

// Discards the entries; reading them brings the folder's blocks into the page cache.
void FileFetcher::FetchListing(const Request& request)
{
    const UniqueFd folder = OpenIn(request.folder->Get(), request.name, O_DIRECTORY);
    std::array<std::byte, kListingBuffer> buffer;
    while (folder.IsOpen() &&
           ::syscall(SYS_getdents64, folder.Get(), buffer.data(), buffer.size()) > 0) {
    }
}

}  // namespace quorbit
