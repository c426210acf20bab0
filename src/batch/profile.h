// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The user's profile: the settings of batch/settings.h with their defaults, and the drive map.
//
// Nothing here fails: a value that is missing or cannot be read gives its default, and a write that
// fails is not noticed. A value of one type is never asked for as the other. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "batch/settings.h"
#include "platform/path_text.h"
#include "platform/settings_store.h"

namespace quorbit {

// Pixels.
struct PaneSize {
    std::int32_t width;
    std::int32_t height;
    bool operator==(const PaneSize&) const = default;
};

class Profile {
public:
    explicit Profile(SettingsStore store) : m_store(std::move(store)) {}

    [[nodiscard]] std::int32_t GetProfileInt(Setting setting) const;
    [[nodiscard]] std::string GetProfileString(Setting setting) const;
    // With a default that the table does not know. A value that is stored as empty stays empty.
    [[nodiscard]] std::string GetProfileString(Setting setting, const std::string& standard) const;
    void WriteProfileInt(Setting setting, std::int32_t value) const;
    void WriteProfileString(Setting setting, const std::string& value) const;
    // Several integers at the cost of one.
    void WriteProfileInts(const std::vector<std::pair<Setting, std::int32_t>>& values) const;

    // 200 by 260 if no width is stored; 550 high if a width is stored and no height.
    [[nodiscard]] PaneSize DriveViewSize() const;
    // 640 by 140; 100 high in that case.
    [[nodiscard]] PaneSize EditViewSize() const;

    // The most recent first, at most eight. Empty places are left out.
    [[nodiscard]] std::vector<std::string> RecentFiles() const;
    void WriteRecentFiles(const std::vector<std::string>& paths) const;

    // Section "Drives": each "C=/mnt/c" gives a folder to a drive letter. What is no letter and
    // what is no absolute path is passed over.
    [[nodiscard]] DriveMap ReadDrives() const;

private:
    [[nodiscard]] PaneSize ReadPaneSize(Setting width, Setting height, PaneSize unset) const;

    SettingsStore m_store;
};

}  // namespace quorbit
