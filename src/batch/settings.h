// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Every value that a user's profile may hold, by name.

#pragma once

#include <cstdint>
#include <span>

namespace quorbit {

// In the order of the table. Numbered ones follow each other; see NthSetting.
enum class Setting {
    OptFlags,
    QrbFilePath,
    SyncAtEnd,
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
inline constexpr std::int32_t kOptRefreshViews = 2;    // read the panes anew after a run

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
    const char* meaning;          // for a person
};

// All settings, each at the place of its number.
[[nodiscard]] std::span<const SettingInfo> AllSettings();
[[nodiscard]] const SettingInfo& InfoOf(Setting setting);
// The index-th of numbered settings, e.g. (EditHeader0, 2) is EditHeader2.
[[nodiscard]] constexpr Setting NthSetting(Setting first, int index)
{
    return static_cast<Setting>(static_cast<int>(first) + index);
}

}  // namespace quorbit
