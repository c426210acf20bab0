// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/posix/posix_prepared_copy.h"

#include <cerrno>

#include "platform/posix/file_metadata.h"
#include "platform/posix/item_attributes.h"

namespace quorbit {

namespace {

constexpr mode_t kAllModeBits = 07777;
constexpr mode_t kRunsAsOwner = S_ISUID | S_ISGID;
constexpr std::uint64_t kStatBlock = 512;

}  // namespace

Result<std::unique_ptr<PosixPreparedCopy>> PosixPreparedCopy::Make(const PosixSourceFile& source,
                                                                   const PosixFolder& folder,
                                                                   ContentCopier& copier,
                                                                   CopyProgress* progress)
{
    std::unique_ptr<PosixPreparedCopy> copy(new PosixPreparedCopy(folder));
    const Status filled = copy->Fill(source, copier, progress);
    return filled ? Result<std::unique_ptr<PosixPreparedCopy>>(std::move(copy)) : filled.GetError();
}

Status PosixPreparedCopy::Fill(const PosixSourceFile& source, ContentCopier& copier,
                               CopyProgress* progress)
{
    const struct stat& from = source.Stat();
    m_sourceDevice = from.st_dev;
    m_sourceInode = from.st_ino;
    if (Status opened = m_staged.Open(from.st_mode & kPermissions); !opened) {
        return opened;
    }
    TransferFacts& facts = m_folder.Volume().TransfersFrom(source.InFolder().Volume().device);
    const ContentJob job{source.Descriptor(),
                         m_staged.Descriptor(),
                         static_cast<std::uint64_t>(from.st_size),
                         static_cast<std::uint64_t>(from.st_blocks) * kStatBlock,
                         facts,
                         progress};
    if (Status copied = copier.Copy(job); !copied) {
        return copied;
    }
    return CopyMetadata(source);
}

// The order matters: chown(2) clears the set-user-ID bit and file capabilities, attributes can only
// be set while the file is writable, and every change updates the time.
Status PosixPreparedCopy::CopyMetadata(const PosixSourceFile& source)
{
    const int to = m_staged.Descriptor();
    const struct stat& from = source.Stat();
    const NewFileDetails& now = m_staged.Details();
    const Result<bool> owned = CopyOwnership(to, from, now.owner, now.group);
    if (!owned) {
        return owned.GetError();
    }
    const bool inheritedAcl = m_folder.HasDefaultAcl();
    // A copy with another owner must not run with that owner's rights: drop the set-ID bits.
    mode_t mode = from.st_mode & (*owned ? kAllModeBits : kAllModeBits & ~kRunsAsOwner);
    const AttributeCopy how{inheritedAcl, !*owned, &mode, &m_notKept};
    if (Status copied = CopyExtendedAttributes(source.Descriptor(), to, how); !copied) {
        return copied;
    }
    if (mode != now.mode || inheritedAcl) {
        if (Status set = SetMode(to, mode); !set) {
            return set;
        }
    }
    if (Status copied = CopyAttributeBits(source, mode); !copied) {
        return copied;
    }
    return SetModified(to, from, m_folder.Volume().keepsEvenSeconds);
}

Status PosixPreparedCopy::CopyAttributeBits(const PosixSourceFile& source, mode_t mode)
{
    AttributeSource& from = *source.InFolder().Volume().attributes;
    AttributeSource& into = *m_folder.Volume().attributes;
    if (!from.IsNative() && !into.IsNative()) {
        return {};  // copied with the extended attributes
    }
    const AttributeItem item{source.InFolder().Descriptor(), source.Details().name, ItemKind::File,
                             source.Descriptor()};
    const Result<std::uint32_t> bits = ReadAttributeBits(from, item, source.Stat().st_mode);
    if (!bits) {
        return bits.GetError();
    }
    const AttributeItem copy{m_folder.Descriptor(), source.Details().name, ItemKind::File,
                             m_staged.Descriptor()};
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

Status PosixPreparedCopy::Place(const PosixFolder& folder, const std::string& name,
                                const CopyOptions& options)
{
    const Placement placement{folder, name, options, m_sourceDevice, m_sourceInode};
    const bool mustBeMissing = options.mustBeMissing;
    if (mustBeMissing || options.expectMissing) {
        Status published = m_staged.PublishNew(folder, name);
        if (published || mustBeMissing || published.GetError().Kind() != ErrorKind::AlreadyExists) {
            return published;
        }
    }
    // Exchanging the names checks more than a look before could.
    if (options.exchanges && options.replaceReadOnly && IsOther(*options.replaces)) {
        const Status exchanged =
            m_staged.PublishFor(folder, name, *options.replaces, options.names);
        if (exchanged || exchanged.GetError().Kind() != ErrorKind::NotSupported) {
            return exchanged;
        }
    }
    const Result<bool> replaces = placement.Check();
    return replaces ? m_staged.PublishOver(folder, name, options.names) : replaces.GetError();
}

// True for an item that is not the source itself.
bool PosixPreparedCopy::IsOther(const FindData& item) const
{
    return item.device != m_sourceDevice || item.inode != m_sourceInode;
}

}  // namespace quorbit
