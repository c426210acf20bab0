// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the panes had selected when a command began. A plain value: the dialogs see no view.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorbit {

// Of the folder tree. Paths are native, bytes; empty if there is none.
struct TreeAnswers {
    std::string sourcePath;
    std::string destPath;    // of the node of the last drop
    std::string deletePath;  //
    // The folder that the file list shows; "My Computer" for the drives.
    std::string currentPath;
    // The last drop: D and a path, or F and names with ", " between them; empty if there was none.
    std::string dropText;
    bool deleteMode = false;  // the command is to set up a deletion
};

// Of the file list.
struct ListAnswers {
    bool filesSelected = false;  // files, not folders
    bool deleteMode = false;     // the command is to set up a deletion
    std::vector<std::string> selectedNames;
};

// A part is nothing if there is no such pane.
struct PaneAnswers {
    std::optional<TreeAnswers> tree;
    std::optional<ListAnswers> list;

    [[nodiscard]] bool FilesSelected() const { return list && list->filesSelected; }
};

}  // namespace quorbit
