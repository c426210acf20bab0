// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <set>
#include <utility>

#include "platform/path_lookup.h"
#include "platform/posix/file_metadata.h"
#include "platform/posix/item_attributes.h"
#include "platform/posix/item_details.h"
#include "platform/posix/leftover_sweeper.h"
#include "platform/posix/posix_file_copy.h"
#include "platform/posix/posix_listing.h"
#include "platform/posix/posix_prepared_copy.h"
#include "platform/posix/posix_source_file.h"
#include "platform/posix/posix_staging_folder.h"
#include "platform/posix/rename_new.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// Safe: all folders passed to this class were created by MakeFolder.
const PosixFolder& Own(const Folder& folder)
{
    return static_cast<const PosixFolder&>(folder);
}

// Rejects names that are not one component; they could refer to an item outside the folder.
Status CheckName(const std::string& name)
{
    const bool bad = name.empty() || name == "." || name == ".." ||
                     name.find('/') != std::string::npos || name.find('\0') != std::string::npos;
    return bad ? Status(ErrorFromErrno(EINVAL)) : Status();
}

Status CheckNames(const std::string& name, const std::string& newName)
{
    Status checked = CheckName(name);
    return checked ? CheckName(newName) : checked;
}

// Opens a path of any length in pieces, since a system call accepts at most PATH_MAX bytes.
UniqueFd OpenInPieces(const std::string& path)
{
    UniqueFd folder;
    std::size_t begin = 0;
    while (path.size() - begin >= PATH_MAX) {
        const std::size_t end = path.rfind('/', begin + PATH_MAX - 1);
        if (end == std::string::npos || end <= begin) {
            errno = ENAMETOOLONG;
            return {};
        }
        const std::string piece = path.substr(begin, end - begin);
        const int at = folder.IsOpen() ? folder.Get() : AT_FDCWD;
        folder = UniqueFd(RetryInterrupted(
            [&] { return ::openat(at, piece.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
        if (!folder.IsOpen()) {
            return {};
        }
        begin = path.find_first_not_of('/', end);
        if (begin == std::string::npos) {
            begin = path.size();
        }
    }
    const std::string rest = begin < path.size() ? path.substr(begin) : ".";
    const int at = folder.IsOpen() ? folder.Get() : AT_FDCWD;
    return UniqueFd(RetryInterrupted([&] { return ::openat(at, rest.c_str(), kFolderFlags); }));
}

}  // namespace

PosixFileSystem::PosixFileSystem(DriveMap drives) : m_drives(std::move(drives)) {}

Result<std::unique_ptr<Folder>> PosixFileSystem::MakeFolder(UniqueFd descriptor)
{
    struct stat details = {};
    if (::fstat(descriptor.Get(), &details) != 0) {
        return LastError();
    }
    PosixVolume& volume = m_volumes.Of(details.st_dev, descriptor.Get());
    return std::unique_ptr<Folder>(
        std::make_unique<PosixFolder>(std::move(descriptor), details, volume));
}

Result<std::unique_ptr<Folder>> PosixFileSystem::OpenFolder(const std::string& path)
{
    const std::string native = FindNative(path, m_drives);
    if (native.empty() || native.find('\0') != std::string::npos) {
        return ErrorFromErrno(ENOENT);
    }
    UniqueFd descriptor = OpenInPieces(native);
    if (!descriptor.IsOpen()) {
        return LastError();
    }
    return MakeFolder(std::move(descriptor));
}

Result<std::unique_ptr<Folder>> PosixFileSystem::OpenSubfolder(const Folder& parent,
                                                               const std::string& name)
{
    if (Status checked = CheckName(name); !checked) {
        return checked.GetError();
    }
    UniqueFd descriptor(RetryInterrupted([&] {
        return ::openat(Own(parent).Descriptor(), name.c_str(), kFolderFlags | O_NOFOLLOW);
    }));
    if (!descriptor.IsOpen()) {
        const Error error = LastError();
        if (error.Kind() == ErrorKind::NotAFolder) {
            const Result<struct stat> found = StatAt(Own(parent).Descriptor(), name);
            if (found && S_ISLNK(found->st_mode)) {
                return Error(ErrorKind::NotAFolder, "Is a link", error.Code());
            }
        }
        return error;
    }
    return MakeFolder(std::move(descriptor));
}

bool PosixFileSystem::StillThere(const Folder& folder)
{
    struct stat details = {};
    return ::fstat(Own(folder).Descriptor(), &details) == 0 && details.st_nlink > 0;
}

bool PosixFileSystem::IsMountPoint(const Folder& folder)
{
    struct statx details = {};
    const int done = RetryInterrupted([&] {
        return ::statx(Own(folder).Descriptor(), "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_TYPE,
                       &details);
    });
    return done == 0 && (details.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

bool PosixFileSystem::HasOneCaseRule(const Folder& folder) const
{
    return !Own(folder).Volume().casePerFolder;
}

bool PosixFileSystem::IsProtected(const Folder& folder)
{
    return m_protected.Contains(folder.Identity());
}

Result<std::unique_ptr<Listing>> PosixFileSystem::List(const Folder& folder)
{
    Result<std::shared_ptr<const UniqueFd>> descriptor = Own(folder).OpenForListing();
    if (!descriptor) {
        return descriptor.GetError();
    }
    return std::unique_ptr<Listing>(std::make_unique<PosixListing>(std::move(*descriptor)));
}

Status PosixFileSystem::ReadDetails(const Folder& folder, FindData& item)
{
    if (Status checked = CheckName(item.name); !checked) {
        return checked;
    }
    return ReadDetailsAt(Own(folder).Descriptor(), item);
}

Status PosixFileSystem::ReadAttributes(const Folder& folder, FindData& item)
{
    if (Status checked = CheckName(item.name); !checked) {
        return checked;
    }
    const PosixFolder& own = Own(folder);
    const Result<struct stat> details = StatAt(own.Descriptor(), item.name);
    if (!details) {
        return details.GetError();
    }
    const AttributeItem named{own.Descriptor(), item.name, KindFromMode(details->st_mode)};
    const Result<std::uint32_t> bits =
        ReadAttributeBits(*own.Volume().attributes, named, details->st_mode);
    if (!bits) {
        return bits.GetError();
    }
    item.attributes = MakeAttributeWord(*bits, named.kind);
    return {};
}

Result<FindData> PosixFileSystem::Probe(const Folder& folder, const std::string& name)
{
    if (Status checked = CheckName(name); !checked) {
        return checked.GetError();
    }
    FindData item;
    item.name = name;
    if (Status read = ReadDetailsAt(Own(folder).Descriptor(), item); !read) {
        return read.GetError();
    }
    return item;
}

Status PosixFileSystem::SetAttributes(const Folder& folder, const std::string& name,
                                      std::uint32_t attributes)
{
    if (Status checked = CheckName(name); !checked) {
        return checked;
    }
    const PosixFolder& own = Own(folder);
    const Result<struct stat> details = StatAt(own.Descriptor(), name);
    if (!details) {
        return details.GetError();
    }
    const AttributeItem item{own.Descriptor(), name, KindFromMode(details->st_mode)};
    return WriteAttributeBits(*own.Volume().attributes, item, details->st_mode, attributes);
}

Result<std::unique_ptr<SourceFile>> PosixFileSystem::OpenSource(const Folder& folder,
                                                                const FindData& item,
                                                                ReadAhead readAhead)
{
    if (Status checked = CheckName(item.name); !checked) {
        return checked.GetError();
    }
    return PosixSourceFile::Open(Own(folder), item, readAhead);
}

void PosixFileSystem::FetchAhead(const Folder& folder, const FindData& item)
{
    if (CheckName(item.name)) {
        m_fetcher.Fetch(Own(folder).SharedDescriptor(), item);
    }
}

Status PosixFileSystem::CopyFile(SourceFile& source, const Folder& destination,
                                 const std::string& name, const CopyOptions& options)
{
    if (Status checked = CheckName(name); !checked) {
        return checked;
    }
    const PosixFolder& folder = Own(destination);
    MarkWritten(folder);
    return PosixFileCopy(static_cast<PosixSourceFile&>(source), folder, name, options, m_copier,
                         m_notKept)
        .Run();
}

Result<std::unique_ptr<PreparedCopy>> PosixFileSystem::Prepare(SourceFile& source,
                                                               const Folder& folder,
                                                               CopyProgress* progress)
{
    const auto& file = static_cast<PosixSourceFile&>(source);
    if (file.Details().kind != ItemKind::File) {
        return ErrorFromErrno(EINVAL);
    }
    // Not m_copier, since several threads may prepare copies.
    ContentCopier copier;
    auto copy = PosixPreparedCopy::Make(file, Own(folder), copier, progress);
    return copy ? Result<std::unique_ptr<PreparedCopy>>(std::move(*copy)) : copy.GetError();
}

Status PosixFileSystem::MakeDurable(std::span<PreparedCopy* const> copies)
{
    // One syncfs(2) costs about as much as a few calls of fsync(2), but also waits for what other
    // programs have written.
    constexpr std::size_t kFewCopies = 8;
    std::set<const PosixVolume*> synced;
    for (PreparedCopy* copy : copies) {
        auto& own = static_cast<PosixPreparedCopy&>(*copy);
        if (own.IsDurable()) {
            continue;
        }
        const PosixVolume& volume = own.StagedIn().Volume();
        if (copies.size() < kFewCopies || !volume.syncsAtOnce) {
            if (Status durable = own.MakeDurable(); !durable) {
                return durable;
            }
        } else if (synced.insert(&volume).second) {
            const int fd = own.StagedIn().Descriptor();
            if (RetryInterrupted([fd] { return ::syncfs(fd); }) != 0) {
                return LastError();
            }
        }
    }
    return {};
}

bool PosixFileSystem::SyncsTogether(const Folder& folder) const
{
    return Own(folder).Volume().syncsAtOnce;
}

bool PosixFileSystem::NamesCopies(const Folder& folder) const
{
    return !Own(folder).TakesAnonymousFiles();
}

bool PosixFileSystem::MayStageIn(const Folder& parent, const Folder& destination) const
{
    const PosixFolder& one = Own(parent);
    const PosixFolder& other = Own(destination);
    return &one.Volume() == &other.Volume() && one.GroupOfNew() == other.GroupOfNew() &&
           !one.HasDefaultAcl() && !other.HasDefaultAcl() && one.IsWritable();
}

Result<std::unique_ptr<Folder>> PosixFileSystem::CreateStagingFolder(const Folder& parent)
{
    return PosixStagingFolder::Create(Own(parent));
}

Status PosixFileSystem::Place(PreparedCopy& copy, const Folder& destination,
                              const std::string& name, const CopyOptions& options)
{
    if (Status checked = CheckName(name); !checked) {
        return checked;
    }
    auto& own = static_cast<PosixPreparedCopy&>(copy);
    MarkWritten(Own(destination));
    Status placed = own.Place(Own(destination), name, options);
    if (placed) {
        m_notKept.insert(m_notKept.end(), own.NotKept().begin(), own.NotKept().end());
    }
    return placed;
}

Status PosixFileSystem::DeleteFile(const Folder& folder, const std::string& name)
{
    if (Status checked = CheckName(name); !checked) {
        return checked;
    }
    const int fd = Own(folder).Descriptor();
    if (::unlinkat(fd, name.c_str(), 0) == 0) {
        return {};
    }
    const Error error = LastError();
    // Some file systems, such as SMB shares, refuse to delete read-only files. Clear the attribute
    // and try again.
    if (error.Kind() != ErrorKind::AccessDenied) {
        return error;
    }
    FindData item;
    item.name = name;
    const Result<struct stat> before = StatAt(fd, name);
    if (!before || !ReadAttributes(folder, item) || (item.attributes & kAttributeReadOnly) == 0 ||
        !SetAttributes(folder, name, item.attributes & ~kAttributeReadOnly)) {
        return error;
    }
    if (::unlinkat(fd, name.c_str(), 0) == 0) {
        return {};
    }
    const Error again = LastError();
    // The file stays, so it is protected as before. SetAttributes alone would clear the write
    // permission of group and others, too.
    (void)SetAttributes(folder, name, item.attributes);
    (void)::fchmodat(fd, name.c_str(), before->st_mode & 07777U, AT_SYMLINK_NOFOLLOW);
    return again;
}

Status PosixFileSystem::RemoveFolder(const Folder& parent, const std::string& name)
{
    if (Status checked = CheckName(name); !checked) {
        return checked;
    }
    const int done = ::unlinkat(Own(parent).Descriptor(), name.c_str(), AT_REMOVEDIR);
    return done == 0 ? Status() : LastError();
}

namespace {

Status MakeLike(int to, int like, bool inheritedAcl, std::vector<std::string>& notKept)
{
    struct stat model = {};
    struct stat now = {};
    if (::fstat(like, &model) != 0 || ::fstat(to, &now) != 0) {
        return LastError();
    }
    const Result<bool> owned = CopyOwnership(to, model, now.st_uid, now.st_gid);
    if (!owned) {
        return owned.GetError();
    }
    // Keep the set-ID bits only if owner and group could be kept.
    mode_t mode = model.st_mode & (*owned ? 07777U : 01777U);
    if (Status copied = CopyExtendedAttributes(like, to, {inheritedAcl, true, &mode, &notKept});
        !copied) {
        return copied;
    }
    return SetMode(to, mode | S_IRWXU);
}

}  // namespace

Status PosixFileSystem::CreateFolder(const Folder& parent, const std::string& name,
                                     const Folder* like)
{
    if (Status checked = CheckName(name); !checked) {
        return checked;
    }
    const PosixFolder& folder = Own(parent);
    // Private until the permissions of `like` are copied.
    const mode_t mode = like != nullptr ? S_IRWXU : S_IRWXU | S_IRWXG | S_IRWXO;
    if (::mkdirat(folder.Descriptor(), name.c_str(), mode) != 0) {
        return LastError();
    }
    MarkWritten(folder);
    if (like == nullptr) {
        return {};
    }
    const UniqueFd created(RetryInterrupted(
        [&] { return ::openat(folder.Descriptor(), name.c_str(), kFolderFlags | O_NOFOLLOW); }));
    Status done = created.IsOpen() ? MakeLike(created.Get(), Own(*like).Descriptor(),
                                              folder.HasDefaultAcl(), m_notKept)
                                   : LastError();
    if (!done) {
        (void)::unlinkat(folder.Descriptor(), name.c_str(), AT_REMOVEDIR);
    }
    return done;
}

Status PosixFileSystem::CopyFolderTime(const Folder& from, const Folder& to)
{
    struct stat model = {};
    if (::fstat(Own(from).Descriptor(), &model) != 0) {
        return LastError();
    }
    return SetModified(Own(to).Descriptor(), model, Own(to).Volume().keepsEvenSeconds);
}

Status PosixFileSystem::Link(const Folder& folder, const std::string& name,
                             const std::string& newName)
{
    if (Status checked = CheckNames(name, newName); !checked) {
        return checked;
    }
    const int fd = Own(folder).Descriptor();
    return ::linkat(fd, name.c_str(), fd, newName.c_str(), 0) == 0 ? Status() : LastError();
}

Status PosixFileSystem::Rename(const Folder& folder, const std::string& name,
                               const std::string& newName)
{
    if (Status checked = CheckNames(name, newName); !checked) {
        return checked;
    }
    const int fd = Own(folder).Descriptor();
    return RenameNew({fd, name}, {fd, newName});
}

void PosixFileSystem::SweepLeftovers(const Folder& folder)
{
    quorbit::SweepLeftovers(Own(folder));
}

void PosixFileSystem::MarkWritten(const PosixFolder& folder)
{
    const auto [position, isNew] = m_written.try_emplace(folder.Identity().device);
    if (isNew || !position->second.IsOpen()) {
        // A duplicate, since the folder may be closed before SyncWritten.
        position->second = UniqueFd(::fcntl(folder.Descriptor(), F_DUPFD_CLOEXEC, 0));
    }
}

Status PosixFileSystem::SyncWritten()
{
    Status result;
    for (const auto& [device, descriptor] : m_written) {
        if (!descriptor.IsOpen()) {
            // MarkWritten could not duplicate the descriptor, so this device cannot be synced.
            result = ErrorFromErrno(EMFILE);
            continue;
        }
        const int syncedFd = descriptor.Get();
        if (RetryInterrupted([syncedFd] { return ::syncfs(syncedFd); }) != 0 && result) {
            result = LastError();
        }
    }
    m_written.clear();
    return result;
}

}  // namespace quorbit
