// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies the content and the metadata of a regular file and places the copy. One thread at a time.

#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/posix/content_copier.h"
#include "platform/posix/placement.h"
#include "platform/posix/posix_source_file.h"
#include "platform/posix/staged_copy.h"

namespace quorbit {

class PosixPreparedCopy final : public PreparedCopy {
public:
    // folder: where the copy is staged; must outlive the result. progress may be null.
    static Result<std::unique_ptr<PosixPreparedCopy>> Make(const PosixSourceFile& source,
                                                           const PosixFolder& folder,
                                                           ContentCopier& copier,
                                                           CopyProgress* progress);

    // Returns when the content is on the disk.
    Status MakeDurable() { return m_staged.MakeDurable(); }
    [[nodiscard]] bool IsDurable() const { return m_staged.IsDurable(); }
    [[nodiscard]] const PosixFolder& StagedIn() const { return m_folder; }
    // Gives the copy its name. On an error it may be placed again.
    Status Place(const PosixFolder& folder, const std::string& name, const CopyOptions& options);
    // What the copy lacks, see FileSystem::TakeNotKept.
    [[nodiscard]] const std::vector<std::string>& NotKept() const { return m_notKept; }

private:
    explicit PosixPreparedCopy(const PosixFolder& folder) : m_folder(folder), m_staged(folder) {}

    Status Fill(const PosixSourceFile& source, ContentCopier& copier, CopyProgress* progress);
    Status CopyMetadata(const PosixSourceFile& source);
    [[nodiscard]] bool IsOther(const FindData& item) const;
    Status CopyAttributeBits(const PosixSourceFile& source, mode_t mode);

    const PosixFolder& m_folder;
    StagedCopy m_staged;
    dev_t m_sourceDevice = 0;
    ino_t m_sourceInode = 0;
    std::vector<std::string> m_notKept;
};

}  // namespace quorbit
