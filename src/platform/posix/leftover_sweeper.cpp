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

void SweepOne(int folder, const std::string& name)
{
    const Result<struct stat> details = StatAt(folder, name);
    if (!details || S_ISDIR(details->st_mode)) {
        return;
    }
    FileLock lock = FileLock::Unable;
    UniqueFd file;
    if (S_ISREG(details->st_mode)) {
        file = UniqueFd(RetryInterrupted([&] {
            return ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        }));
        // A running copy holds the lock, so getting it proves that its process has ended.
        lock = file.IsOpen() ? LockNow(file.Get()) : FileLock::Unable;
    }
    if (lock == FileLock::Held || (lock == FileLock::Unable && IsOld(*details))) {
        (void)::unlinkat(folder, name.c_str(), 0);
    }
}

}  // namespace

void SweepLeftovers(const PosixFolder& folder)
{
    Result<std::shared_ptr<const UniqueFd>> descriptor = folder.OpenForListing();
    if (!descriptor) {
        return;
    }
    PosixListing listing(std::move(*descriptor));
    FindData item;
    for (;;) {
        const Result<bool> more = listing.Next(item);
        if (!more || !*more) {
            return;
        }
        if (item.leftover) {
            SweepOne(folder.Descriptor(), item.name);
        }
    }
}

}  // namespace quorbit
