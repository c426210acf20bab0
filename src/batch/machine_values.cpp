// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/machine_values.h"

#include <cstddef>
#include <vector>

#include "platform/path_text.h"
#include "platform/standard_folders.h"

namespace quorbit {

namespace {

constexpr std::size_t kValueBuffer = 4096;  // bytes, including a terminating NUL; as PATH_MAX
constexpr std::size_t kNameBuffer = 80;     // the same for the name of the section

constexpr const char* kFirstRunAhead = "1";
constexpr const char* kFirstRunDone = "0";

// Returns the values of a new store, based on the current environment. Creates the state folder.
Result<std::vector<SettingsValue>> MakeTemplate(const std::string& folder)
{
    const std::string state = StateFolder();
    if (Status created = CreateFolders(state); !created) {
        return created.GetError();
    }
    return std::vector<SettingsValue>{
        {folder, NameOf(MachineValue::InstallPath), WithSeparator(state)},
        {folder, NameOf(MachineValue::HelpFile), FindDataFile("help/index.html")},
        {folder, NameOf(MachineValue::Run1), kFirstRunAhead},
        {folder, NameOf(MachineValue::LogFile), ""},
    };
}

}  // namespace

const char* NameOf(MachineValue value)
{
    switch (value) {
        case MachineValue::LogFile:
            return "Log File";
        case MachineValue::InstallPath:
            return "Install Path";
        case MachineValue::HelpFile:
            return "Help File";
        case MachineValue::Run1:
            break;
    }
    return "Run1";
}

std::optional<std::string> MachineValues::FindVersionFolder() const
{
    if (m_store.State() == StoreState::Usable) {
        auto folder = m_store.FirstSection();
        if (folder && folder->size() < kNameBuffer) {
            return std::move(*folder);
        }
    }
    m_fatal.FatalMessage(kRegistryMessage);
    return std::nullopt;
}

std::optional<std::string> MachineValues::GetRegValue(MachineValue value)
{
    const auto folder = FindVersionFolder();
    if (!folder) {
        return std::nullopt;
    }
    auto text = m_store.ReadText(*folder, NameOf(value));
    if (!text || text->size() >= kValueBuffer) {
        if (value != MachineValue::LogFile) {
            return std::string();
        }
        m_fatal.FatalMessage(kRegistryMessage);
        return std::nullopt;
    }
    if (value == MachineValue::Run1 && *text == kFirstRunAhead && !LeaveFirstRun(*folder)) {
        return std::nullopt;
    }
    return std::move(*text);
}

bool MachineValues::LeaveFirstRun(const std::string& folder)
{
    m_bFirstRun = true;
    const bool stored = m_store.Write({{folder, NameOf(MachineValue::Run1), kFirstRunDone}}).Ok();
    if (!stored) {
        m_fatal.FatalMessage(kRegistryMessage);
    }
    return stored;
}

bool MachineValues::SetRegValue(const std::string& name, const std::string& text)
{
    const auto folder = FindVersionFolder();
    if (!folder) {
        return false;
    }
    // Never store what GetRegValue refuses.
    const bool stored = text.size() < kValueBuffer && m_store.Write({{*folder, name, text}}).Ok();
    if (!stored) {
        m_fatal.FatalMessage(kRegistryMessage);
    }
    return stored;
}

bool MachineValues::SetRegValue(const std::string& name, std::uint32_t word)
{
    return SetRegValue(name, std::to_string(word));
}

Status EnsureMachineStore(const SettingsStore& machine)
{
    if (machine.State() != StoreState::Missing) {
        return {};
    }
    const auto values = MakeTemplate(kVersionFolder);
    return values ? machine.Write(*values) : Status(values.GetError());
}

Status CompleteSetup(const SettingsStore& machine)
{
    const auto section = machine.FirstSection();
    if (!section && section.GetError().Kind() != ErrorKind::Missing) {
        return section.GetError();
    }
    const std::string folder = section ? *section : kVersionFolder;
    const auto values = MakeTemplate(folder);
    if (!values) {
        return values.GetError();
    }
    std::vector<SettingsValue> missing;
    for (const SettingsValue& value : *values) {
        if (!machine.ReadText(folder, value.name)) {
            missing.push_back(value);
        }
    }
    missing.push_back({folder, NameOf(MachineValue::Run1), kFirstRunDone});
    return machine.Write(missing);
}

}  // namespace quorbit
