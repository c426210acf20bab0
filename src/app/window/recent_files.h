// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The batch files that were opened or saved last. The list lies in the user's profile and is read
// anew at each use, so that two windows of the program see each other's files.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "batch/profile.h"

namespace quorbit {

class RecentFiles {
public:
    // The profile must outlive the list.
    explicit RecentFiles(const Profile& profile) : m_profile(profile) {}

    // Absolute paths, the most recent first, at most kRecentFiles.
    [[nodiscard]] std::vector<std::string> List() const { return m_profile.RecentFiles(); }
    // Puts a path in front; the oldest one falls out.
    void Add(const std::string& path) const;
    void Remove(const std::string& path) const;

private:
    const Profile& m_profile;
};

}  // namespace quorbit
