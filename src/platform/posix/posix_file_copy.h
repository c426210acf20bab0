// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Copies one item: a regular file, a symbolic link or a special file. One thread at a time.

#pragma once

#include <string>
#include <vector>

#include "platform/posix/content_copier.h"
#include "platform/posix/placement.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/posix_source_file.h"

namespace quorbit {

class PosixFileCopy {
public:
    // All arguments must outlive this object.
    PosixFileCopy(const PosixSourceFile& source, const PosixFolder& destination,
                  const std::string& name, const CopyOptions& options, ContentCopier& copier,
                  std::vector<std::string>& notKept)
        : m_source(source),
          m_destination(destination),
          m_strName(name),
          m_options(options),
          m_copier(copier),
          m_notKept(notKept)
    {
    }

    Status Run();

private:
    [[nodiscard]] Result<bool> CheckDestination() const
    {
        return Placement{m_destination, m_strName, m_options, m_source.Stat().st_dev,
                         m_source.Stat().st_ino}
            .Check();
    }
    Result<bool> LinkToPlaced() const;
    Status CopyRegular();
    Status CopyPrepared();
    [[nodiscard]] const PosixFolder& Names() const;
    Status Place(int folder, const std::string& own) const;
    Status CopyUnopened();
    Status Create(int folder, const std::string& name) const;
    [[nodiscard]] bool CannotHold(const Error& error) const;
    Status CopyMetadataByName(int folder, const std::string& name) const;

    const PosixSourceFile& m_source;
    const PosixFolder& m_destination;
    const std::string& m_strName;
    const CopyOptions& m_options;
    ContentCopier& m_copier;
    std::vector<std::string>& m_notKept;  // see FileSystem::TakeNotKept
};

}  // namespace quorbit
