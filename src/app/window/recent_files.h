// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The list of recently opened or saved batch files. It is stored in the profile and read on each
// use, so that several processes share it. One thread at a time.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "batch/profile.h"

namespace quorbit {

class RecentFiles {
public:
    // The profile must outlive this object.
    explicit RecentFiles(const Profile& profile) : m_profile(profile) {}

    // Returns absolute paths, the most recent one first; at most kRecentFiles.
    [[nodiscard]] std::vector<std::string> List() const { return m_profile.RecentFiles(); }
    // Adds or moves a path to the front and drops the oldest one if the list is full.
    void Add(const std::string& path) const;
    void Remove(const std::string& path) const;

private:
    const Profile& m_profile;
};

}  // namespace quorbit
