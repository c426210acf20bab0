// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A file that is being written where nobody sees it, and then appears under its name whole.
//
// Where the file system can, it has no name at all until then, and a kill leaves nothing behind.
// Else it has a name of our own pattern in the same folder (see leftover_name.h) and is locked by
// flock(2), which tells a live run's file from a dead one's.

#pragma once

#include <sys/types.h>

#include <string>

#include "platform/posix/posix_folder.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class StagedCopy {
public:
    // The folder must stay open for as long as this object lives.
    explicit StagedCopy(const PosixFolder& folder) : m_folder(folder) {}
    // What has not been published goes.
    ~StagedCopy();
    StagedCopy(const StagedCopy&) = delete;
    StagedCopy& operator=(const StagedCopy&) = delete;

    // Creates the file, open for writing, with at most these permissions.
    Status Open(mode_t permissions);

    [[nodiscard]] int Descriptor() const { return m_descriptor.Get(); }
    [[nodiscard]] bool IsAnonymous() const { return m_strName.empty(); }
    // With what it was created, after umask(2), access control lists and so on.
    [[nodiscard]] const NewFileDetails& Details() const { return m_details; }

    // Gives an anonymous file its name. AlreadyExists if that is taken: then nothing has changed.
    Status PublishNew(const std::string& name);
    // Puts the file in the place of whatever has the name. With sync its content is on the disk
    // before.
    Status PublishOver(const std::string& name, bool sync);

private:
    Status OpenAnonymous(mode_t permissions);
    Status OpenNamed();
    Status LinkTo(const std::string& name);
    Error LinkError() const;
    Status Flush(bool sync);
    Status CloseDescriptor();

    const PosixFolder& m_folder;
    UniqueFd m_descriptor;
    std::string m_strName;  // while it has a name of our own
    NewFileDetails m_details;
};

}  // namespace quorbit
