// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the program remembers: sections of named values in a file that a person can read and edit
// (platform/ini_text.h tells the form).
//
// Each call works on the file itself: what one process has written, the next one to ask finds, and
// a value is on the disk before the call that writes it returns. A file is replaced whole or stays
// as it was; a full disk, a kill or a file that cannot be read loses nothing. QSettings was tried
// and is not used: on a full disk it cut the file short and reported success, it dropped lines that
// it did not understand, and it took a folder whose name is not UTF-8 for another one.
//
// Any thread, any number of processes: writers take turns by a lock on the folder, where the file
// system has locks.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/error.h"

namespace quorbit {

class IniText;

enum class StoreState {
    Missing,     // there is no file yet
    Usable,      // can be read and written
    ReadOnly,    // can be read only
    Unreadable,  // there is something, but it cannot be read
};

// Names and text are bytes other than NUL. An empty name stands for the value of the section
// itself.
struct SettingsValue {
    std::string section;
    std::string name;
    std::string text;
};

class SettingsStore {
public:
    // path: the file, absolute. It and its folder need not exist. An empty path is a store that
    // has nothing and takes nothing.
    explicit SettingsStore(std::string path) : m_strPath(std::move(path)) {}

    [[nodiscard]] const std::string& Path() const { return m_strPath; }
    [[nodiscard]] StoreState State() const;

    // ErrorKind::Missing from these means that there is no such section or value, or no file.
    [[nodiscard]] Result<std::string> FirstSection() const;
    [[nodiscard]] Result<std::string> ReadText(const std::string& section,
                                               const std::string& name) const;
    // A whole number of 32 bits, signed or unsigned; anything else fails.
    [[nodiscard]] Result<std::int32_t> ReadInt(const std::string& section,
                                               const std::string& name) const;
    // Names and texts of a section in the order of the file; none if there is no such section.
    [[nodiscard]] Result<std::vector<std::pair<std::string, std::string>>> ReadSection(
        const std::string& section) const;

    // Stores all of the values or none. Creates the file and its folder if need be.
    Status Write(const std::vector<SettingsValue>& values) const;

private:
    [[nodiscard]] Result<IniText> Load() const;

    std::string m_strPath;
};

// The stores of the user who runs the program.
struct SettingsStores {
    SettingsStore machine;    // machine.ini: what set-up lays down
    SettingsStore profile;    // profile.ini: the user's own settings
    SettingsStore fileTypes;  // filetypes.ini: which program opens a file type
};
// In the configuration folder, by the environment as it is now.
[[nodiscard]] SettingsStores OpenSettingsStores();

}  // namespace quorbit
