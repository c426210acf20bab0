// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_file_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/leftover_name.h"
#include "platform/posix/file_metadata.h"
#include "platform/posix/item_details.h"
#include "platform/posix/posix_prepared_copy.h"
#include "platform/posix/rename_new.h"
#include "platform/posix/staged_copy.h"
#include "platform/posix/system_call.h"

namespace quorbit {

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
    const int names = Names().Descriptor();
    if (::linkat(from, placed.item.name.c_str(), names, own.c_str(), 0) != 0) {
        return false;
    }
    // Check again: another process may have replaced the placed file.
    if (!isPlaced(names, own) || !Place(names, own)) {
        (void)::unlinkat(names, own.c_str(), 0);
        return false;
    }
    return true;
}

Status PosixFileCopy::CopyRegular()
{
    const bool anonymous = m_destination.TakesAnonymousFiles();
    Status copied = CopyPrepared();
    if (!copied && anonymous && !m_destination.Volume().takesAnonymousFiles) {
        copied = CopyPrepared();  // naming an anonymous file failed; retry with a named one
    }
    return copied;
}

Status PosixFileCopy::CopyPrepared()
{
    if (!m_options.expectMissing || !m_destination.TakesAnonymousFiles()) {
        // Fail before the content is copied in vain.
        const Result<bool> replaces = CheckDestination();
        if (!replaces) {
            return replaces.GetError();
        }
    }
    const bool named = !m_destination.TakesAnonymousFiles();
    const auto copy = PosixPreparedCopy::Make(m_source, named ? Names() : m_destination, m_copier,
                                              m_options.progress);
    if (!copy) {
        return copy.GetError();
    }
    if (m_options.durable) {
        if (Status durable = (*copy)->MakeDurable(); !durable) {
            return durable;
        }
    }
    m_notKept.insert(m_notKept.end(), (*copy)->NotKept().begin(), (*copy)->NotKept().end());
    return (*copy)->Place(m_destination, m_strName, m_options);
}

// The folder for temporary names.
const PosixFolder& PosixFileCopy::Names() const
{
    const Folder* const given = m_options.names != nullptr ? m_options.names->Get() : nullptr;
    return given != nullptr ? static_cast<const PosixFolder&>(*given) : m_destination;
}

// Gives an item with a temporary name its real one in the destination folder.
Status PosixFileCopy::Place(int folder, const std::string& own) const
{
    const int into = m_destination.Descriptor();
    if (m_options.mustBeMissing) {
        return RenameNew({folder, own}, {into, m_strName});
    }
    return ::renameat(folder, own.c_str(), into, m_strName.c_str()) == 0 ? Status() : LastError();
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
    const int folder = Names().Descriptor();
    Status done = Create(folder, own);
    if (!done) {
        return done;
    }
    done = CopyMetadataByName(folder, own);
    if (done) {
        done = Place(folder, own);
    }
    if (!done) {
        (void)::unlinkat(folder, own.c_str(), 0);
    }
    return done;
}

Status PosixFileCopy::Create(int folder, const std::string& name) const
{
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
        const int folder = Names().Descriptor();
        if (::mknodat(folder, own.c_str(), S_IFIFO | S_IRUSR, 0) == 0) {
            (void)::unlinkat(folder, own.c_str(), 0);
            return false;  // only root may create devices
        }
    }
    return StagedCopy(Names()).Open(S_IRUSR | S_IWUSR).Ok();
}

Status PosixFileCopy::CopyMetadataByName(int folder, const std::string& name) const
{
    const struct stat& from = m_source.Stat();
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
