// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The "Tip of the Day" dialog: shows one tip at a time and stores the position of the next one in
// the profile. User interface thread only.

#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <optional>
#include <string>

#include "batch/profile.h"
#include "batch/prompts.h"
#include "help/tip_file.h"
#include "platform/required.h"

namespace quorbit {

// Services used by the dialog. Not owned; must outlive the dialog.
struct TipServices {
    Required<const Profile*> pProfile;
    Required<Prompts*> pPrompts;
    std::string path;  // path of the tips file; empty if there is none
};

class CTipDlg : public QDialog {
public:
    CTipDlg(TipServices services, QWidget* parent);
    // Stores the position of the next tip, no matter how the dialog was closed.
    ~CTipDlg() override;
    CTipDlg(const CTipDlg&) = delete;
    CTipDlg& operator=(const CTipDlg&) = delete;

    // Reads the next tip, or a message if the file contains none. If the file cannot be read, shows
    // an error and leaves strTip unchanged; without a file, does nothing.
    void GetNextTip(std::string& strTip);

    bool m_bStartup;       // initial state of the check box
    std::string m_strTip;  // the displayed tip, or a message

private:
    void OpenTips();
    void MakeControls();
    [[nodiscard]] QWidget* MakePaper();
    void ShowTip();
    void OnNextTip();
    void OnOK();
    void TellTrouble();

    TipServices m_services;
    std::optional<TipFile> m_tipFile;
    bool m_bNoTips = false;  // the file was read completely and contains no tip
    QPlainTextEdit* m_editTip = nullptr;
    QCheckBox* m_chkStartup = nullptr;
    QPushButton* m_butNextTip = nullptr;
};

}  // namespace quorbit
