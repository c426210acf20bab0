// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/content_copier.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr std::size_t kCopyBufferSize = std::size_t{256} * 1024;
// Below this size one read and one write are cheaper than FICLONE or copy_file_range(2).
constexpr std::uint64_t kRangeFrom = std::uint64_t{64} * 1024;
// Bytes between two progress calls. Measured to be as fast as chunks of 1 GB.
constexpr std::uint64_t kPiece = std::uint64_t{4} * 1024 * 1024;
// The smallest hole worth searching for.
constexpr std::uint64_t kPage = 4096;

void Report(const ContentJob& job, std::uint64_t bytes)
{
    if (job.progress != nullptr && bytes > 0) {
        job.progress->OnBytesCopied(bytes);
    }
}

bool HasHoles(const ContentJob& job)
{
    return job.allocated + kPage <= job.size;
}

Status WriteAt(int to, const std::byte* data, std::size_t size, std::uint64_t offset)
{
    while (size > 0) {
        const ssize_t put =
            RetryInterrupted([&] { return ::pwrite(to, data, size, static_cast<off_t>(offset)); });
        if (put <= 0) {
            return put < 0 ? LastError() : ErrorFromErrno(EIO);
        }
        data += put;
        size -= static_cast<std::size_t>(put);
        offset += static_cast<std::uint64_t>(put);
    }
    return {};
}

// Errors with which copy_file_range(2) and FICLONE refuse this pair of files, as opposed to I/O
// errors.
bool RefusesFiles(int code)
{
    return code == EXDEV || code == EINVAL || code == ENOSYS || code == EOPNOTSUPP ||
           code == EBADF || code == EPERM || code == ETXTBSY;
}

Result<std::uint64_t> SizeNow(int fd)
{
    struct stat details = {};
    if (::fstat(fd, &details) != 0) {
        return LastError();
    }
    return static_cast<std::uint64_t>(details.st_size);
}

}  // namespace

std::byte* ContentCopier::Buffer()
{
    if (!m_buffer) {
        m_buffer = std::make_unique_for_overwrite<std::byte[]>(kCopyBufferSize);
    }
    return m_buffer.get();
}

Status ContentCopier::Copy(const ContentJob& job)
{
    const bool hasHoles = HasHoles(job);
    if (job.size < kRangeFrom && !hasHoles) {
        return StreamToEnd(job, 0);
    }
    if (Clone(job)) {
        Report(job, job.size);
        return {};
    }
    const Result<std::uint64_t> reached = hasHoles ? CopyExtents(job) : CopyRange(job, 0, job.size);
    if (!reached) {
        return reached.GetError();
    }
    return *reached < job.size ? Status() : StreamToEnd(job, job.size);
}

bool ContentCopier::Clone(const ContentJob& job)
{
    if (job.facts.cloneRefused) {
        return false;
    }
    // See ioctl_ficlone(2): shares the extents, so no data is copied and holes are kept.
    if (::ioctl(job.to, FICLONE, job.from) == 0) {
        return true;
    }
    job.facts.cloneRefused = RefusesFiles(errno) || errno == ENOTTY;
    return false;
}

// Returns the offset reached; less than end if the source ends earlier.
Result<std::uint64_t> ContentCopier::CopyRange(const ContentJob& job, std::uint64_t offset,
                                               std::uint64_t end)
{
    while (offset < end && !job.facts.rangeRefused) {
        auto in = static_cast<off_t>(offset);
        auto out = static_cast<off_t>(offset);
        const ssize_t copied = RetryInterrupted([&] {
            return ::copy_file_range(job.from, &in, job.to, &out, std::min(end - offset, kPiece),
                                     0);
        });
        if (copied < 0 && !RefusesFiles(errno)) {
            return LastError();
        }
        if (copied < 0) {
            job.facts.rangeRefused = true;
        } else if (copied == 0) {
            // The end of the source, or a file system that returns 0 instead of an error. Stream()
            // reads from here and finds out which.
            break;
        } else {
            offset += static_cast<std::uint64_t>(copied);
            Report(job, static_cast<std::uint64_t>(copied));
        }
    }
    return Stream(job, offset, end);
}

Result<std::uint64_t> ContentCopier::Stream(const ContentJob& job, std::uint64_t offset,
                                            std::uint64_t end)
{
    std::byte* buffer = Buffer();
    while (offset < end) {
        const std::size_t wanted = std::min<std::uint64_t>(end - offset, kCopyBufferSize);
        const ssize_t got = RetryInterrupted(
            [&] { return ::pread(job.from, buffer, wanted, static_cast<off_t>(offset)); });
        if (got < 0) {
            return LastError();
        }
        if (got == 0) {
            break;
        }
        const auto size = static_cast<std::size_t>(got);
        if (Status written = WriteAt(job.to, buffer, size, offset); !written) {
            return written.GetError();
        }
        offset += size;
        Report(job, size);
    }
    return offset;
}

Status ContentCopier::StreamToEnd(const ContentJob& job, std::uint64_t offset)
{
    std::byte* buffer = Buffer();
    std::uint64_t limit = job.size;
    bool asked = false;
    for (;;) {
        const ssize_t got = RetryInterrupted(
            [&] { return ::pread(job.from, buffer, kCopyBufferSize, static_cast<off_t>(offset)); });
        if (got < 0) {
            return LastError();
        }
        if (got == 0) {
            return {};
        }
        const auto size = static_cast<std::size_t>(got);
        if (Status written = WriteAt(job.to, buffer, size, offset); !written) {
            return written;
        }
        offset += size;
        Report(job, size);
        if (offset > limit && !asked) {
            // The source has grown. Copy to its current end, but check the size only once, since a
            // writer may append for ever. Generated files (/proc, /sys) report size 0 and are read
            // to their end.
            const Result<std::uint64_t> now = SizeNow(job.from);
            if (!now) {
                return now.GetError();
            }
            limit = *now > 0 ? *now : std::numeric_limits<std::uint64_t>::max();
            asked = true;
        }
        if (offset >= limit) {
            return {};
        }
    }
}

Result<std::uint64_t> ContentCopier::CopyExtents(const ContentJob& job)
{
    std::uint64_t offset = 0;
    while (offset < job.size) {
        const off_t data = ::lseek(job.from, static_cast<off_t>(offset), SEEK_DATA);
        if (data < 0 && errno != ENXIO) {
            return CopyRange(job, offset, job.size);  // SEEK_DATA is not supported
        }
        const auto begin =
            data < 0 ? job.size : std::min(job.size, static_cast<std::uint64_t>(data));
        Report(job, begin - offset);
        offset = begin;
        if (offset == job.size) {
            break;
        }
        const off_t hole = ::lseek(job.from, data, SEEK_HOLE);
        const auto end = hole < 0 ? job.size : std::min(job.size, static_cast<std::uint64_t>(hole));
        const Result<std::uint64_t> reached = CopyRange(job, offset, end);
        if (!reached) {
            return reached;
        }
        if (*reached < end) {
            break;
        }
        offset = end;
    }
    const Result<std::uint64_t> now = SizeNow(job.from);
    if (!now) {
        return now;
    }
    const std::uint64_t end = std::min(*now, job.size);
    if (RetryInterrupted([&] { return ::ftruncate(job.to, static_cast<off_t>(end)); }) != 0) {
        return LastError();
    }
    return end;
}

}  // namespace quorbit
