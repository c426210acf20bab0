// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A key of named values, by a path in the way of a registry ("Software\Halvane
// Works\Quorbit\1.00").

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/error.h"
#include "platform/settings_store.h"

namespace quorbit {

enum class RegParent {
    LocalMachine,  // the machine store, below "Software\Halvane Works\Quorbit\"
    CurrentUser,   // the user's profile, below the same
    ClassesRoot,   // the file types; every key is in it
};

class CRegKey {
public:
    explicit CRegKey(SettingsStores stores) : m_stores(std::move(stores)) {}
    virtual ~CRegKey() { (void)Close(); }
    CRegKey(const CRegKey&) = delete;
    CRegKey& operator=(const CRegKey&) = delete;

    // Opens the key for reading and writing and closes the one that was open. A key that does not
    // exist is opened too: it comes into being with its first value. Upper and lower case are one.
    Status Open(RegParent parent, const std::string& key);
    // Ok also if none is open.
    Status Close();

    // These fail if no key is open. An empty name stands for the value of the key itself.
    Status Write(const std::string& name, std::uint32_t value);
    Status Write(const std::string& name, const std::string& value);
    // value is only set on success.
    Status Read(const std::string& name, std::uint32_t& value) const;
    // At most 2,047 bytes.
    Status Read(const std::string& name, std::string& value) const;

private:
    struct OpenKey {
        SettingsStore store;
        std::string section;
    };

    SettingsStores m_stores;
    std::optional<OpenKey> m_hKey;
    std::string m_strKey;  // as given to Open
};

// Writes a text under ClassesRoot, as the key's own value if there is no name. True on success.
[[nodiscard]] bool SetRegKey(const SettingsStores& stores, const std::string& key,
                             const std::string& value, const std::string& valueName = {});

// The path of the key that holds the machine-wide values: what CRegKey opens to read "Install
// Path".
[[nodiscard]] std::string MachineKeyPath();

}  // namespace quorbit
