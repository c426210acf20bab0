// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// An open folder with cached facts about files created in it. Any thread, except OpenForListing.

#pragma once

#include <sys/stat.h>

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/file_system.h"
#include "platform/posix/posix_volume.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

// Mode and ownership of a new file, as determined by the process's umask(2) and the folder.
struct NewFileDetails {
    mode_t createdWith = 0;  // the requested mode
    mode_t mode = 0;         // the resulting permissions
    uid_t owner = 0;
    gid_t group = 0;
};

class PosixFolder : public Folder {
public:
    // descriptor: open for reading, at the start of the folder. volume must outlive this object.
    // details: of this folder.
    PosixFolder(UniqueFd descriptor, const struct stat& details, PosixVolume& volume);

    [[nodiscard]] FolderIdentity Identity() const override { return m_identity; }
    [[nodiscard]] int Descriptor() const { return m_descriptor->Get(); }
    [[nodiscard]] std::shared_ptr<const UniqueFd> SharedDescriptor() const { return m_descriptor; }
    [[nodiscard]] PosixVolume& Volume() const { return m_volume; }

    // Returns a descriptor at the start of the folder for a listing. The first call returns the
    // folder's own, which saves an open(2); later calls open another one.
    Result<std::shared_ptr<const UniqueFd>> OpenForListing() const;

    // True for a folder that no other user can enter and that is locked while it is in use.
    [[nodiscard]] virtual bool IsPrivate() const { return false; }
    // The group that new items inherit from this folder, if they do; see inode(7), S_ISGID.
    [[nodiscard]] std::optional<gid_t> GroupOfNew() const { return m_groupOfNew; }
    // Returns true if copies in this folder need no name until they are placed. The first call for
    // a volume tries it out, so that no copy gets a name in the wrong folder.
    bool TakesAnonymousFiles() const;
    // Returns true if this process may create items in this folder.
    bool IsWritable() const;
    // Returns true if new items inherit an ACL from this folder; see acl(5).
    bool HasDefaultAcl() const;
    // Returns mode and ownership of `file`, which was just created in this folder with that mode.
    // Calls fstat(2) only once per mode, since the result is the same for all files.
    Result<NewFileDetails> DetailsOfNew(int file, mode_t createdWith) const;

private:
    std::shared_ptr<const UniqueFd> m_descriptor;
    FolderIdentity m_identity;
    std::optional<gid_t> m_groupOfNew;
    PosixVolume& m_volume;
    // Caches; mutable because they do not change which folder this is.
    mutable bool m_bListed = false;
    mutable std::mutex m_mutex;  // of the following
    mutable std::optional<bool> m_defaultAcl;
    mutable std::optional<bool> m_writable;
    mutable std::vector<NewFileDetails> m_newFiles;
};

}  // namespace quorbit
