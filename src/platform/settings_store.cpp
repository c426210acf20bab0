// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/settings_store.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/folder_lock.h"
#include "platform/path_text.h"
#include "platform/staged_file.h"
#include "platform/standard_folders.h"

namespace quorbit {

namespace {

constexpr std::uint64_t kLargestFile = 1 << 20;  // bytes; suffices for thousands of values

const Error kNoSuchValue(ErrorKind::Missing, "There is no such value");

bool HasNul(const SettingsValue& value)
{
    const auto has = [](const std::string& text) { return text.find('\0') != std::string::npos; };
    return has(value.section) || has(value.name) || has(value.text);
}

}  // namespace

std::optional<std::int32_t> ParseSettingsInteger(const std::string& text)
{
    std::int32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

Result<IniText> SettingsStore::Load() const
{
    const auto text = ReadWholeFile(m_strPath, kLargestFile);
    if (!text) {
        return text.GetError();
    }
    return IniText(*text);
}

StoreState SettingsStore::State() const
{
    const auto text = ReadWholeFile(m_strPath, kLargestFile);
    if (!text) {
        return text.GetError().Kind() == ErrorKind::Missing ? StoreState::Missing
                                                            : StoreState::Unreadable;
    }
    return CanReplace(m_strPath) ? StoreState::Usable : StoreState::ReadOnly;
}

Result<std::string> SettingsStore::FirstSection() const
{
    const auto ini = Load();
    if (!ini) {
        return ini.GetError();
    }
    auto section = ini->FirstSection();
    return section ? Result<std::string>(std::move(*section)) : kNoSuchValue;
}

Result<std::string> SettingsStore::ReadText(const std::string& section,
                                            const std::string& name) const
{
    const auto ini = Load();
    if (!ini) {
        return ini.GetError();
    }
    auto text = ini->Find(section, name);
    return text ? Result<std::string>(std::move(*text)) : kNoSuchValue;
}

Result<std::int32_t> SettingsStore::ReadInt(const std::string& section,
                                            const std::string& name) const
{
    const auto text = ReadText(section, name);
    if (!text) {
        return text.GetError();
    }
    const auto number = ParseSettingsInteger(*text);
    return number ? Result<std::int32_t>(*number)
                  : Error(ErrorKind::Other, "The value is not a number");
}

Result<std::vector<std::pair<std::string, std::string>>> SettingsStore::ReadSection(
    const std::string& section) const
{
    const auto ini = Load();
    if (!ini) {
        return ini.GetError();
    }
    return ini->Values(section);
}

Result<std::vector<SettingsLine>> SettingsStore::ReadLines() const
{
    const auto ini = Load();
    if (!ini) {
        return ini.GetError();
    }
    return ini->Lines();
}

Status SettingsStore::Write(const std::vector<SettingsValue>& values) const
{
    if (m_strPath.empty() || std::any_of(values.begin(), values.end(), HasNul)) {
        return Error(ErrorKind::Invalid);
    }
    const std::string folder = ParentFolder(m_strPath);
    if (Status created = CreateFolders(folder); !created) {
        return created;
    }
    const auto lock = LockFolder(folder);
    if (!lock) {
        return lock.GetError();
    }

    // Read again under the lock, so that changes of other processes are kept.
    const auto before = ReadWholeFile(m_strPath, kLargestFile);
    if (!before && before.GetError().Kind() != ErrorKind::Missing) {
        return before.GetError();
    }
    IniText ini(before ? *before : std::string());
    for (const SettingsValue& value : values) {
        ini.Set(value.section, value.name, value.text);
    }
    std::string after = ini.Text();
    if (!before) {
        // Fails if the file exists after all, so that its values are not lost.
        return CreateNewFile(m_strPath, after);
    }
    return *before == after ? Status() : ReplaceFile(m_strPath, after);
}

SettingsStores OpenSettingsStores()
{
    const std::string folder = ConfigFolder();
    const auto store = [&folder](const char* name) {
        return SettingsStore(folder.empty() ? folder : WithSeparator(folder) + name);
    };
    return {store("machine.ini"), store("profile.ini"), store("filetypes.ini")};
}

}  // namespace quorbit
