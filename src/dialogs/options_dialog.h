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

// Sources of the values of the dialog. The profile is not owned.
struct OptionSources {
    const Profile* pProfile = nullptr;
    // Returns the folder of the logs, or nullopt if it cannot be read.
    std::function<std::optional<std::string>()> readInstallPath;
    // Returns the log of the last run, or nullopt if it cannot be read; the process then exits.
    std::function<std::optional<std::string>()> readLogFile;
};

// Created for each use.
class COptionsDlg final : public QDialog {
public:
    // `services` must outlive the dialog.
    COptionsDlg(const DialogServices& services, OptionSources sources, QWidget* parent);

    // Fills the controls. Returns false if the log file cannot be read; the dialog must not be run
    // then.
    [[nodiscard]] bool OnInitDialog();
    // Fills and runs the dialog. Returns true after OK, which has written the profile.
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
