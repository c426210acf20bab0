// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialog "Set Options". User interface thread only.

#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <optional>
#include <string>

#include "batch/profile.h"
#include "dialogs/dialog_services.h"
#include "dialogs/folder_box.h"

namespace quorbit {

// Where the dialog has its values from. The profile is not owned.
struct OptionSources {
    const Profile* pProfile = nullptr;
    // The folder of the logs; nothing if it cannot be read.
    std::function<std::optional<std::string>()> readInstallPath;
    // The log of the last run; nothing if it cannot be read, in which case the process ends.
    std::function<std::optional<std::string>()> readLogFile;
};

// Made for each use.
class COptionsDlg final : public QDialog {
public:
    // services outlive the dialog.
    COptionsDlg(const DialogServices& services, OptionSources sources, QWidget* parent);

    // Fills the controls; false if there is no log file to show: the dialog must not be run then.
    [[nodiscard]] bool OnInitDialog();
    // Fills and runs the dialog. True after OK, which has written the profile.
    bool DoModal();

    void accept() override;

private:
    void LayOut();

    OptionSources m_sources;
    FolderBox* m_folder;
    QLineEdit* m_logFile;
    QLabel* m_editor;
    QCheckBox* m_suppress;
    QCheckBox* m_refresh;
};

}  // namespace quorbit
