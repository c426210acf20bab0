// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_source_file.h"

#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/posix/item_details.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

// Waits 5 seconds at most.
constexpr std::chrono::milliseconds kLeaseStep{20};
constexpr int kLeaseSteps = 250;

// O_NONBLOCK: do not wait for a writer if the file was replaced by a FIFO.
int OpenNonBlocking(int folder, const char* name)
{
    return RetryInterrupted(
        [&] { return ::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC); });
}

}  // namespace

Result<std::unique_ptr<SourceFile>> PosixSourceFile::Open(const PosixFolder& folder,
                                                          const FindData& item, ReadAhead readAhead)
{
    std::unique_ptr<PosixSourceFile> file(new PosixSourceFile(folder, item));
    if (file->m_data.kind != ItemKind::File) {
        if (Status read = file->ReadStat(); !read) {
            return read.GetError();
        }
    }
    if (file->m_data.kind == ItemKind::File) {
        if (Status opened = file->OpenRegular(); !opened) {
            return opened.GetError();
        }
    }
    if (file->m_data.kind == ItemKind::Folder) {
        return ErrorFromErrno(EISDIR);
    }
    if (file->m_descriptor.IsOpen() && readAhead == ReadAhead::Start && file->m_data.size > 0) {
        file->StartReading();
    }
    return std::unique_ptr<SourceFile>(std::move(file));
}

Status PosixSourceFile::ReadStat()
{
    const Result<struct stat> details = StatAt(m_folder.Descriptor(), m_data.name);
    if (!details) {
        return details.GetError();
    }
    m_stat = *details;
    FillDetails(m_stat, m_data);
    return {};
}

Status PosixSourceFile::OpenRegular()
{
    const char* name = m_data.name.c_str();
    int fd = OpenNonBlocking(m_folder.Descriptor(), name);
    // Another process, such as a file server, holds a lease on the file. The failed open(2) has
    // asked it to release the lease, so try again; see fcntl(2), "Leases".
    for (int step = 0; fd < 0 && errno == EWOULDBLOCK && step < kLeaseSteps; ++step) {
        std::this_thread::sleep_for(kLeaseStep);
        fd = OpenNonBlocking(m_folder.Descriptor(), name);
    }
    if (fd < 0) {
        // The file was replaced by a link (ELOOP) or a socket (ENXIO). Copy that instead.
        const Error error = LastError();
        const bool replaced = error.Code() == ELOOP || error.Code() == ENXIO;
        if (!replaced) {
            return error;
        }
        const Status read = ReadStat();
        return read && m_data.kind == ItemKind::File ? Status(error) : read;
    }
    m_descriptor = UniqueFd(fd);
    if (::fstat(fd, &m_stat) != 0) {
        return LastError();
    }
    FillDetails(m_stat, m_data);
    if (m_data.kind != ItemKind::File) {
        m_descriptor.Close();
    }
    return {};
}

void PosixSourceFile::StartReading()
{
    char byte = 0;
    const iovec into = {&byte, 1};
    // Reading one byte with RWF_NOWAIT shows whether the file is cached, without waiting for the
    // disk.
    if (::preadv2(m_descriptor.Get(), &into, 1, 0, RWF_NOWAIT) < 0 && errno == EAGAIN) {
        m_bCached = false;
        (void)::posix_fadvise(m_descriptor.Get(), 0, 0, POSIX_FADV_WILLNEED);
    }
}

Result<std::string> PosixSourceFile::LinkTarget() const
{
    // st_size is only a hint: some file systems report 0, and the link may have been replaced.
    std::string target(static_cast<std::size_t>(m_stat.st_size) + 1, '\0');
    for (;;) {
        const ssize_t got = RetryInterrupted([&] {
            return ::readlinkat(m_folder.Descriptor(), m_data.name.c_str(), target.data(),
                                target.size());
        });
        if (got < 0) {
            return LastError();
        }
        if (static_cast<std::size_t>(got) < target.size()) {
            target.resize(static_cast<std::size_t>(got));
            return target;
        }
        target.resize(target.size() * 2 + 64);
    }
}

}  // namespace quorbit
