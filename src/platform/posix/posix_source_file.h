// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// An item to copy. A regular file is kept open; for links and special files only the stat data is
// kept.

#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/file_system.h"
#include "platform/posix/posix_folder.h"
#include "platform/posix/unique_fd.h"

namespace quorbit {

class PosixSourceFile final : public SourceFile {
public:
    // folder must outlive the result. Fails with IsAFolder if the item has become a folder.
    static Result<std::unique_ptr<SourceFile>> Open(const PosixFolder& folder, const FindData& item,
                                                    ReadAhead readAhead);

    [[nodiscard]] const FindData& Details() const override { return m_data; }
    [[nodiscard]] bool WasCached() const override { return m_bCached; }

    // -1 unless the item is a regular file.
    [[nodiscard]] int Descriptor() const { return m_descriptor.Get(); }
    [[nodiscard]] const struct stat& Stat() const { return m_stat; }
    [[nodiscard]] const PosixFolder& InFolder() const { return m_folder; }

    // Returns the current target of a symbolic link, of any length.
    [[nodiscard]] Result<std::string> LinkTarget() const;

private:
    PosixSourceFile(const PosixFolder& folder, const FindData& item)
        : m_folder(folder), m_data(item)
    {
    }

    Status OpenRegular();
    Status ReadStat();
    void StartReading();

    const PosixFolder& m_folder;
    FindData m_data;
    struct stat m_stat = {};
    UniqueFd m_descriptor;
    bool m_bCached = true;
};

}  // namespace quorbit
