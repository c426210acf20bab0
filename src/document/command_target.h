// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Command numbers and the interface of objects that handle commands. User interface thread only.

#pragma once

namespace quorbit {

// Command numbers. Their texts are in command_table.
enum : int {
    CMD_VIEW_LARGE_ICONS = 110,
    CMD_VIEW_SMALL_ICONS = 111,
    CMD_VIEW_LIST = 112,
    CMD_VIEW_REPORT = 113,
    CMD_VIEW_ROW_DETAIL = 114,
    CMD_TIP_OF_THE_DAY = 118,
    CMD_NEW_SCRIPT_ENTRY = 145,
    CMD_START_BATCH = 32771,
    CMD_NEW_FILE_TYPE_ENTRY = 32772,
    CMD_OPTIONS = 32776,
    CMD_REFRESH = 32777,
    CMD_ADD_DEFAULT = 32778,
    CMD_NEW_FILE_ENTRY = 32779,
    CMD_EDIT_ENTRY = 32783,
    CMD_LOG_FILE = 32784,
    CMD_VIEWS = 32789,
    CMD_ADD_DEFAULT_ALL = 32790,
    CMD_FILE_NEW = 57600,
    CMD_FILE_OPEN = 57601,
    CMD_FILE_SAVE = 57603,
    CMD_FILE_SAVE_AS = 57604,
    CMD_RECENT_FILE_FIRST = 57616,  // to CMD_RECENT_FILE_LAST: eight files
    CMD_RECENT_FILE_LAST = 57623,
    CMD_DELETE = 57635,
    CMD_ABOUT = 57664,
    CMD_EXIT = 57665,
    CMD_HELP_INDEX = 57666,
    CMD_HELP_TOPICS = 57667,
    CMD_CONTEXT_HELP = 57669,
    CMD_HELP = 57670,
    CMD_HELP_DEFAULT = 57671,
    CMD_NEXT_PANE = 57680,
    CMD_PREVIOUS_PANE = 57681,
    CMD_SHOW_TOOLBAR = 59392,
    CMD_SHOW_STATUS_BAR = 59393,
};

// State of a command in menus and toolbars.
struct CommandState {
    bool enabled = true;
    bool checked = false;
};

// Handles commands: a view, the document, the main window or the application. A command is passed
// from one to the next until one handles it.
class CommandTarget {
public:
    virtual ~CommandTarget() = default;
    // Runs a command. Returns false if this target does not handle it.
    virtual bool OnCommand(int nId) = 0;
    // Sets the state of a command. Returns false and leaves `state` unchanged if this target does
    // not handle it.
    virtual bool OnUpdateCommand(int nId, CommandState& state) = 0;
};

}  // namespace quorbit
