// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The profile of the user: the settings of batch/settings.h with their defaults, and the drive map.
//
// No function fails: a missing or unreadable value yields its default, and write errors are
// ignored. The type of the setting must match the function. Any thread.

#pragma once

#include <cstdint>
#include <optional>
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

// The section that maps drives and network paths to folders.
inline constexpr const char* kDrivesSection = "Drives";

class Profile {
public:
    explicit Profile(SettingsStore store) : m_store(std::move(store)) {}

    [[nodiscard]] std::int32_t GetProfileInt(Setting setting) const;
    // Returns nullopt if no value is stored, or only one that does not count.
    [[nodiscard]] std::optional<std::int32_t> GetStoredInt(Setting setting) const;
    [[nodiscard]] std::string GetProfileString(Setting setting) const;
    // Returns `standard` instead of the default of the table if no value is stored. A stored empty
    // value is returned as it is.
    [[nodiscard]] std::string GetProfileString(Setting setting, const std::string& standard) const;
    void WriteProfileInt(Setting setting, std::int32_t value) const;
    void WriteProfileString(Setting setting, const std::string& value) const;
    // Writes several integers with one replacement of the file.
    void WriteProfileInts(const std::vector<std::pair<Setting, std::int32_t>>& values) const;

    // 200 x 260 if no width is stored. If only a width is stored, the height is 550.
    [[nodiscard]] PaneSize DriveViewSize() const;
    // 640 x 140 if no width is stored. If only a width is stored, the height is 100.
    [[nodiscard]] PaneSize EditViewSize() const;

    // At most eight paths, the most recent first. Empty values are skipped.
    [[nodiscard]] std::vector<std::string> RecentFiles() const;
    // Stores the first eight paths and clears the remaining values.
    void WriteRecentFiles(const std::vector<std::string>& paths) const;

    // Reads section "Drives": each "C=/mnt/c" assigns a folder to a drive letter, each
    // "\\nas\backup=/mnt/nas" to a share. Ignores names that are neither, and folders that are not
    // absolute. The first of two equal names wins.
    [[nodiscard]] DriveMap ReadDrives() const;

private:
    [[nodiscard]] PaneSize ReadPaneSize(Setting width, Setting height, PaneSize unset) const;

    SettingsStore m_store;
};

// Performs the part of the set-up that concerns the profile: stores the settings of the entries
// that "Add Default" creates, unless they are stored already. Without them, such an entry has an
// attribute filter that no file passes.
Status SetUpDefaultEntry(const SettingsStore& profile);

}  // namespace quorbit
