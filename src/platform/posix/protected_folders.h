// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The folders that no run may delete: the root folder, the user's home folder and all parents of
// the home folder. One thread at a time.

#pragma once

#include <vector>

#include "platform/file_system.h"

namespace quorbit {

class ProtectedFolders {
public:
    [[nodiscard]] bool Contains(const FolderIdentity& identity);

private:
    void Find();
    void AddWithParents(const char* home);

    bool m_bFound = false;
    std::vector<FolderIdentity> m_identities;
};

}  // namespace quorbit
