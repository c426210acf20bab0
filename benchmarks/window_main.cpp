// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Measures the latency of the user interface during a run: bench_window SOURCE DESTINATION RESULT.
// Copies a tree in the dialog, posts an event to the user interface every 2 ms, and writes the
// longest time that an event waited, in milliseconds, to the file RESULT.

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <thread>

#include "batch/machine_values.h"
#include "batch/prompts.h"
#include "engine/dialog/desktop_text_editor.h"
#include "engine/dialog/progress_dialog.h"
#include "engine/exit_code.h"
#include "platform/native.h"

namespace quorbit::bench {
namespace {

using Clock = std::chrono::steady_clock;

const QEvent::Type kStamp = QEvent::Type(QEvent::registerEventType());

class StampedEvent : public QEvent {
public:
    StampedEvent() : QEvent(kStamp) {}
    const Clock::time_point posted = Clock::now();
};

class WaitMeter : public QObject {
public:
    double worst = 0;  // longest wait, milliseconds

    bool event(QEvent* event) override
    {
        if (event->type() != kStamp) {
            return QObject::event(event);
        }
        const std::chrono::duration<double, std::milli> waited =
            Clock::now() - static_cast<StampedEvent*>(event)->posted;
        worst = std::max(worst, waited.count());
        return true;
    }
};

class NoPrompts : public Prompts {
public:
    PromptAnswer Ask(const std::string& text, const std::string&, PromptIcon,
                     PromptButtons buttons) override
    {
        std::cerr << "bench_window: " << text << '\n';
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Yes;
    }
    std::optional<std::string> AskOpenFile(const FileQuestion&) override { return {}; }
    std::optional<std::string> AskSaveFile(const FileQuestion&) override { return {}; }
};

class FatalOnConsole : public FatalHandler {
public:
    void FatalMessage(const std::string& text) override
    {
        std::cerr << "bench_window: " << text << '\n';
    }
};

double LongestWait(const Batch& batch, MachineValues& machine, int& exitCode)
{
    const auto files = MakeFileSystem();
    const auto processes = MakeProcessRunner();
    NoPrompts prompts;
    DesktopTextEditor editor;
    const ProgressServices services{
        .run = {.pMachine = &machine,
                .pFiles = files.get(),
                .pProcesses = processes.get(),
                .nRunMode = kRunAndQuit,
                .bSyncAtEnd = false,
                .readOptFlags = [] { return 0U; }},
        .pPrompts = &prompts,
        .pTextEditor = &editor,
        .setExitCode = [&](int code) { exitCode = code; },
        .postRefresh = [] {},
        .postExit = [] {},
        .endProgram = [&](int code) { exitCode = code; },
    };

    WaitMeter meter;
    std::atomic<bool> over = false;
    std::thread poster([&] {
        while (!over) {
            QCoreApplication::postEvent(&meter, new StampedEvent);
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    });
    CProgressDlg(nullptr, &batch, services).exec();
    over = true;
    poster.join();
    return meter.worst;
}

}  // namespace
}  // namespace quorbit::bench

int main(int argc, char** argv)
{
    using namespace quorbit;
    if (argc != 4) {
        std::cerr << "Usage: bench_window SOURCE DESTINATION RESULT\n";
        return 2;
    }
    QApplication application(argc, argv);
    Batch batch;
    const std::string result = argv[3];
    batch.m_strFilePath = result + "-window.qrb";
    CDirCopy entry(argv[1], argv[2],
                   DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE | DCF_ALL_TYPES, DCK_TYPES, 0);
    entry.m_listItems = {"*.*"};
    batch.m_arrEntries.push_back(entry);
    int exitCode = 0;
    const std::string folder = result.substr(0, result.rfind('/') + 1);
    const SettingsStore store(result + "-machine.ini");
    if (!store.Write({{kVersionFolder, NameOf(MachineValue::InstallPath), folder}})) {
        std::cerr << "bench_window: " << store.Path() << " cannot be written\n";
        return kExitNoRun;
    }
    bench::FatalOnConsole fatal;
    MachineValues machine(store, fatal);
    std::ofstream(result) << bench::LongestWait(batch, machine, exitCode) << '\n';
    return exitCode;
}
