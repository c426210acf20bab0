// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/window_run.h"

#include <QApplication>
#include <utility>

namespace quorbit {

PromptAnswer WindowRun::RunPrompts::Ask(const std::string& text, const std::string& caption,
                                        PromptIcon icon, PromptButtons buttons)
{
    if (!silent) {
        return m_prompts.Ask(text, caption, icon, buttons);
    }
    switch (buttons) {
        case PromptButtons::Ok:
            return PromptAnswer::Ok;
        case PromptButtons::YesNo:
        case PromptButtons::NoYes:
            return PromptAnswer::No;
        case PromptButtons::YesNoCancel:
            break;
    }
    return PromptAnswer::Cancel;
}

std::optional<std::string> WindowRun::RunPrompts::AskOpenFile(const FileQuestion& question)
{
    return silent ? std::nullopt : m_prompts.AskOpenFile(question);
}

std::optional<std::string> WindowRun::RunPrompts::AskSaveFile(const FileQuestion& question)
{
    return silent ? std::nullopt : m_prompts.AskSaveFile(question);
}

WindowRun::WindowRun(Prompts& prompts, std::function<ProgressServices()> services,
                     std::function<QWidget*()> parent)
    : m_prompts(prompts), m_services(std::move(services)), m_parent(std::move(parent))
{
}

void WindowRun::DoModal(const Batch& batch)
{
    if (m_pDialog) {
        return;
    }
    m_prompts.silent = false;
    ProgressServices services = m_services();
    services.pPrompts = &m_prompts;
    m_pProcesses = services.run.pProcesses;
    m_nSignals = 0;
    CProgressDlg dialog(m_parent(), &batch, std::move(services));
    m_pDialog = &dialog;
    (void)dialog.exec();
    m_pDialog = nullptr;
}

void WindowRun::Stop(StopSignal signal)
{
    if (!IsOpen()) {
        return;
    }
    if (++m_nSignals == 2) {
        m_pProcesses->PassOn(signal);
    } else if (m_nSignals > 2) {
        m_pProcesses->Kill();
    }
    m_prompts.silent = true;
    m_pDialog->reject();
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box != nullptr && box != m_pDialog) {
        box->reject();
    }
}

}  // namespace quorbit
