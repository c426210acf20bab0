// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/command_table.h"

#include <algorithm>
#include <array>

namespace quorbit {
namespace {

constexpr std::array kCommands{
    Command{CMD_FILE_NEW, "&New", "New", "Ctrl+N", "Ctrl+N", "document-new",
            "Starts a new, empty batch"},
    Command{CMD_FILE_OPEN, "&Open...", "Open", "Ctrl+O", "Ctrl+O", "document-open",
            "Opens a batch file"},
    Command{CMD_FILE_SAVE, "&Save", "Save", "Ctrl+S", "Ctrl+S", "document-save", "Saves the batch"},
    Command{CMD_FILE_SAVE_AS, "Save &As...", "", "", "", "document-save-as",
            "Saves the batch under a new name"},
    Command{CMD_START_BATCH, "Start &Batch File", "Start", "F8", "F8", "media-playback-start",
            "Runs the batch"},
    Command{CMD_EXIT, "E&xit", "", "Ctrl+Q", "Ctrl+Q", "application-exit", "Ends the program"},
    // Ctrl+X is only shown; the shortcut is the Delete key.
    Command{CMD_EDIT_ENTRY, "Edi&t", "Edit", "Ctrl+E", "Ctrl+E", "document-edit",
            "Edits the selected entry"},
    Command{CMD_DELETE, "&Delete", "Delete", "Ctrl+X", "Delete", "edit-delete",
            "Deletes entries, or makes one that deletes what is selected"},
    Command{CMD_VIEW_LARGE_ICONS, "Large &Icon View", "", "", "", "view-list-icons",
            "Shows files as large icons"},
    Command{CMD_VIEW_SMALL_ICONS, "&Small Icon View", "", "", "", "view-list-icons",
            "Shows files as small icons"},
    Command{CMD_VIEW_LIST, "&List View", "", "", "", "view-list-text", "Shows files as a list"},
    Command{CMD_VIEW_REPORT, "&Report View", "", "", "", "view-list-details",
            "Shows files with all columns"},
    Command{CMD_VIEW_ROW_DETAIL, "Row Detail &View", "", "", "", "view-list-details",
            "Selects whole rows in the list of files"},
    Command{CMD_SHOW_TOOLBAR, "&Toolbar", "", "", "", "", "Shows or hides the toolbar"},
    Command{CMD_SHOW_STATUS_BAR, "&Status Bar", "", "", "", "", "Shows or hides the status bar"},
    Command{CMD_LOG_FILE, "Log &File", "View Log", "F7", "F7", "text-x-generic",
            "Opens the log of the last run"},
    Command{CMD_OPTIONS, "&Options", "", "", "", "configure", "Changes the options"},
    Command{CMD_REFRESH, "R&efresh", "Refresh", "F5", "F5", "view-refresh",
            "Reloads drives and folders"},
    Command{CMD_VIEWS, "", "Views", "", "", "view-choose", "Changes how files are shown"},
    Command{CMD_HELP_TOPICS, "&Help Topics", "", "", "", "help-contents", "Opens the help"},
    Command{CMD_ABOUT, "&About QRB...", "", "", "", "help-about",
            "Shows the version and the licence"},
    Command{CMD_HELP, "", "", "", "F1", "", "Opens the help for the focused item"},
    Command{CMD_CONTEXT_HELP, "", "", "", "Shift+F1", "",
            "Opens the help for the next item that is clicked"},
    Command{CMD_NEXT_PANE, "", "", "", "F6", "", "Moves to the next pane"},
    Command{CMD_PREVIOUS_PANE, "", "", "", "Shift+F6", "", "Moves to the previous pane"},
    Command{CMD_TIP_OF_THE_DAY, "Tip of the &Day...", "", "", "", "", "Shows a tip"},
};

}  // namespace

std::span<const Command> CommandTable()
{
    return kCommands;
}

const Command* FindCommand(int nId)
{
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [nId](const Command& command) { return command.nId == nId; });
    return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace quorbit
