// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A text box for a folder, with "..." beside it and, below, a hint if there is no such folder.
// Takes every text.

#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <string>

#include "dialogs/dialog_services.h"
#include "dialogs/folder_completer.h"
#include "dialogs/folder_probe.h"

namespace quorbit {

class FolderBox final : public QWidget {
public:
    enum class Role {
        Source,       // a hint if the folder is missing
        Destination,  // a hint if the folder above it is missing too: the folder itself gets made
    };
    // Asks for a folder, beginning at one; nothing on Cancel.
    using Pick = std::function<std::optional<std::string>(const std::string&)>;

    // name: what the box is for, for those who hear the window, e.g. "source folder".
    FolderBox(const DialogServices& services, Role role, const QString& name, Pick pick,
              QWidget* parent);

    void SetFolder(const std::string& folder);
    // What was set, to the byte, if nobody has changed the text since.
    [[nodiscard]] std::string Folder() const;

    [[nodiscard]] QLineEdit* Edit() { return m_edit; }
    [[nodiscard]] QPushButton* BrowseButton() { return m_browse; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void OnBrowse();
    void LookForFolder();
    void ShowHint(bool show);
    void FitHint();

    Role m_role;
    DriveMap m_drives;
    Pick m_pick;
    std::string m_strSet;
    QLineEdit* m_edit;
    QPushButton* m_browse;
    QLabel* m_hint;
    FolderCompleter m_completer;
    FolderProbe m_probe;
};

}  // namespace quorbit
