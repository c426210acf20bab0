// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The window of a script entry. User interface thread only.

#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <string>

#include "dialogs/dialog_services.h"
#include "dialogs/script_entry_form.h"

namespace quorbit {

class ScriptEntryWindow final : public QDialog {
public:
    // `services` must outlive the window.
    ScriptEntryWindow(const DialogServices& services, ScriptEntryForm form);

    // The edited form; valid after OK.
    [[nodiscard]] const ScriptEntryForm& Form() const { return m_form; }

    // Does not close the window until a type is selected.
    void accept() override;

private:
    void LayOut();
    void OnBrowse();
    [[nodiscard]] std::string File() const;

    const DialogServices& m_services;
    ScriptEntryForm m_form;
    QLineEdit* m_file;
    QPushButton* m_browse;
    QRadioButton* m_shellHost;
    QRadioButton* m_dosBatch;
};

}  // namespace quorbit
