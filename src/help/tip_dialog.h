// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// "Tip of the Day": shows one tip at a time and remembers in the profile which one comes next. User
// interface thread only.

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

// Neither object is owned, and both must outlive the dialog.
struct TipServices {
    Required<const Profile*> pProfile;
    Required<Prompts*> pPrompts;
    std::string path;  // of the tips; empty: there are none
};

class CTipDlg : public QDialog {
public:
    CTipDlg(TipServices services, QWidget* parent);
    // Remembers where the next tip starts, however the dialog was closed.
    ~CTipDlg() override;
    CTipDlg(const CTipDlg&) = delete;
    CTipDlg& operator=(const CTipDlg&) = delete;

    // Reads the next tip. Without a change of the text if the file cannot be read, which is told.
    void GetNextTip(std::string& strTip);

    bool m_bStartup;       // the check box, as it was opened
    std::string m_strTip;  // on display, or a message

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
    bool m_bNoTips = false;  // the whole file was read and holds none
    QPlainTextEdit* m_editTip = nullptr;
    QCheckBox* m_chkStartup = nullptr;
    QPushButton* m_butNextTip = nullptr;
};

}  // namespace quorbit
