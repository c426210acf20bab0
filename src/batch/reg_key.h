// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A key with named values, addressed by a registry path such as "Software\Halvane
// Works\Quorbit\1.00". Each key is a section of a settings store. One thread at a time.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/error.h"
#include "platform/settings_store.h"

namespace quorbit {

enum class RegParent {
    LocalMachine,  // machine store; keys start with "Software\Halvane Works\Quorbit\"
    CurrentUser,   // profile of the user; same start
    ClassesRoot,   // file types; any key
};

class CRegKey {
public:
    explicit CRegKey(SettingsStores stores) : m_stores(std::move(stores)) {}
    virtual ~CRegKey() { (void)Close(); }
    CRegKey(const CRegKey&) = delete;
    CRegKey& operator=(const CRegKey&) = delete;

    // Closes the current key and opens another one for reading and writing. A key that does not
    // exist is created by the first Write. Keys are not case-sensitive. Returns Missing if the key
    // is not below the product key or is empty, and AccessDenied if the store cannot be read and
    // written.
    Status Open(RegParent parent, const std::string& key);
    // Always succeeds, even if no key is open.
    Status Close();

    // These return Missing if no key is open. An empty name addresses the value of the key itself.
    Status Write(const std::string& name, std::uint32_t value);
    Status Write(const std::string& name, const std::string& value);
    // These set `value` only on success.
    Status Read(const std::string& name, std::uint32_t& value) const;
    // Fails if the text is longer than 2,047 bytes.
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

// Writes a text below ClassesRoot, as the value of the key itself if valueName is empty. Returns
// true on success.
[[nodiscard]] bool SetRegKey(const SettingsStores& stores, const std::string& key,
                             const std::string& value, const std::string& valueName = {});

// Returns the key of the machine-wide values, for example to read "Install Path" through CRegKey.
[[nodiscard]] std::string MachineKeyPath();

}  // namespace quorbit
