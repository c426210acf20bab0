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

constexpr time_t kOldEnough = 24 * 60 * 60;

// The status change, since the last-write time is already that of the source.
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
