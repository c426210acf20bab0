// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/staged_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "platform/leftover_name.h"
#include "platform/posix/file_io.h"
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
        (void)::unlinkat(m_folder.Descriptor(), m_strName.c_str(), 0);
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
    return OpenNamed();
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
    const Result<NewFileDetails> details = m_folder.DetailsOfNew(m_descriptor.Get(), mode);
    if (!details) {
        return details.GetError();
    }
    m_details = *details;
    return {};
}

Status StagedCopy::OpenNamed()
{
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        std::string name = MakeLeftoverName();
        // Others can open this file by its name, so allow no access until owner and permissions are
        // set.
        m_descriptor = UniqueFd(RetryInterrupted([&] {
            return ::openat(m_folder.Descriptor(), name.c_str(),
                            O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                            S_IRUSR | S_IWUSR);
        }));
        if (!m_descriptor.IsOpen()) {
            if (errno == EEXIST) {
                continue;
            }
            return LastError();
        }
        m_strName = std::move(name);
        // A sweep by another run may have deleted the file before it was locked. Try again with a
        // new name.
        (void)LockWaiting(m_descriptor.Get());
        struct stat details = {};
        if (::fstat(m_descriptor.Get(), &details) != 0) {
            return LastError();
        }
        if (details.st_nlink > 0) {
            m_details = {S_IRUSR | S_IWUSR, details.st_mode & 07777U, details.st_uid,
                         details.st_gid};
            return {};
        }
        m_strName.clear();
    }
    return ErrorFromErrno(EEXIST);
}

Status StagedCopy::LinkTo(const std::string& name)
{
    PosixVolume& volume = m_folder.Volume();
    const int folder = m_folder.Descriptor();
    if (volume.linksByDescriptor) {
        if (::linkat(m_descriptor.Get(), "", folder, name.c_str(), AT_EMPTY_PATH) == 0) {
            return {};
        }
        if (errno != ENOENT) {
            return LinkError();
        }
    }
    // AT_EMPTY_PATH may require CAP_DAC_READ_SEARCH and then fails with ENOENT. Linking through
    // /proc needs no privilege; see open(2), "O_TMPFILE".
    const std::string path = "/proc/self/fd/" + std::to_string(m_descriptor.Get());
    if (::linkat(AT_FDCWD, path.c_str(), folder, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
        return LinkError();
    }
    volume.linksByDescriptor = false;
    return {};
}

// If anonymous files cannot be linked here, remembers that for the next copies.
Error StagedCopy::LinkError() const
{
    const Error error = LastError();
    struct stat folder = {};
    const bool folderGone = error.Code() == ENOENT &&
                            (::fstat(m_folder.Descriptor(), &folder) != 0 || folder.st_nlink == 0);
    if (RefusesAnonymousFiles(error.Code()) && !folderGone) {
        m_folder.Volume().takesAnonymousFiles = false;
    }
    return error;
}

Status StagedCopy::Flush(bool sync)
{
    if (sync) {
        return RetryInterrupted([this] { return ::fsync(m_descriptor.Get()); }) == 0 ? Status()
                                                                                     : LastError();
    }
    if (!m_folder.Volume().closeTells) {
        return {};
    }
    // On such file systems closing any descriptor of the file reports pending write errors. Close a
    // duplicate, so that the lock stays held.
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

Status StagedCopy::PublishNew(const std::string& name)
{
    if (Status flushed = Flush(false); !flushed) {
        return flushed;
    }
    // A named file is renamed, since FAT has no hard links.
    Status placed =
        IsAnonymous() ? LinkTo(name) : RenameNew(m_folder.Descriptor(), m_strName, name);
    if (!placed) {
        return placed;
    }
    m_strName.clear();
    return CloseDescriptor();
}

Status StagedCopy::PublishOver(const std::string& name, bool sync)
{
    if (Status flushed = Flush(sync); !flushed) {
        return flushed;
    }
    // linkat(2) cannot replace a file, so give an anonymous file a temporary name to rename. Lock
    // it first, so that no sweep deletes it.
    if (m_strName.empty()) {
        (void)LockWaiting(m_descriptor.Get());
        std::string own = MakeLeftoverName();
        if (Status linked = LinkTo(own); !linked) {
            return linked;
        }
        m_strName = std::move(own);
    }
    const int folder = m_folder.Descriptor();
    if (::renameat(folder, m_strName.c_str(), folder, name.c_str()) != 0) {
        return LastError();
    }
    m_strName.clear();
    return CloseDescriptor();
}

}  // namespace quorbit
