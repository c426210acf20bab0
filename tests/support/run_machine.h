// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Machine values for runs of a test: a store of its own, whose logs go to a given folder.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "batch/machine_values.h"

namespace quorbit {

class RunMachine : private FatalHandler {
public:
    // storePath: a file that need not exist. logFolder: with a closing separator.
    RunMachine(const std::string& storePath, const std::string& logFolder)
        : m_store(storePath), m_values(m_store, *this)
    {
        SetLogFolder(logFolder);
    }
    void SetLogFolder(const std::string& folder)
    {
        const Status stored =
            m_store.Write({{kVersionFolder, NameOf(MachineValue::InstallPath), folder}});
        EXPECT_TRUE(stored.Ok());
    }
    [[nodiscard]] MachineValues& Values() { return m_values; }
    [[nodiscard]] std::string LastLog() { return *m_values.GetRegValue(MachineValue::LogFile); }

private:
    void FatalMessage(const std::string& text) override { ADD_FAILURE() << text; }

    SettingsStore m_store;
    MachineValues m_values;
};

}  // namespace quorbit
