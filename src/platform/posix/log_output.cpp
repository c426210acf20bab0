// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/log_output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/posix/file_io.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

class PosixLogOutput : public LogOutput {
public:
    explicit PosixLogOutput(UniqueFd file) : m_file(std::move(file)) {}
    Status Write(std::string_view bytes) override { return WriteAll(m_file.Get(), bytes); }
    Status Close() override
    {
        const int fault = m_file.Close();
        return fault == 0 ? Status() : Status(ErrorFromErrno(fault));
    }

private:
    UniqueFd m_file;
};

// Returns false if the file was removed or replaced between open(2) and flock(2). Otherwise another
// process could create and lock a second log at the same path.
bool StillNamedBy(const struct stat& held, const std::string& path)
{
    struct stat named {};
    return ::stat(path.c_str(), &named) == 0 && named.st_dev == held.st_dev &&
           named.st_ino == held.st_ino;
}

constexpr int kAttempts = 16;

}  // namespace

Result<std::unique_ptr<LogOutput>> CreateLogOutput(const std::string& path)
{
    const Error inUse(ErrorKind::Busy, "The file is in use by another run");
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        auto file = OpenPath(path, O_RDWR | O_CREAT | O_NOCTTY, 0666);
        if (!file) {
            return file.GetError();
        }
        struct stat held {};
        if (::fstat(file->Get(), &held) != 0) {
            return LastError();
        }
        if (S_ISREG(held.st_mode)) {  // several runs may share a device such as /dev/null
            if (LockNow(file->Get()) == FileLock::Busy) {
                return inUse;
            }
            if (!StillNamedBy(held, path)) {
                continue;
            }
        }
        // Truncate only after locking, so that the log of another run is not emptied. EINVAL: not a
        // regular file.
        if (::ftruncate(file->Get(), 0) != 0 && errno != EINVAL) {
            return LastError();
        }
        return std::unique_ptr<LogOutput>(std::make_unique<PosixLogOutput>(std::move(*file)));
    }
    return inUse;
}

}  // namespace quorbit
