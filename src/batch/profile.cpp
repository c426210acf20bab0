// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/profile.h"

#include <cstddef>

#include "batch/dir_copy.h"

namespace quorbit {

namespace {

SettingsValue ValueOf(Setting setting, std::string text)
{
    const SettingInfo& info = InfoOf(setting);
    return {info.section, info.name, std::move(text)};
}

}  // namespace

std::int32_t Profile::GetProfileInt(Setting setting) const
{
    return GetStoredInt(setting).value_or(InfoOf(setting).defaultInteger);
}

std::optional<std::int32_t> Profile::GetStoredInt(Setting setting) const
{
    const SettingInfo& info = InfoOf(setting);
    const auto stored = m_store.ReadInt(info.section, info.name);
    const bool counts = stored && (!info.positiveOnly || *stored > 0);
    return counts ? std::optional(*stored) : std::nullopt;
}

std::string Profile::GetProfileString(Setting setting) const
{
    return GetProfileString(setting, InfoOf(setting).defaultText);
}

std::string Profile::GetProfileString(Setting setting, const std::string& standard) const
{
    const SettingInfo& info = InfoOf(setting);
    auto stored = m_store.ReadText(info.section, info.name);
    if (!stored) {
        return standard;
    }
    return std::move(*stored);
}

void Profile::WriteProfileInt(Setting setting, std::int32_t value) const
{
    WriteProfileInts({{setting, value}});
}

void Profile::WriteProfileString(Setting setting, const std::string& value) const
{
    // Losing a window size or a similar setting must not interrupt the user.
    (void)m_store.Write({ValueOf(setting, value)});
}

void Profile::WriteProfileInts(const std::vector<std::pair<Setting, std::int32_t>>& values) const
{
    std::vector<SettingsValue> texts;
    for (const auto& [setting, value] : values) {
        texts.push_back(ValueOf(setting, std::to_string(value)));
    }
    (void)m_store.Write(texts);
}

PaneSize Profile::ReadPaneSize(Setting width, Setting height, PaneSize unset) const
{
    const std::int32_t stored = GetProfileInt(width);
    return stored == InfoOf(width).defaultInteger ? unset : PaneSize{stored, GetProfileInt(height)};
}

PaneSize Profile::DriveViewSize() const
{
    return ReadPaneSize(Setting::DriveViewSizeX, Setting::DriveViewSizeY, {200, 260});
}

PaneSize Profile::EditViewSize() const
{
    return ReadPaneSize(Setting::EditViewSizeX, Setting::EditViewSizeY, {640, 140});
}

std::vector<std::string> Profile::RecentFiles() const
{
    std::vector<std::string> paths;
    for (int i = 0; i < kRecentFiles; ++i) {
        std::string path = GetProfileString(NthSetting(Setting::RecentFile1, i));
        if (!path.empty()) {
            paths.push_back(std::move(path));
        }
    }
    return paths;
}

void Profile::WriteRecentFiles(const std::vector<std::string>& paths) const
{
    std::vector<SettingsValue> values;
    for (int i = 0; i < kRecentFiles; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const std::string path = place < paths.size() ? paths[place] : std::string();
        values.push_back(ValueOf(NthSetting(Setting::RecentFile1, i), path));
    }
    (void)m_store.Write(values);
}

DriveMap Profile::ReadDrives() const
{
    DriveMap drives;
    const auto section = m_store.ReadSection(kDrivesSection);
    if (!section) {
        return drives;
    }
    for (const auto& [name, folder] : *section) {
        std::string key = DriveKey(name);
        if (!key.empty() && folder.starts_with('/')) {
            drives.try_emplace(std::move(key), folder);
        }
    }
    return drives;
}

Status SetUpDefaultEntry(const SettingsStore& profile)
{
    constexpr std::uint32_t kCopyOfATree = DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE;
    std::vector<SettingsValue> missing;
    for (SettingsValue& value :
         std::vector{ValueOf(Setting::FileBits, std::to_string(kCopyOfATree)),
                     ValueOf(Setting::FileTypes, kEveryFile)}) {
        const auto stored = profile.ReadText(value.section, value.name);
        if (!stored && stored.GetError().Kind() != ErrorKind::Missing) {
            return stored.GetError();
        }
        if (!stored) {
            missing.push_back(std::move(value));
        }
    }
    return missing.empty() ? Status() : profile.Write(missing);
}

}  // namespace quorbit
