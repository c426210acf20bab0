// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The machine-wide values: what set-up lays down and the program mostly reads. They lie in the
// first section of the machine store, which is named after a version of the product; any will do.

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
    InstallPath = 1,  // folder of the logs, with a closing separator
    HelpFile = 2,     // the help's first page
    Run1 = 3,         // "1" before the first start
};
// The name under which a value is stored.
[[nodiscard]] const char* NameOf(MachineValue value);

class MachineValues {
public:
    // Neither store nor handler is owned by the values; the handler must outlive them.
    MachineValues(SettingsStore store, FatalHandler& fatal)
        : m_store(std::move(store)), m_fatal(fatal)
    {
    }

    // The text of a value; empty if it is missing or has 128 bytes or more. Reading Run1 when it is
    // "1" sets the first-run flag and stores "0". Nothing at all means that the fatal handler was
    // called: the store cannot be read and written, it has no section, the log file's path is
    // missing or too long, or Run1 could not be stored.
    [[nodiscard]] std::optional<std::string> GetRegValue(MachineValue value);
    // True on success; else the fatal handler was called.
    [[nodiscard]] bool SetRegValue(const std::string& name, const std::string& text);
    [[nodiscard]] bool SetRegValue(const std::string& name, std::uint32_t word);

    // This is the first start. Known after Run1 was read.
    [[nodiscard]] bool IsFirstRun() const { return m_bFirstRun; }

private:
    [[nodiscard]] std::optional<std::string> FindVersionFolder() const;
    [[nodiscard]] bool LeaveFirstRun(const std::string& folder);

    SettingsStore m_store;
    FatalHandler& m_fatal;
    bool m_bFirstRun = false;
};

// Lays down the machine store if there is none: Run1 "1", Install Path (the user's state folder,
// which is made), Help File (the installed help, if any), and an empty Log File, so that the
// options can be opened before the first run. A store that is there stays as it is.
Status EnsureMachineStore(const SettingsStore& machine);
// Set-up without a window: lays down what is missing and stores Run1 as "0", so that the next start
// is no first start. Also mends a store that has no section.
Status CompleteSetup(const SettingsStore& machine);

}  // namespace quorbit
