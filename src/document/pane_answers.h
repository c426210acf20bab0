// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Selections of the panes when a command starts. A plain value, so that the dialogs do not depend
// on the views.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorbit {

// From the drive tree. Paths are bytes; empty if there is none.
struct TreeAnswers {
    std::string sourcePath;
    std::string destPath;    // folder of the last drop
    std::string deletePath;  // folder to delete
    // The last selected folder, which the file list shows; "My Computer" for the root node.
    std::string currentPath;
    // The last drop: D and a path, or F and names separated by ", "; empty if there was none.
    std::string dropText;
    // The names of a drop that came from the file list of this window, unchanged: a name that
    // contains a comma cannot be told from two names in dropText. Empty for any other drop.
    std::vector<std::string> dropNames;
    bool deleteMode = false;  // the command creates a delete entry
};

// From the file list.
struct ListAnswers {
    bool filesSelected = false;  // files, not folders
    bool deleteMode = false;     // the command creates a delete entry
    std::vector<std::string> selectedNames;
};

// A part is nullopt if there is no such pane.
struct PaneAnswers {
    std::optional<TreeAnswers> tree;
    std::optional<ListAnswers> list;

    [[nodiscard]] bool FilesSelected() const { return list && list->filesSelected; }
};

}  // namespace quorbit
