// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs a batch in the dialog "Process Files" and handles stop signals. User interface thread only.

#pragma once

#include <QPointer>
#include <functional>
#include <string>

#include "batch/prompts.h"
#include "document/qrb_doc.h"
#include "engine/dialog/progress_dialog.h"
#include "engine/dialog/progress_services.h"
#include "platform/process_runner.h"

namespace quorbit {

class WindowRun : public RunDialog {
public:
    // services is called for each run; its pPrompts is replaced. parent returns the parent window
    // of the dialog, or null. prompts must outlive this object.
    WindowRun(Prompts& prompts, std::function<ProgressServices()> services,
              std::function<QWidget*()> parent);

    // Runs the batch and returns when the dialog is closed. Does nothing if a run is open.
    void DoModal(const Batch& batch) override;

    // Returns true while the dialog is visible.
    [[nodiscard]] bool IsOpen() const { return m_pDialog != nullptr && m_pDialog->isVisible(); }
    // Stops an open run like its Cancel button. Message boxes of this run that are open, or would
    // open later, are answered as if they were closed, because the process may be unattended. The
    // second signal of a run is passed on to its script, and each further one ends the script.
    void Stop(StopSignal signal);

private:
    // Forwards questions until a stop signal arrives, then answers them itself.
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
    ProcessRunner* m_pProcesses = nullptr;  // of the run; not owned
    int m_nSignals = 0;                     // that the run has received
};

}  // namespace quorbit
