// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// An open folder, with what was found out about files that are created in it.

#pragma once

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <vector>

#include "platform/file_system.h"
#include "platform/posix/posix_volume.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

// What a new file is given by its folder and by the process.
struct NewFileDetails {
    mode_t createdWith = 0;  // the mode that was asked for
    mode_t mode = 0;         // the permissions that it got
    uid_t owner = 0;
    gid_t group = 0;
};

class PosixFolder final : public Folder {
public:
    // The folder's descriptor must be open for reading and not have been read from.
    PosixFolder(UniqueFd descriptor, FolderIdentity identity, PosixVolume& volume);

    [[nodiscard]] FolderIdentity Identity() const override { return m_identity; }
    [[nodiscard]] int Descriptor() const { return m_descriptor->Get(); }
    [[nodiscard]] std::shared_ptr<const UniqueFd> SharedDescriptor() const { return m_descriptor; }
    [[nodiscard]] PosixVolume& Volume() const { return m_volume; }

    // A descriptor that a listing can read from the beginning: the first time the folder's own,
    // later another one.
    Result<std::shared_ptr<const UniqueFd>> OpenForListing() const;

    // Whether new items in it inherit an access control list; see acl(5).
    bool HasDefaultAcl() const;
    // What the file that has just been created here with that mode was given. Asked once a mode.
    Result<NewFileDetails> DetailsOfNew(int file, mode_t createdWith) const;

private:
    std::shared_ptr<const UniqueFd> m_descriptor;
    FolderIdentity m_identity;
    PosixVolume& m_volume;
    // Found out on the way; a folder that is only looked at stays the same folder.
    mutable bool m_bListed = false;
    mutable std::optional<bool> m_defaultAcl;
    mutable std::vector<NewFileDetails> m_newFiles;
};

}  // namespace quorbit
