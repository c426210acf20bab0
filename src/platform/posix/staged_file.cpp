// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/staged_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/posix/file_io.h"
#include "platform/posix/file_metadata.h"
#include "platform/posix/leftover_sweeper.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/staged_copy.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr mode_t kNewFile = 0666;  // reduced by umask(2)

// The location of a file after following links: an open folder and a name that is not a link.
struct Place {
    UniqueFd folder;
    std::string name;
};

struct FolderAndName {
    std::string folder;  // with trailing separator, or empty
    std::string name;
};

FolderAndName SplitPath(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
    return {path.substr(0, start), path.substr(start)};
}

// Follows the links at the end of a path manually, since the last link may point to a file that
// does not exist yet.
Result<Place> FindPlace(std::string path)
{
    constexpr int kMostLinks = 40;  // as in path_resolution(7)
    if (path.find('\0') != std::string::npos) {
        return ErrorFromErrno(EINVAL);
    }
    for (int links = 0; links < kMostLinks; ++links) {
        FolderAndName parts = SplitPath(path);
        if (parts.name.empty() || parts.name == "." || parts.name == "..") {
            return ErrorFromErrno(path.empty() ? ENOENT : EISDIR);
        }
        auto folder = OpenPath(parts.folder.empty() ? "." : parts.folder, O_RDONLY | O_DIRECTORY);
        if (!folder) {
            return folder.GetError();
        }
        char target[PATH_MAX];
        const ssize_t length =
            ::readlinkat(folder->Get(), parts.name.c_str(), target, sizeof(target));
        if (length < 0) {
            if (errno != EINVAL && errno != ENOENT) {
                return LastError();
            }
            return Place{std::move(*folder), std::move(parts.name)};
        }
        const std::string text(target, static_cast<std::size_t>(length));
        path = text.starts_with('/') ? text : parts.folder + text;
    }
    return ErrorFromErrno(ELOOP);
}

// Returns the stat data of the file to replace, if it exists. Fails if it is not writable, since
// rename(2) would replace it regardless.
Result<std::optional<struct stat>> ExamineOld(const Place& place)
{
    struct stat old {};
    if (::fstatat(place.folder.Get(), place.name.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno != ENOENT) {
            return LastError();
        }
        return std::optional<struct stat>();
    }
    if (S_ISDIR(old.st_mode)) {
        return ErrorFromErrno(EISDIR);
    }
    if (!S_ISREG(old.st_mode)) {
        return Error(ErrorKind::NotSupported, "Not a regular file");
    }
    if ((old.st_mode & S_IWUSR) == 0) {  // read-only, even for root
        return ErrorFromErrno(EACCES);
    }
    if (::faccessat(place.folder.Get(), place.name.c_str(), W_OK, AT_EACCESS) != 0) {
        return LastError();
    }
    return std::optional<struct stat>(old);
}

// Returns the umask. Reads it from /proc, since umask(2) can only be read by changing it for the
// whole process. Masks group and others if /proc is not available.
mode_t CurrentUmask()
{
    constexpr std::uint64_t kMostOfStatus = 1 << 16;
    constexpr std::string_view kLabel = "\nUmask:\t";  // proc(5)
    mode_t mask = S_IRWXG | S_IRWXO;
    const auto status = ReadWholeFile("/proc/self/status", kMostOfStatus);
    if (status) {
        if (const std::size_t at = status->find(kLabel); at != std::string::npos) {
            const char* start = status->data() + at + kLabel.size();
            std::from_chars(start, status->data() + status->size(), mask, 8);
        }
    }
    return mask;
}

