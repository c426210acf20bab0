// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_staging_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "platform/leftover_name.h"
#include "platform/posix/file_io.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr int kFolderNameAttempts = 16;

}  // namespace

PosixStagingFolder::PosixStagingFolder(UniqueFd descriptor, const struct stat& details,
                                       const PosixFolder& parent, std::string name)
    : PosixFolder(std::move(descriptor), details, parent.Volume()),
      m_parent(parent.SharedDescriptor()),
      m_strName(std::move(name))
{
}

PosixStagingFolder::~PosixStagingFolder()
{
    (void)::unlinkat(m_parent->Get(), m_strName.c_str(), AT_REMOVEDIR);
}

Result<std::unique_ptr<Folder>> PosixStagingFolder::Create(const PosixFolder& parent)
{
    for (int attempt = 0; attempt < kFolderNameAttempts; ++attempt) {
        std::string name = MakeLeftoverName();
        if (::mkdirat(parent.Descriptor(), name.c_str(), S_IRWXU) != 0) {
            if (errno == EEXIST) {
                continue;
            }
            return LastError();
        }
        UniqueFd descriptor(RetryInterrupted([&] {
            return ::openat(parent.Descriptor(), name.c_str(),
                            O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        }));
        struct stat details = {};
        const bool locked = descriptor.IsOpen() &&
                            LockWaiting(descriptor.Get()) != FileLock::Busy &&
                            ::fstat(descriptor.Get(), &details) == 0;
        if (locked && details.st_nlink > 0) {
            return std::unique_ptr<Folder>(
                new PosixStagingFolder(std::move(descriptor), details, parent, std::move(name)));
        }
        // Unless a sweep by another run has removed the folder before it was locked, give up.
        if (errno != ENOENT && !locked) {
            const Error error = LastError();
            (void)::unlinkat(parent.Descriptor(), name.c_str(), AT_REMOVEDIR);
            return error;
        }
    }
    return ErrorFromErrno(EEXIST);
}

}  // namespace quorbit
