// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Picks a folder from the tree of the shell namespace. User interface thread only.

#pragma once

#include <QDialog>
#include <QLineEdit>
#include <optional>
#include <string>

#include "dialogs/dialog_services.h"
#include "panes/shell_tree.h"

namespace quorbit {

class CSelDirDlg final : public QDialog {
public:
    // services need desktop and icons, and outlive the dialog.
    CSelDirDlg(const DialogServices& services, QWidget* parent, std::string strPath);

    // The text of the box on OK, whatever stands there; nothing on Cancel.
    [[nodiscard]] std::optional<std::string> DoModal();

    std::string m_strPath;  // bytes; the folder to start at, then the chosen one

private:
    void LayOut();
    void OnNodeSelected();
    void OnArrived();
    void ShowPath(const std::string& path);

    QLineEdit* m_edit;
    ShellTree* m_pTree;
    std::string m_strShown;   // the path whose text was put into the box
    bool m_bArrived = false;  // the tree has gone to the folder to start at, as far as there is one
};

// Which nodes its tree has: folders that have a path, and what leads to such.
[[nodiscard]] TreeVerdict SelDirFilter(const TreeCandidate& candidate);

// Runs the dialog over a window.
[[nodiscard]] std::optional<std::string> PickFolder(const DialogServices& services, QWidget* parent,
                                                    const std::string& start);

}  // namespace quorbit
