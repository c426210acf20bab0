// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A progress dialog over a temporary folder: "from" is copied to "to", the log lies in "logs".

#pragma once

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/dialog/progress_dialog.h"
#include "platform/posix_file_system.h"
#include "platform/posix_process_runner.h"
#include "support/failing_file_system.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {

// Answers boxes without showing any.
class ScriptedPrompts : public Prompts {
public:
    struct Box {
        std::string text;
        std::string caption;
        PromptIcon icon;
        PromptButtons buttons;
        bool operator==(const Box&) const = default;
    };

    std::vector<Box> boxes;
    PromptAnswer answer = PromptAnswer::No;  // to every question
    std::function<void()> whileOpen;         // may be null

    PromptAnswer Ask(const std::string& text, const std::string& caption, PromptIcon icon,
                     PromptButtons buttons) override;
    std::optional<std::string> AskOpenFile(const FileQuestion&) override { return {}; }
    std::optional<std::string> AskSaveFile(const FileQuestion&) override { return {}; }
};

using Boxes = std::vector<ScriptedPrompts::Box>;
using Lines = std::vector<std::string>;

class RecordingEditor : public TextEditor {
public:
    std::vector<std::string> opened;
    EditorStart result = EditorStart::Started;

    EditorStart Open(const std::string& path) override
    {
        opened.push_back(path);
        return result;
    }
};

// Holds the worker at a place until it is opened.
class Gate {
public:
    void Pass()  // worker
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

class DialogTest : public testing::Test {
protected:
    DialogTest();
    ~DialogTest() override;

    void Write(const TreeLines& items) { WriteTree(m_temp.Path(), items); }
    [[nodiscard]] std::string In(const std::string& name) const
    {
        return m_temp.Path() + "/" + name;
    }
    // An entry that copies all of "from" to "to", with further flags.
    CDirCopy& AddCopy(std::uint32_t flags = 0);
    // The worker stops at the number-th call of a kind.
    Gate& HoldAt(FileSystemCall call, int number);
    // The number-th copy fails with "Permission denied".
    void FailCopy(int number);

    // Shows the dialog; the run begins when events are served.
    void Open();
    // Serves events until it is so; a failure if it takes half a minute.
    void Until(const std::function<bool()>& done);
    void UntilReached(Gate& gate);
    void UntilEnded();   // the Cancel button reads "OK"
    void UntilClosed();  // the dialog has closed itself
    // Serves events for some time.
    void Wait(std::chrono::milliseconds time);
    // A whole run up to its end, OK pressed.
    void RunAndClose();

    void Click(const char* button);
    [[nodiscard]] std::string Text(const char* control) const;
    [[nodiscard]] bool Enabled(const char* button) const;
    [[nodiscard]] std::string Log() const { return ContentOf(m_strLog); }

    TempFolder m_temp;
    PosixFileSystem m_disk;
    FailingFileSystem m_files{m_disk};
    PosixProcessRunner m_processes{0};
    ScriptedPrompts m_prompts;
    RecordingEditor m_editor;
    CQRBDoc m_doc;
    ProgressServices m_services;
    std::string m_strLog;  // path of the log
    std::optional<std::string> m_storedLogPath;

    std::vector<std::string> m_told;  // what the program was told: "exit code 1", "refresh", "exit"
    std::unique_ptr<CProgressDlg> m_pDialog;

private:
    std::vector<std::unique_ptr<Gate>> m_gates;
};

}  // namespace quorbit
