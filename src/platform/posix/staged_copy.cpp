// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/staged_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "platform/leftover_name.h"
#include "platform/posix/file_io.h"
#include "platform/posix/item_details.h"
#include "platform/posix/placement.h"
#include "platform/posix/rename_new.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr int kNameAttempts = 16;

// Errors that mean that O_TMPFILE, or linking such a file, is not supported here. ENOENT and EXDEV
// occur if /proc is not mounted or the kernel refuses to link.
bool RefusesAnonymousFiles(int code)
{
    return code == EOPNOTSUPP || code == EISDIR || code == EINVAL || code == ENOSYS ||
           code == ENOENT || code == EXDEV;
}

}  // namespace

StagedCopy::~StagedCopy()
{
    if (!m_strName.empty()) {
        (void)::unlinkat(m_named->Descriptor(), m_strName.c_str(), 0);
    }
}

Status StagedCopy::Open(mode_t permissions)
{
    PosixVolume& volume = m_folder.Volume();
    if (volume.takesAnonymousFiles) {
        Status opened = OpenAnonymous(permissions);
        if (opened) {
            return opened;
        }
        // In a folder that was deleted, O_TMPFILE fails with ENOENT or, on some file systems,
        // EPERM. This does not mean that the volume lacks support.
        const int code = opened.GetError().Code();
        if (!RefusesAnonymousFiles(code) && code != EPERM) {
            return opened;
        }
        volume.takesAnonymousFiles = code == ENOENT || code == EPERM;
    }
    return OpenNamed(permissions);
}

