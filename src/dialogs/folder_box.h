// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A text box for a folder with a "..." button and a hint, below the box, if the folder does not
// exist. Accepts any text. User interface thread only.

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
        Source,       // shows a hint if the folder does not exist
        Destination,  // shows a hint if the parent does not exist; a run creates the folder
        NotOfRun,     // like Source, but the hint does not mention runs
    };
    // Asks the user for a folder, starting at the given one. Returns nullopt on Cancel.
    using Pick = std::function<std::optional<std::string>(const std::string&)>;

    // `name` is the accessible name for screen readers, such as "source folder". `services` is not
    // kept.
    FolderBox(const DialogServices& services, Role role, const QString& name, Pick pick,
              QWidget* parent);

    void SetFolder(const std::string& folder);
    // Returns the bytes passed to SetFolder unless the text was changed since, otherwise the text
    // as bytes.
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
