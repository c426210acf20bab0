// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Completes paths of folders in a line edit. Folders are read in a thread, so typing never waits.

#pragma once

#include <QCompleter>
#include <QStringListModel>
#include <optional>
#include <string>

#include "dialogs/folder_listing.h"
#include "platform/shell/shell_folder.h"

class QLineEdit;

namespace quorbit {

class FolderCompleter {
public:
    // edit outlives the completer; desktop may be null.
    FolderCompleter(QLineEdit& edit, ShellFolderPtr desktop);

private:
    void OnEdited(const QString& text);
    void OnNames(const std::vector<std::string>& names);

    QLineEdit& m_edit;
    ShellFolderPtr m_desktop;
    QStringListModel m_paths;
    QCompleter m_completer;
    QString m_strParent;  // whose folders are offered, with closing separator
    std::optional<FolderListing> m_listing;
};

}  // namespace quorbit
