// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A run in the dialog "Process Files", and what a stop signal does to it. User interface thread
// only.

#pragma once

#include <QPointer>
#include <functional>
#include <string>

#include "batch/prompts.h"
#include "document/qrb_doc.h"
#include "engine/dialog/progress_dialog.h"
#include "engine/dialog/progress_services.h"

namespace quorbit {

class WindowRun : public RunDialog {
public:
    // services is asked anew for each run and leaves the prompts out; parent gives the window that
    // the dialog stands over, or null for none. prompts must outlive this object.
    WindowRun(Prompts& prompts, std::function<ProgressServices()> services,
              std::function<QWidget*()> parent);

    // Does nothing if a run is open.
    void DoModal(const Batch& batch) override;

    // The dialog is on the screen.
    [[nodiscard]] bool IsOpen() const { return m_pDialog != nullptr && m_pDialog->isVisible(); }
    // Asks an open run to stop as its Cancel button does. Boxes of this run that are open or come
    // later answer themselves, as if they were closed: whoever sends a signal sees none.
    void Stop();

private:
    // Passes questions on until a signal has come.
    class RunPrompts : public Prompts {
    public:
        explicit RunPrompts(Prompts& prompts) : m_prompts(prompts) {}
        bool silent = false;

        PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                         PromptButtons buttons) override;
        std::optional<std::string> AskOpenFile(const FileQuestion& question) override;
        std::optional<std::string> AskSaveFile(const FileQuestion& question) override;

    private:
        Prompts& m_prompts;
    };

    RunPrompts m_prompts;
    std::function<ProgressServices()> m_services;
    std::function<QWidget*()> m_parent;
    QPointer<CProgressDlg> m_pDialog;
};

}  // namespace quorbit
