// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/recent_files.h"

namespace quorbit {

void RecentFiles::Add(const std::string& path) const
{
    std::vector<std::string> paths = List();
    if (!paths.empty() && paths.front() == path) {
        return;
    }
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    m_profile.WriteRecentFiles(paths);
}

void RecentFiles::Remove(const std::string& path) const
{
    std::vector<std::string> paths = List();
    if (std::erase(paths, path) > 0) {
        m_profile.WriteRecentFiles(paths);
    }
}

}  // namespace quorbit