Status StagedCopy::OpenAnonymous(mode_t permissions)
{
    const mode_t mode = permissions | S_IRUSR | S_IWUSR;
    m_descriptor = UniqueFd(RetryInterrupted([&] {
        return ::openat(m_folder.Descriptor(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    }));
    if (!m_descriptor.IsOpen()) {
        return LastError();
    }
    return ReadDetailsOfNew(mode);
}

Status StagedCopy::ReadDetailsOfNew(mode_t createdWith)
{
    const Result<NewFileDetails> details = m_folder.DetailsOfNew(m_descriptor.Get(), createdWith);
    if (!details) {
        return details.GetError();
    }
    m_details = *details;
    return {};
}

Status StagedCopy::OpenNamed(mode_t permissions)
{
    // Outside a private folder, others can open this file by its name, so allow no access until
    // owner and permissions are set.
    const bool isPrivate = m_folder.IsPrivate();
    const mode_t mode = (isPrivate ? permissions : 0) | S_IRUSR | S_IWUSR;
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        std::string name = MakeLeftoverName();
        m_descriptor = UniqueFd(RetryInterrupted([&] {
            return ::openat(m_folder.Descriptor(), name.c_str(),
                            O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        }));
        if (!m_descriptor.IsOpen()) {
            if (errno == EEXIST) {
                continue;
            }
            return LastError();
        }
        m_strName = std::move(name);
        if (isPrivate) {
            return ReadDetailsOfNew(mode);
        }
        // A sweep by another run may have deleted the file before it was locked. Try again with a
        // new name.
        (void)LockWaiting(m_descriptor.Get());
        struct stat details = {};
        if (::fstat(m_descriptor.Get(), &details) != 0) {
            return LastError();
        }
        if (details.st_nlink > 0) {
            m_details = {mode, details.st_mode & 07777U, details.st_uid, details.st_gid};
            return {};
        }
        m_strName.clear();
    }
    return ErrorFromErrno(EEXIST);
}

Status StagedCopy::LinkTo(const PosixFolder& into, const std::string& name)
{
    PosixVolume& volume = m_folder.Volume();
    const int folder = into.Descriptor();
    if (volume.linksByDescriptor) {
        if (::linkat(m_descriptor.Get(), "", folder, name.c_str(), AT_EMPTY_PATH) == 0) {
            return {};
        }
        if (errno != ENOENT) {
            return LinkError(into);
        }
    }
    // AT_EMPTY_PATH may require CAP_DAC_READ_SEARCH and then fails with ENOENT. Linking through
    // /proc needs no privilege; see open(2), "O_TMPFILE".
    const std::string path = "/proc/self/fd/" + std::to_string(m_descriptor.Get());
    if (::linkat(AT_FDCWD, path.c_str(), folder, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
        return LinkError(into);
    }
    volume.linksByDescriptor = false;
    return {};
}

// If anonymous files cannot be linked here, remembers that for the next copies.
Error StagedCopy::LinkError(const PosixFolder& into) const
{
    const Error error = LastError();
    struct stat folder = {};
    const bool folderGone = error.Code() == ENOENT &&
                            (::fstat(into.Descriptor(), &folder) != 0 || folder.st_nlink == 0);
    if (RefusesAnonymousFiles(error.Code()) && !folderGone) {
        m_folder.Volume().takesAnonymousFiles = false;
    }
    return error;
}

Status StagedCopy::MakeDurable()
{
    // EINVAL: this file system does not support fsync(2).
    if (RetryInterrupted([this] { return ::fsync(m_descriptor.Get()); }) != 0 && errno != EINVAL) {
        return LastError();
    }
    m_bDurable = true;
    // Closing asks some servers, so do it here, where other copies do not wait for it. In other
    // folders an open file holds the lock.
    return m_folder.IsPrivate() && !IsAnonymous() ? CloseWritten() : Status();
}

Status StagedCopy::CloseWritten()
{
    if (::fstat(m_descriptor.Get(), &m_closed) != 0) {
        return LastError();
    }
    // The new file has made what the system knows about the folder stale. Ask here, too: renaming
    // the file would.
    struct stat folder = {};
    (void)::fstat(m_folder.Descriptor(), &folder);
    return CloseDescriptor();
}

// On some file systems, closing any descriptor of the file reports pending write errors. Closes a
// duplicate, so that the lock stays held.
Status StagedCopy::Flush()
{
    if (m_bDurable || !m_folder.Volume().closeTells) {
        return {};
    }
    UniqueFd other(::fcntl(m_descriptor.Get(), F_DUPFD_CLOEXEC, 0));
    if (!other.IsOpen()) {
        return LastError();
    }
    const int code = other.Close();
    return code == 0 ? Status() : ErrorFromErrno(code);
}

Status StagedCopy::CloseDescriptor()
{
    const int code = m_descriptor.Close();
    return code == 0 ? Status() : ErrorFromErrno(code);
}

Status StagedCopy::PublishNew(const PosixFolder& into, const std::string& name)
{
    if (Status flushed = Flush(); !flushed) {
        return flushed;
    }
    // A named file is renamed, since FAT has no hard links.
    Status placed = IsAnonymous()
                        ? LinkTo(into, name)
                        : RenameNew({m_named->Descriptor(), m_strName}, {into.Descriptor(), name});
    if (!placed) {
        return placed;
    }
    m_strName.clear();
    return CloseDescriptor();
}

// linkat(2) and renameat2(2) cannot place a file without a name over another one. Outside a private
// folder, locks the file first, so that no sweep deletes it.
Status StagedCopy::GiveName(NameFolder* names)
{
    if (!m_strName.empty()) {
        return {};
    }
    const Folder* const given = names != nullptr ? names->Get() : nullptr;
    const PosixFolder& folder =
        given != nullptr ? static_cast<const PosixFolder&>(*given) : m_folder;
    if (!folder.IsPrivate()) {
        (void)LockWaiting(m_descriptor.Get());
    }
    std::string own = MakeLeftoverName();
    if (Status linked = LinkTo(folder, own); !linked) {
        return linked;
    }
    m_named = &folder;
    m_strName = std::move(own);
    return {};
}

Status StagedCopy::PublishOver(const PosixFolder& into, const std::string& name, NameFolder* names)
{
    if (Status flushed = Flush(); !flushed) {
        return flushed;
    }
    if (Status named = GiveName(names); !named) {
        return named;
    }
    if (::renameat(m_named->Descriptor(), m_strName.c_str(), into.Descriptor(), name.c_str()) !=
        0) {
        return LastError();
    }
    m_strName.clear();
    return CloseDescriptor();
}

Status StagedCopy::PublishFor(const PosixFolder& into, const std::string& name,
                              const FindData& expected, NameFolder* names)
{
    if (Status flushed = Flush(); !flushed) {
        return flushed;
    }
    if (Status named = GiveName(names); !named) {
        return named;
    }
    const NamedItem own{m_named->Descriptor(), m_strName};
    if (const Status exchanged = ExchangeNames(own, {into.Descriptor(), name}); !exchanged) {
        return exchanged.GetError().Kind() == ErrorKind::Missing ? Error(ErrorKind::Changed)
                                                                 : exchanged;
    }
    const Result<struct stat> cameOut = StatAt(own.folder, own.name);
    if (!cameOut || !IsSameItem(*cameOut, expected)) {
        return PutBack(into, name);
    }
    return CloseDescriptor();
}

// Returns a file of another process to its place. That process may replace the copy at the same
// time, so what comes out may again be its file.
Status StagedCopy::PutBack(const PosixFolder& into, const std::string& name)
{
    const NamedItem own{m_named->Descriptor(), m_strName};
    struct stat copy = m_closed;
    if (m_descriptor.IsOpen() && ::fstat(m_descriptor.Get(), &copy) != 0) {
        return LastError();
    }
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        if (const Status exchanged = ExchangeNames(own, {into.Descriptor(), name}); !exchanged) {
            m_strName.clear();  // the file is not ours: never delete it
            return exchanged;
        }
        const Result<struct stat> cameOut = StatAt(own.folder, own.name);
        if (cameOut && cameOut->st_dev == copy.st_dev && cameOut->st_ino == copy.st_ino) {
            return Error(ErrorKind::Changed);
        }
    }
    m_strName.clear();
    return Error(ErrorKind::Changed);
}

}  // namespace quorbit
