// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_file_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/leftover_name.h"
#include "platform/posix/file_metadata.h"
#include "platform/posix/item_attributes.h"
#include "platform/posix/item_details.h"
#include "platform/posix/rename_new.h"
#include "platform/posix/staged_copy.h"
#include "platform/posix/system_call.h"

namespace quorbit {

namespace {

constexpr mode_t kPermissions = 0777;
constexpr mode_t kAllModeBits = 07777;
constexpr mode_t kRunsAsOwner = S_ISUID | S_ISGID;
constexpr std::uint64_t kStatBlock = 512;

}  // namespace

Status PosixFileCopy::Run()
{
    if (m_source.Details().kind != ItemKind::File) {
        return CopyUnopened();
    }
    if (m_options.linkTo != nullptr) {
        const Result<bool> linked = LinkToPlaced();
        if (!linked || *linked) {
            return linked ? Status() : linked.GetError();
        }
    }
    return CopyRegular();
}

// Returns false if the file cannot be linked and must be copied.
Result<bool> PosixFileCopy::LinkToPlaced() const
{
    const PlacedFile& placed = *m_options.linkTo;
    const int from = static_cast<const PosixFolder&>(*placed.folder).Descriptor();
    const int folder = m_destination.Descriptor();
    const auto isPlaced = [&placed](int in, const std::string& name) {
        FindData found;
        found.name = name;
        return ReadDetailsAt(in, found) && found.device == placed.item.device &&
               found.inode == placed.item.inode && found.size == placed.item.size &&
               found.modified == placed.item.modified &&
               found.modifiedNsec == placed.item.modifiedNsec;
    };
    // Linking is not copying: the checks of the destination apply in the same way.
    const Result<bool> replaces = CheckDestination();
    if (!replaces) {
        return replaces.GetError();
    }
    if (!isPlaced(from, placed.item.name)) {
        return false;
    }
    if (*replaces && isPlaced(folder, m_strName)) {
        return true;  // rename(2) of two links to one file would do nothing
    }
    const std::string own = MakeLeftoverName();
    if (::linkat(from, placed.item.name.c_str(), folder, own.c_str(), 0) != 0) {
        return false;
    }
    // Check again: another process may have replaced the placed file.
    if (!isPlaced(folder, own) || !Place(own)) {
        (void)::unlinkat(folder, own.c_str(), 0);
        return false;
    }
    return true;
}

Result<bool> PosixFileCopy::CheckDestination() const
{
    const Result<struct stat> details = StatAt(m_destination.Descriptor(), m_strName);
    if (!details) {
        return details.GetError().Kind() == ErrorKind::Missing ? Result<bool>(false)
                                                               : details.GetError();
    }
    if (details->st_dev == m_source.Stat().st_dev && details->st_ino == m_source.Stat().st_ino) {
        return Error(ErrorKind::SameFile, "Source and destination are the same file");
    }
    if (S_ISDIR(details->st_mode)) {
        return ErrorFromErrno(EISDIR);
    }
    if (m_options.mustBeMissing) {
        return ErrorFromErrno(EEXIST);
    }
    if (S_ISREG(details->st_mode) && !m_options.replaceReadOnly) {
        const Result<bool> readOnly = IsReadOnly(*details);
        if (!readOnly) {
            return readOnly.GetError();
        }
        if (*readOnly) {
            return ErrorFromErrno(EACCES);
        }
    }
    return true;
}

// Neither rename(2) nor root's write access respects a read-only file that is replaced, so check
// explicitly.
Result<bool> PosixFileCopy::IsReadOnly(const struct stat& details) const
{
    if ((details.st_mode & S_IWUSR) == 0) {
        return true;
    }
    const AttributeItem item{m_destination.Descriptor(), m_strName, ItemKind::File};
    const Result<std::uint32_t> bits =
        ReadAttributeBits(*m_destination.Volume().attributes, item, details.st_mode);
    if (!bits) {
        return bits.GetError();
    }
    return (*bits & kAttributeReadOnly) != 0;
}

Status PosixFileCopy::CopyRegular()
{
    const bool anonymous = m_destination.Volume().takesAnonymousFiles;
    Status copied = CopyStaged();
    if (!copied && anonymous && !m_destination.Volume().takesAnonymousFiles) {
        copied = CopyStaged();  // naming an anonymous file failed; retry with a named one
    }
    return copied;
}

Status PosixFileCopy::CopyStaged()
{
    if (!m_options.expectMissing || !m_destination.Volume().takesAnonymousFiles) {
        // Fail before the content is copied in vain.
        const Result<bool> replaces = CheckDestination();
        if (!replaces) {
            return replaces.GetError();
        }
    }
    StagedCopy staged(m_destination);
    if (Status opened = staged.Open(m_source.Stat().st_mode & kPermissions); !opened) {
        return opened;
    }
    if (Status copied = CopyContent(staged.Descriptor()); !copied) {
        return copied;
    }
    if (Status copied = CopyMetadata(staged); !copied) {
        return copied;
    }
    return Publish(staged);
}

Status PosixFileCopy::CopyContent(int to) const
{
    const struct stat& from = m_source.Stat();
    TransferFacts& facts =
        m_destination.Volume().transfersFrom[m_source.InFolder().Volume().device];
    return m_copier.Copy({m_source.Descriptor(), to, static_cast<std::uint64_t>(from.st_size),
                          static_cast<std::uint64_t>(from.st_blocks) * kStatBlock, facts,
                          m_options.progress});
}

// The order matters: chown(2) clears the set-user-ID bit and file capabilities, attributes can only
// be set while the file is writable, and every change updates the time.
Status PosixFileCopy::CopyMetadata(const StagedCopy& staged) const
{
    const int to = staged.Descriptor();
    const struct stat& from = m_source.Stat();
    const NewFileDetails& now = staged.Details();
    const Result<bool> owned = CopyOwnership(to, from, now.owner, now.group);
    if (!owned) {
        return owned.GetError();
    }
    const bool inheritedAcl = m_destination.HasDefaultAcl();
    // A copy with another owner must not run with that owner's rights: drop the set-ID bits.
    mode_t mode = from.st_mode & (*owned ? kAllModeBits : kAllModeBits & ~kRunsAsOwner);
    const AttributeCopy how{inheritedAcl, !*owned, &mode, &m_notKept};
    if (Status copied = CopyExtendedAttributes(m_source.Descriptor(), to, how); !copied) {
        return copied;
    }
    if (mode != now.mode || inheritedAcl) {
        if (Status set = SetMode(to, mode); !set) {
            return set;
        }
    }
    if (Status copied = CopyAttributeBits(to, mode); !copied) {
        return copied;
    }
    return SetModified(to, from, m_destination.Volume().keepsEvenSeconds);
}

Status PosixFileCopy::CopyAttributeBits(int to, mode_t mode) const
{
    AttributeSource& from = *m_source.InFolder().Volume().attributes;
    AttributeSource& into = *m_destination.Volume().attributes;
    if (!from.IsNative() && !into.IsNative()) {
        return {};  // copied with the extended attributes
    }
    const AttributeItem item{m_source.InFolder().Descriptor(), m_source.Details().name,
                             ItemKind::File, m_source.Descriptor()};
    const Result<std::uint32_t> bits = ReadAttributeBits(from, item, m_source.Stat().st_mode);
    if (!bits) {
        return bits.GetError();
    }
    const AttributeItem copy{m_destination.Descriptor(), m_strName, ItemKind::File, to};
    const Status written = WriteAttributeBits(into, copy, mode, *bits);
    if (written) {
        return {};
    }
    const Error& error = written.GetError();
    if (IsTooLarge(error.Code())) {
        m_notKept.push_back("The attributes of the file: " + error.Text());
        return {};
    }
    const bool cannot = CannotBeKept(error.Code()) || error.Kind() == ErrorKind::NotSupported;
    return cannot ? Status() : written;
}

Status PosixFileCopy::Publish(StagedCopy& staged) const
{
    const bool mustBeMissing = m_options.mustBeMissing;
    if (mustBeMissing || (m_options.expectMissing && staged.IsAnonymous())) {
        Status published = staged.PublishNew(m_strName);
        if (published || mustBeMissing || published.GetError().Kind() != ErrorKind::AlreadyExists) {
            return published;
        }
    }
    const Result<bool> replaces = CheckDestination();
    if (!replaces) {
        return replaces.GetError();
    }
    return staged.PublishOver(m_strName, *replaces && !m_destination.Volume().ordersRenames);
}

// Gives an item with a temporary name in the destination folder its real name.
Status PosixFileCopy::Place(const std::string& own) const
{
    const int folder = m_destination.Descriptor();
    if (m_options.mustBeMissing) {
        return RenameNew(folder, own, m_strName);
    }
    return ::renameat(folder, own.c_str(), folder, m_strName.c_str()) == 0 ? Status() : LastError();
}

Status PosixFileCopy::CopyUnopened()
{
    const Result<bool> replaces = CheckDestination();
    if (!replaces) {
        return replaces.GetError();
    }
    // symlink(2) and mknod(2) cannot replace an item, so create it under a temporary name and
    // rename it.
    const std::string own = MakeLeftoverName();
    const int folder = m_destination.Descriptor();
    Status done = Create(own);
    if (!done) {
        return done;
    }
    done = CopyMetadataByName(own);
    if (done) {
        done = Place(own);
    }
    if (!done) {
        (void)::unlinkat(folder, own.c_str(), 0);
    }
    return done;
}

Status PosixFileCopy::Create(const std::string& name) const
{
    const int folder = m_destination.Descriptor();
    if (m_source.Details().kind == ItemKind::Link) {
        const Result<std::string> target = m_source.LinkTarget();
        if (!target) {
            return target.GetError();
        }
        if (::symlinkat(target->c_str(), folder, name.c_str()) == 0) {
            return {};
        }
    } else {
        const mode_t mode = (m_source.Stat().st_mode & S_IFMT) | S_IRUSR | S_IWUSR;
        if (::mknodat(folder, name.c_str(), mode, m_source.Stat().st_rdev) == 0) {
            return {};
        }
    }
    const Error error = LastError();
    return CannotHold(error) ? Error(ErrorKind::ItemNotSupported) : error;
}

// symlink(2) and mknod(2) report EPERM both if the file system has no such items and if the caller
// may not create them. Items that need no privilege tell the two apart.
bool PosixFileCopy::CannotHold(const Error& error) const
{
    if (error.Kind() == ErrorKind::NotSupported) {
        return true;
    }
    if (error.Code() != EPERM) {
        return false;
    }
    const mode_t kind = m_source.Stat().st_mode;
    if (S_ISCHR(kind) || S_ISBLK(kind)) {
        const std::string own = MakeLeftoverName();
        if (::mknodat(m_destination.Descriptor(), own.c_str(), S_IFIFO | S_IRUSR, 0) == 0) {
            (void)::unlinkat(m_destination.Descriptor(), own.c_str(), 0);
            return false;  // only root may create devices
        }
    }
    return StagedCopy(m_destination).Open(S_IRUSR | S_IWUSR).Ok();
}

Status PosixFileCopy::CopyMetadataByName(const std::string& name) const
{
    const struct stat& from = m_source.Stat();
    const int folder = m_destination.Descriptor();
    if (::fchownat(folder, name.c_str(), from.st_uid, from.st_gid, AT_SYMLINK_NOFOLLOW) != 0) {
        if (!CannotBeKept(errno)) {
            return LastError();
        }
        [[maybe_unused]] const int group = ::fchownat(folder, name.c_str(), static_cast<uid_t>(-1),
                                                      from.st_gid, AT_SYMLINK_NOFOLLOW);
    }
    if (m_source.Details().kind != ItemKind::Link &&
        ::fchmodat(folder, name.c_str(), from.st_mode & kPermissions, AT_SYMLINK_NOFOLLOW) != 0 &&
        !CannotBeKept(errno)) {
        return LastError();
    }
    const timespec times[2] = {{0, UTIME_OMIT},
                               ModifiedOfCopy(from, m_destination.Volume().keepsEvenSeconds)};
    const bool kept =
        ::utimensat(folder, name.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0 || CannotBeKept(errno);
    return kept ? Status() : LastError();
}

}  // namespace quorbit
