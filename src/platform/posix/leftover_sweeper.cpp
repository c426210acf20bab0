// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/leftover_sweeper.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>

#include "platform/posix/file_io.h"
#include "platform/posix/item_details.h"
#include "platform/posix/posix_listing.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

// Seconds. A copy without a lock might still be in progress, but not for a whole day.
constexpr time_t kOldEnough = 24 * 60 * 60;

// Checks the status change time, since the last-write time may already be that of the source.
bool IsOld(const struct stat& details)
{
    return details.st_ctim.tv_sec + kOldEnough < ::time(nullptr);
}

// Calls visit(name) for each leftover in a listing.
template <class Visit>
void ForEachLeftover(std::shared_ptr<const UniqueFd> folder, Visit visit)
{
    PosixListing listing(std::move(folder));
    FindData item;
    for (;;) {
        const Result<bool> more = listing.Next(item);
        if (!more || !*more) {
            return;
        }
        if (item.leftover) {
            visit(item.name);
        }
    }
}

// Removes a staging folder. It contains only unfinished copies.
void RemoveStaging(int parent, const std::string& name, UniqueFd folder)
{
    const auto shared = std::make_shared<const UniqueFd>(std::move(folder));
    ForEachLeftover(shared, [&shared](const std::string& copy) {
        (void)::unlinkat(shared->Get(), copy.c_str(), 0);
    });
    (void)::unlinkat(parent, name.c_str(), AT_REMOVEDIR);
}

void SweepOne(int folder, const std::string& name)
{
    const Result<struct stat> details = StatAt(folder, name);
    if (!details) {
        return;
    }
    const bool isStaging = S_ISDIR(details->st_mode);
    FileLock lock = FileLock::Unable;
    UniqueFd item;
    if (isStaging || S_ISREG(details->st_mode)) {
        item = UniqueFd(RetryInterrupted([&] {
            return ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        }));
        // A running copy holds the lock, so getting it proves that its process has ended.
        lock = item.IsOpen() ? LockNow(item.Get()) : FileLock::Unable;
    }
    if (lock == FileLock::Busy || (lock == FileLock::Unable && !IsOld(*details))) {
        return;
    }
    if (!isStaging) {
        (void)::unlinkat(folder, name.c_str(), 0);
    } else if (item.IsOpen()) {
        RemoveStaging(folder, name, std::move(item));
    }
}

}  // namespace

void SweepLeftovers(const PosixFolder& folder)
{
    Result<std::shared_ptr<const UniqueFd>> descriptor = folder.OpenForListing();
    if (descriptor) {
        ForEachLeftover(std::move(*descriptor), [&folder](const std::string& name) {
            SweepOne(folder.Descriptor(), name);
        });
    }
}

}  // namespace quorbit