// Copies owner, permissions and extended attributes as far as allowed. If the group cannot be kept,
// limits its permissions to those of others, since they would apply to a different group.
Status TakeMetadata(int to, const Place& place, const struct stat& old)
{
    mode_t mode = old.st_mode & 07777;
    if (::fchown(to, old.st_uid, old.st_gid) != 0 &&
        ::fchown(to, static_cast<uid_t>(-1), old.st_gid) != 0) {
        mode = (mode & ~mode_t{S_IRWXG}) | ((mode & S_IRWXO) << 3U);
    }
    const UniqueFd from(RetryInterrupted([&] {
        return ::openat(place.folder.Get(), place.name.c_str(),
                        O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    }));
    if (from.IsOpen()) {
        const AttributeCopy all{.inheritedAcl = true};
        if (Status copied = CopyExtendedAttributes(from.Get(), to, all); !copied) {
            return copied;
        }
    }
    return SetMode(to, mode);
}

Status Fill(StagedCopy& stage, std::string_view content, const Place& place,
            const std::optional<struct stat>& old)
{
    const int file = stage.Descriptor();
    if (Status written = WriteAll(file, content); !written) {
        return written;
    }
    Status taken;
    if (old) {
        taken = TakeMetadata(file, place, *old);
    } else if (!stage.IsAnonymous()) {
        taken = SetMode(file, kNewFile & ~CurrentUmask());
    }
    if (!taken) {
        return taken;
    }
    return stage.MakeDurable();
}

// A file that was missing and now exists was created by another process, or could not be seen
// before. Its content is unknown, so it is not replaced.
Status Publish(StagedCopy& stage, const PosixFolder& folder, const std::string& name, bool replaces)
{
    return replaces ? stage.PublishOver(folder, name, nullptr) : stage.PublishNew(folder, name);
}

enum class Existing { Replace, Refuse };

Status WriteFile(const std::string& path, std::string_view content, Existing existing)
{
    auto place = FindPlace(path);
    if (!place) {
        return place.GetError();
    }
    const auto old = ExamineOld(*place);
    if (!old) {
        return old.GetError();
    }
    if (*old && existing == Existing::Refuse) {
        return ErrorFromErrno(EEXIST);
    }
    UniqueFd forStage(::fcntl(place->folder.Get(), F_DUPFD_CLOEXEC, 0));
    if (!forStage.IsOpen()) {
        return LastError();
    }
    // A private volume with default facts: O_TMPFILE is tried, and close errors are checked.
    PosixVolume volume;
    const PosixFolder folder(std::move(forStage), {}, volume);
    SweepLeftovers(folder);
    StagedCopy stage(folder);
    if (Status opened = stage.Open(*old ? 0 : kNewFile); !opened) {
        return opened;
    }
    if (Status filled = Fill(stage, content, *place, *old); !filled) {
        return filled;
    }
    if (Status published = Publish(stage, folder, place->name, old->has_value()); !published) {
        return published;
    }
    // The file has been replaced already, so an error here cannot be undone and is ignored.
    (void)RetryInterrupted([&] { return ::fsync(place->folder.Get()); });
    return {};
}

}  // namespace

Status ReplaceFile(const std::string& path, std::string_view content)
{
    return WriteFile(path, content, Existing::Replace);
}

Status CreateNewFile(const std::string& path, std::string_view content)
{
    return WriteFile(path, content, Existing::Refuse);
}

Status CanReplace(const std::string& path)
{
    const auto place = FindPlace(path);
    if (!place) {
        return place.GetError();
    }
    if (const auto old = ExamineOld(*place); !old) {
        return old.GetError();
    }
    if (::faccessat(place->folder.Get(), ".", W_OK | X_OK, AT_EACCESS) != 0) {
        return LastError();
    }
    return {};
}

Result<std::string> ReadWholeFile(const std::string& path, std::uint64_t maxBytes)
{
    const auto file = OpenRegularFile(path);
    if (!file) {
        return file.GetError();
    }
    struct stat details {};
    if (::fstat(file->Get(), &details) != 0) {
        return LastError();
    }
    const Error tooLarge(ErrorKind::DiskFull, "The file is too large");
    if (static_cast<std::uint64_t>(details.st_size) > maxBytes) {
        return tooLarge;
    }
    // Leave room for one byte more than the size, so that the read at the end of the file does not
    // need a larger buffer. The size is only a hint, since the file may grow and files in /proc
    // report 0.
    constexpr std::size_t kLeastRoom = 4096;
    std::string content;
    std::size_t done = 0;
    content.resize(static_cast<std::size_t>(details.st_size) + 1);
    while (true) {
        const ssize_t got = RetryInterrupted(
            [&] { return ::read(file->Get(), content.data() + done, content.size() - done); });
        if (got < 0) {
            return LastError();
        }
        done += static_cast<std::size_t>(got);
        if (done > maxBytes) {
            return tooLarge;
        }
        if (got == 0) {
            content.resize(done);
            return content;
        }
        if (done == content.size()) {
            content.resize(done + std::max(done, kLeastRoom));
        }
    }
}

Result<std::string> ReadStartOfFile(const std::string& path, std::uint64_t maxBytes)
{
    const auto file = OpenRegularFile(path);
    if (!file) {
        return file.GetError();
    }
    std::string content(maxBytes, '\0');
    std::size_t done = 0;
    ssize_t got = 1;
    while (got > 0 && done < content.size()) {
        got = RetryInterrupted(
            [&] { return ::read(file->Get(), content.data() + done, content.size() - done); });
        if (got < 0) {
            return LastError();
        }
        done += static_cast<std::size_t>(got);
    }
    content.resize(done);
    return content;
}

}  // namespace quorbit
