// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes a file without a name or under a temporary one and links or renames it into place when it
// is complete. One thread at a time.
//
// If the file system supports O_TMPFILE, the file is anonymous until it is published, so a kill
// leaves nothing behind. Otherwise it has a name of our pattern in the same folder (see
// leftover_name.h) and is locked with flock(2), so that a sweep can distinguish the files of
// running and killed runs. In a private folder, the lock of the folder does that for all files.

#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <string>

#include "platform/posix/posix_folder.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class StagedCopy {
public:
    // folder must outlive this object.
    explicit StagedCopy(const PosixFolder& folder) : m_folder(folder) {}
    // Deletes the file unless it was published.
    ~StagedCopy();
    StagedCopy(const StagedCopy&) = delete;
    StagedCopy& operator=(const StagedCopy&) = delete;

    // Creates the file, open for writing. permissions: the most that others may get; the owner
    // always has read and write access.
    Status Open(mode_t permissions);

    [[nodiscard]] bool IsDurable() const { return m_bDurable; }
    [[nodiscard]] int Descriptor() const { return m_descriptor.Get(); }
    [[nodiscard]] bool IsAnonymous() const { return m_strName.empty(); }
    // Mode and ownership at creation, after umask(2) and default ACLs.
    [[nodiscard]] const NewFileDetails& Details() const { return m_details; }

    // Writes the content to the disk.
    Status MakeDurable();
    // Links or renames the file to a name in a folder of the same file system. AlreadyExists if the
    // name is taken; the file can then still be published with PublishOver.
    Status PublishNew(const PosixFolder& into, const std::string& name);
    // Replaces the item with that name, if any. names: see CopyOptions.
    Status PublishOver(const PosixFolder& into, const std::string& name, NameFolder* names);
    // Replaces this item. Changed, with nothing replaced, if it turns out to be another one or to
    // be missing. NotSupported if the file system cannot exchange two names. The item gets the
    // temporary name and is deleted with this object.
    Status PublishFor(const PosixFolder& into, const std::string& name, const FindData& expected,
                      NameFolder* names);

private:
    Status OpenAnonymous(mode_t permissions);
    Status OpenNamed(mode_t permissions);
    Status ReadDetailsOfNew(mode_t createdWith);
    Status LinkTo(const PosixFolder& into, const std::string& name);
    Error LinkError(const PosixFolder& into) const;
    Status Flush();
    Status GiveName(NameFolder* names);
    Status PutBack(const PosixFolder& into, const std::string& name);
    Status CloseWritten();
    Status CloseDescriptor();

    const PosixFolder& m_folder;
    const PosixFolder* m_named = &m_folder;  // contains the temporary name
    UniqueFd m_descriptor;
    std::string m_strName;  // the temporary name; empty while anonymous or published
    bool m_bDurable = false;
    struct stat m_closed = {};  // of the file when it was closed before it was published
    NewFileDetails m_details;
};

}  // namespace quorbit
