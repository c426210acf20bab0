// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "batch/settings.h"

#include <cstddef>

#include "platform/code_page.h"

namespace quorbit {

namespace {

constexpr const char* kOptions = "Options";
constexpr const char* kDefaultEntry = "Options\\Default";
constexpr const char* kStartup = "Startup";
constexpr const char* kTip = "Tip";
constexpr const char* kHelp = "Help";
constexpr const char* kDialogs = "Dialogs";
constexpr const char* kRecent = "Recent File List";

constexpr SettingInfo Integer(Setting id, const char* section, const char* name,
                              std::int32_t standard, const char* meaning)
{
    return {id, section, name, SettingType::Integer, standard, "", false, meaning};
}

constexpr SettingInfo Positive(Setting id, const char* section, const char* name,
                               std::int32_t standard, const char* meaning)
{
    return {id, section, name, SettingType::Integer, standard, "", true, meaning};
}

constexpr SettingInfo Text(Setting id, const char* section, const char* name, const char* standard,
                           const char* meaning)
{
    return {id, section, name, SettingType::Text, 0, standard, false, meaning};
}

// clang-format off
using enum Setting;
constexpr SettingInfo kTable[] = {
    Integer(OptFlags, kOptions, "OptFlags", 0, "bit 0: no error boxes during a run; bit 1: refresh the views after it"),
    Text(QrbFilePath, kOptions, "Qrb File Path", "c:\\", "folder in which File Open starts until a batch file has been used"),
    Integer(SyncAtEnd, kOptions, "SyncAtEnd", 1, "1: a file is on the disk before it takes its place; 0: that is left to the system"),
    Integer(Setting::Lanes, kOptions, "Lanes", 0, "files that are prepared at the same time, 1 to 32; 0: as many as pay"),
    Integer(Setting::CodePage, kOptions, "CodePage", kDefaultCodePage, "number of the code page of texts in batch files made on Windows; 65001 is UTF-8"),

    Integer(FileBits, kDefaultEntry, "FileBits", 1, "flag word of a default entry"),
    Text(FileTypes, kDefaultEntry, "FileTypes", "Default", "\"*.*\", or the masks of a default entry with nothing between them"),

    Integer(FrameX, kStartup, "FrameX", 0, "left edge of the main window, pixels"),
    Integer(FrameY, kStartup, "FrameY", 0, "top edge"),
    Integer(FrameSizeX, kStartup, "FrameSizeX", 640, "width"),
    Integer(FrameSizeY, kStartup, "FrameSizeY", 480, "height"),
    Integer(WindowState, kStartup, "WindowState", kWindowStateNone, "0 maximised, 1 minimised, 2 normal"),
    Integer(DriveViewSizeX, kStartup, "DriveViewSizeX", -1, "width of the drive tree; -1: both sizes are unset"),
    Integer(DriveViewSizeY, kStartup, "DriveViewSizeY", 550, "its height, where the width is set"),
    Integer(EditViewSizeX, kStartup, "EditViewSizeX", -1, "width of the entry list; -1: both sizes are unset"),
    Integer(EditViewSizeY, kStartup, "EditViewSizeY", 100, "its height, where the width is set"),
    Integer(FileViewSizeX, kStartup, "FileViewSizeX", 0, "width of the file list; written only"),
    Integer(FileViewSizeY, kStartup, "FileViewSizeY", 0, "its height; written only"),
    Integer(EditHeader0, kStartup, "EditHeader0", 175, "column width of \"Source Folder\", pixels"),
    Integer(EditHeader1, kStartup, "EditHeader1", 175, "of \"Destination Folder\""),
    Integer(EditHeader2, kStartup, "EditHeader2", 180, "of \"File Types, Folders, Files\""),
    Integer(EditHeader3, kStartup, "EditHeader3", 150, "of \"File Types in Folders\""),
    Positive(FileHeader0, kStartup, "FileHeader0", 120, "column width of \"Name\", pixels"),
    Positive(FileHeader1, kStartup, "FileHeader1", 70, "of \"Size\""),
    Positive(FileHeader2, kStartup, "FileHeader2", 120, "of \"Type\""),
    Positive(FileHeader3, kStartup, "FileHeader3", 100, "of \"Modified\""),
    Positive(FileHeader4, kStartup, "FileHeader4", 45, "of \"Attributes\""),
    Integer(ViewStyle, kStartup, "ViewStyle", 1, "style of the file list; 1 is the report"),
    Integer(FullRowSel, kStartup, "FullRowSel", 0, "whole rows are selected in the file list"),

    Integer(TipStartUp, kTip, "StartUp", 0, "above 0: no tips at the start"),
    Integer(TipFilePos, kTip, "FilePos", 0, "position of the next tip in the tips file, bytes"),
    Text(TipTimeStamp, kTip, "TimeStamp", "", "time stamp of the tips file"),

    Positive(HelpSizeX, kHelp, "SizeX", 0, "width of the help window, pixels; 0: never stored"),
    Positive(HelpSizeY, kHelp, "SizeY", 0, "its height"),
    Positive(HelpContentsX, kHelp, "ContentsX", 0, "width of the contents in it"),

    Text(FileDialogSize, kDialogs, "FileEntry", "", "size of the dialog of file and folder entries, pixels, such as \"640x480\"; empty: never stored"),
    Text(FileTypeDialogSize, kDialogs, "FileTypeEntry", "", "of file-type entries"),
    Text(FolderTypesDialogSize, kDialogs, "FolderFileTypes", "", "of the file types of folders"),
    Text(ScriptDialogSize, kDialogs, "ScriptEntry", "", "of script entries"),
    Text(SelectFolderSize, kDialogs, "SelectFolder", "", "of the picker of folders"),
    Text(SelectFileSize, kDialogs, "SelectFile", "", "of the picker of files"),
    Text(OptionsDialogSize, kDialogs, "Options", "", "of the options"),

    Text(RecentFile1, kRecent, "File1", "", "path of the batch file used last"),
    Text(RecentFile2, kRecent, "File2", "", "of the one before"),
    Text(RecentFile3, kRecent, "File3", "", "and so on"),
    Text(RecentFile4, kRecent, "File4", "", ""),
    Text(RecentFile5, kRecent, "File5", "", ""),
    Text(RecentFile6, kRecent, "File6", "", ""),
    Text(RecentFile7, kRecent, "File7", "", ""),
    Text(RecentFile8, kRecent, "File8", "", ""),
};
// clang-format on

constexpr bool EachAtItsPlace()
{
    int place = 0;
    for (const SettingInfo& info : kTable) {
        if (static_cast<int>(info.id) != place++) {
            return false;
        }
    }
    return place == static_cast<int>(RecentFile8) + 1;
}
static_assert(EachAtItsPlace());

}  // namespace

std::span<const SettingInfo> AllSettings()
{
    return kTable;
}

const SettingInfo& InfoOf(Setting setting)
{
    return kTable[static_cast<std::size_t>(setting)];
}

}  // namespace quorbit
