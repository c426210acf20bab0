// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Dialog to pick a folder from the tree of the shell namespace. User interface thread only.

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
    // `services` must have `desktop` and `pIcons` and must outlive the dialog.
    CSelDirDlg(const DialogServices& services, QWidget* parent, std::string strPath);

    // Returns the path in the text box on OK, which need not exist, or nullopt on Cancel.
    [[nodiscard]] std::optional<std::string> DoModal();

    std::string m_strPath;  // bytes; the start folder, then the selected one

private:
    void LayOut();
    void OnNodeSelected();
    void OnArrived();
    void ShowPath(const std::string& path);

    QLineEdit* m_edit;
    ShellTree* m_pTree;
    std::string m_strShown;   // path last shown in the text box
    bool m_bArrived = false;  // reached the start folder, or the user selected another
};

// Filter of the tree: accepts folders that have a path and containers of such folders.
[[nodiscard]] TreeVerdict SelDirFilter(const TreeCandidate& candidate);

// Runs the dialog. `parent` is its parent window, `start` the start folder; otherwise as DoModal.
[[nodiscard]] std::optional<std::string> PickFolder(const DialogServices& services, QWidget* parent,
                                                    const std::string& start);

}  // namespace quorbit
