// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Fixture for the progress dialog in a temporary folder: entries copy "from" to "to", and the log
// is in "logs".

#pragma once

#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/dialog/progress_dialog.h"
#include "platform/native.h"
#include "support/failing_file_system.h"
#include "support/fake_editor.h"
#include "support/fake_prompts.h"
#include "support/folder_test.h"
#include "support/run_machine.h"
#include "support/widgets.h"

namespace quorbit {

using Boxes = std::vector<FakePrompts::Box>;
using Lines = std::vector<std::string>;

// Blocks the worker thread in Pass() until the test calls Open().
class Gate {
public:
    void Pass()  // worker thread
    {
        m_bReached = true;
        m_bOpen.wait(false);
    }
    [[nodiscard]] bool Reached() const { return m_bReached; }
    void Open()
    {
        m_bOpen = true;
        m_bOpen.notify_all();
    }

private:
    std::atomic<bool> m_bReached = false;
    std::atomic<bool> m_bOpen = false;
};

class DialogTest : public FolderTest {
protected:
    DialogTest();
    ~DialogTest() override;

    // Adds an entry that copies all of "from" to "to", with additional flags.
    CDirCopy& AddCopy(std::uint32_t flags = 0);
    // Blocks the worker before the n-th call of this kind, counted from 1. The gate is owned by the
    // fixture.
    Gate& HoldAt(FileSystemCall call, int number);
    // Makes the n-th copy fail with "Permission denied".
    void FailCopy(int number);

    // Shows the dialog. The run starts when events are processed.
    void Open();
    void UntilReached(Gate& gate);
    void UntilEnded();   // the Cancel button reads "OK"
    void UntilClosed();  // the dialog has closed itself
    // Runs to the end and closes the dialog with OK.
    void RunAndClose();

    void Click(const char* button);
    [[nodiscard]] std::string Text(const char* control) const;
    [[nodiscard]] bool Enabled(const char* button) const;
    [[nodiscard]] std::string Log() const { return ContentOf(m_strLog); }

    RunMachine m_machine{Path("machine.ini"), Path("logs/")};
    std::unique_ptr<FileSystem> m_disk = MakeFileSystem();
    FailingFileSystem m_files{*m_disk};
    std::unique_ptr<ProcessRunner> m_processes = MakeProcessRunner();
    FakePrompts m_prompts;
    FakeEditor m_editor;
    Batch m_doc;
    std::string m_strLog;  // path of the log

    std::vector<std::string> m_told;  // calls of m_services: "exit code 1", "refresh", "exit"
    ProgressServices m_services{
        .run = {.pMachine = &m_machine.Values(),
                .pFiles = &m_files,
                .pProcesses = m_processes.get(),
                .bSyncAtEnd = false,
                .readOptFlags = [] { return 0U; }},
        .pPrompts = &m_prompts,
        .pTextEditor = &m_editor,
        .setExitCode = [this](int code) { m_told.push_back("exit code " + std::to_string(code)); },
        .postRefresh = [this] { m_told.emplace_back("refresh"); },
        .postExit = [this] { m_told.emplace_back("exit"); },
        .endProgram = [this](int code) { m_told.push_back("end " + std::to_string(code)); },
    };
    std::unique_ptr<CProgressDlg> m_pDialog;

private:
    std::vector<std::unique_ptr<Gate>> m_gates;
};

}  // namespace quorbit
