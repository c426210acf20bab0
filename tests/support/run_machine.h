// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Machine values for test runs: a separate settings store and log folder.

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "batch/machine_values.h"

namespace quorbit {

class RunMachine : private FatalHandler {
public:
    // The file storePath need not exist. logFolder ends in a separator.
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
