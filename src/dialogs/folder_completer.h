// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Completes folder paths in a line edit. Folders are read in a background thread, so that typing is
// never blocked. User interface thread only.

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
    // `edit` must outlive the completer; `desktop` may be null, which disables completion.
    FolderCompleter(QLineEdit& edit, ShellFolderPtr desktop);

private:
    void OnEdited(const QString& text);
    void OnNames(const std::vector<std::string>& names);

    QLineEdit& m_edit;
    ShellFolderPtr m_desktop;
    QStringListModel m_paths;
    QCompleter m_completer;
    QString m_strParent;  // the folder whose subfolders are offered, with a trailing separator
    std::optional<FolderListing> m_listing;
};

}  // namespace quorbit
