// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The settings in the profile of a user: section, name, type, default and meaning. Any thread.

#pragma once

#include <cstdint>
#include <span>

namespace quorbit {

// In the order of the table in settings.cpp. Numbered settings are consecutive; see NthSetting.
enum class Setting {
    OptFlags,
    QrbFilePath,
    SyncAtEnd,
    Lanes,
    CodePage,
    FileBits,
    FileTypes,
    FrameX,
    FrameY,
    FrameSizeX,
    FrameSizeY,
    WindowState,
    DriveViewSizeX,
    DriveViewSizeY,
    EditViewSizeX,
    EditViewSizeY,
    FileViewSizeX,
    FileViewSizeY,
    EditHeader0,
    EditHeader1,
    EditHeader2,
    EditHeader3,
    FileHeader0,
    FileHeader1,
    FileHeader2,
    FileHeader3,
    FileHeader4,
    ViewStyle,
    FullRowSel,
    TipStartUp,
    TipFilePos,
    TipTimeStamp,
    HelpSizeX,
    HelpSizeY,
    HelpContentsX,
    FileDialogSize,
    FileTypeDialogSize,
    FolderTypesDialogSize,
    ScriptDialogSize,
    SelectFolderSize,
    SelectFileSize,
    OptionsDialogSize,
    RecentFile1,
    RecentFile2,
    RecentFile3,
    RecentFile4,
    RecentFile5,
    RecentFile6,
    RecentFile7,
    RecentFile8,
};

inline constexpr int kRecentFiles = 8;

// The bits of OptFlags.
inline constexpr std::int32_t kOptSuppressErrors = 1;  // no error boxes during a run
inline constexpr std::int32_t kOptRefreshViews = 2;    // refresh the panes after a run

// The values of WindowState.
enum : std::int32_t {
    kWindowStateNone = -1,  // never stored
    kWindowMaximised = 0,
    kWindowMinimised = 1,
    kWindowNormal = 2,
};

enum class SettingType { Integer, Text };

struct SettingInfo {
    Setting id;
    const char* section;
    const char* name;
    SettingType type;
    std::int32_t defaultInteger;  // for SettingType::Integer
    const char* defaultText;      // for SettingType::Text
    bool positiveOnly;            // a stored integer of 0 or less counts as missing
    const char* meaning;          // a short description, in English
};

// Returns all settings, indexed by the value of Setting.
[[nodiscard]] std::span<const SettingInfo> AllSettings();
[[nodiscard]] const SettingInfo& InfoOf(Setting setting);
// Returns the setting `index` places after `first`: (EditHeader0, 2) is EditHeader2.
[[nodiscard]] constexpr Setting NthSetting(Setting first, int index)
{
    return static_cast<Setting>(static_cast<int>(first) + index);
}

}  // namespace quorbit
