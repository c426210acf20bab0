// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The machine-wide values, written by set-up and mostly read by the program. They are stored in the
// first section of the machine store. The section is named after a product version; any name is
// accepted. One thread at a time.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "batch/fatal_handler.h"
#include "platform/error.h"
#include "platform/settings_store.h"

namespace quorbit {

inline constexpr const char* kCompany = "Halvane Works";
inline constexpr const char* kProduct = "Quorbit";
inline constexpr const char* kVersionFolder = "1.00";

inline constexpr const char* kRegistryMessage =
    "Error reading or writing from the registy.  Reinstall the product or contact Technical "
    "Support.";

enum class MachineValue {
    LogFile = 0,      // full path of the log of the last run; empty before the first run
    InstallPath = 1,  // folder of the logs, with a trailing separator
    HelpFile = 2,     // path of the first page of the help
    Run1 = 3,         // "1" before the first start
};
// Returns the name under which a value is stored.
[[nodiscard]] const char* NameOf(MachineValue value);

class MachineValues {
public:
    // Stores a copy of the store. The handler is not owned and must outlive this object.
    MachineValues(SettingsStore store, FatalHandler& fatal)
        : m_store(std::move(store)), m_fatal(fatal)
    {
    }

    // Returns a value, or an empty string if it is missing or has 4,096 bytes or more. If Run1 is
    // "1", reading it sets the first-run flag and stores "0". Calls the fatal handler and returns
    // nullopt if the store cannot be read and written, has no section or one whose name has 80
    // bytes or more, if the log path is missing or too long, or if Run1 cannot be stored.
    [[nodiscard]] std::optional<std::string> GetRegValue(MachineValue value);
    // Returns true on success. Otherwise calls the fatal handler and returns false.
    [[nodiscard]] bool SetRegValue(const std::string& name, const std::string& text);
    [[nodiscard]] bool SetRegValue(const std::string& name, std::uint32_t word);

    // True on the first start of the program. Valid after Run1 was read.
    [[nodiscard]] bool IsFirstRun() const { return m_bFirstRun; }

private:
    [[nodiscard]] std::optional<std::string> FindVersionFolder() const;
    [[nodiscard]] bool LeaveFirstRun(const std::string& folder);

    SettingsStore m_store;
    FatalHandler& m_fatal;
    bool m_bFirstRun = false;
};

// Creates the machine store if it does not exist: Run1 "1", Install Path (the state folder of the
// user, which is created), Help File (the installed help, or empty), and an empty Log File, so that
// the options can be opened before the first run. An existing store is not changed.
Status EnsureMachineStore(const SettingsStore& machine);
// Performs an unattended set-up: adds missing values and stores Run1 as "0", so that the next start
// is not a first start. Also adds a section to a store that has none.
Status CompleteSetup(const SettingsStore& machine);

}  // namespace quorbit
