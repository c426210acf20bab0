// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads and writes the program's settings: sections of named values in an editable text file (see
// platform/ini_text.h).
//
// Nothing is cached. A value that one process wrote is visible to the next read in any process, and
// is on the disk before the writing call returns. Files are replaced atomically: a full disk, a
// kill or an unreadable file loses nothing. QSettings is not used because on a full disk it
// truncated the file and reported success, it dropped lines that it did not understand, and it
// mixed up folders whose names are not UTF-8.
//
// Any thread, any number of processes. Writers are serialised by a lock on the folder, if the file
// system supports locks.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/ini_text.h"

namespace quorbit {

enum class StoreState {
    Missing,     // the file does not exist
    Usable,      // can be read and written
    ReadOnly,    // can be read only
    Unreadable,  // exists, but cannot be read
};

// Names and text are bytes other than NUL. An empty name is the value of the section itself.
struct SettingsValue {
    std::string section;
    std::string name;
    std::string text;
};

// Parses the text of a number; see SettingsStore::ReadInt.
[[nodiscard]] std::optional<std::int32_t> ParseSettingsInteger(const std::string& text);

class SettingsStore {
public:
    // path: absolute path of the file. It and its folder need not exist. With an empty path, reads
    // fail with Missing and writes with Invalid.
    explicit SettingsStore(std::string path) : m_strPath(std::move(path)) {}

    [[nodiscard]] const std::string& Path() const { return m_strPath; }
    [[nodiscard]] StoreState State() const;

    // These return ErrorKind::Missing if the section, the value or the file does not exist.
    [[nodiscard]] Result<std::string> FirstSection() const;
    [[nodiscard]] Result<std::string> ReadText(const std::string& section,
                                               const std::string& name) const;
    // Accepts decimal numbers from -2^31 to 2^31 - 1. Any other text fails with Other.
    [[nodiscard]] Result<std::int32_t> ReadInt(const std::string& section,
                                               const std::string& name) const;
    // Returns names and texts in file order; empty if there is no such section.
    [[nodiscard]] Result<std::vector<std::pair<std::string, std::string>>> ReadSection(
        const std::string& section) const;

    // Returns all lines that are values or are not understood.
    [[nodiscard]] Result<std::vector<SettingsLine>> ReadLines() const;

    // Stores all of the values or none. Creates the file and its folder if they are missing.
    Status Write(const std::vector<SettingsValue>& values) const;

private:
    [[nodiscard]] Result<IniText> Load() const;
    Status Merge(const std::vector<SettingsValue>& values) const;

    std::string m_strPath;
};

// The stores of the current user.
struct SettingsStores {
    SettingsStore machine;    // machine.ini: created by setup
    SettingsStore profile;    // profile.ini: the user's own settings
    SettingsStore fileTypes;  // filetypes.ini: programs that open file types
};
// Opens the stores in ConfigFolder(). Their paths are empty if there is no such folder.
[[nodiscard]] SettingsStores OpenSettingsStores();

}  // namespace quorbit
