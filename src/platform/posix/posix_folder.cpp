// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_folder.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/posix/system_call.h"

namespace quorbit {

PosixFolder::PosixFolder(UniqueFd descriptor, const struct stat& details, PosixVolume& volume)
    : m_descriptor(std::make_shared<const UniqueFd>(std::move(descriptor))),
      m_identity{details.st_dev, details.st_ino},
      m_groupOfNew((details.st_mode & S_ISGID) != 0 ? std::optional(details.st_gid) : std::nullopt),
      m_volume(volume)
{
}

Result<std::shared_ptr<const UniqueFd>> PosixFolder::OpenForListing() const
{
    if (!m_bListed) {
        m_bListed = true;
        return m_descriptor;
    }
    const int fd = RetryInterrupted(
        [this] { return ::openat(Descriptor(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (fd < 0) {
        return LastError();
    }
    return std::make_shared<const UniqueFd>(fd);
}

bool PosixFolder::TakesAnonymousFiles() const
{
    PosixVolume& volume = m_volume;
    if (volume.takesAnonymousFiles && !volume.triedAnonymousFiles) {
        const UniqueFd file(RetryInterrupted([this] {
            return ::openat(Descriptor(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
        }));
        const bool refused = !file.IsOpen() && (errno == EOPNOTSUPP || errno == EISDIR ||
                                                errno == EINVAL || errno == ENOSYS);
        volume.triedAnonymousFiles = file.IsOpen();
        if (refused) {
            volume.takesAnonymousFiles = false;
        }
    }
    return volume.takesAnonymousFiles;
}

bool PosixFolder::IsWritable() const
{
    const std::lock_guard lock(m_mutex);
    if (!m_writable) {
        m_writable = ::faccessat(Descriptor(), ".", W_OK | X_OK, AT_EACCESS) == 0;
    }
    return *m_writable;
}

bool PosixFolder::HasDefaultAcl() const
{
    const std::lock_guard lock(m_mutex);
    if (!m_defaultAcl) {
        m_defaultAcl = ::fgetxattr(Descriptor(), "system.posix_acl_default", nullptr, 0) > 0;
    }
    return *m_defaultAcl;
}

Result<NewFileDetails> PosixFolder::DetailsOfNew(int file, mode_t createdWith) const
{
    const std::lock_guard lock(m_mutex);
    for (const NewFileDetails& known : m_newFiles) {
        if (known.createdWith == createdWith) {
            return known;
        }
    }
    struct stat details = {};
    if (::fstat(file, &details) != 0) {
        return LastError();
    }
    m_newFiles.push_back({createdWith, details.st_mode & 07777U, details.st_uid, details.st_gid});
    return m_newFiles.back();
}

}  // namespace quorbit
