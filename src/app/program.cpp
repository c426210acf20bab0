// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program.h"

#include <cstdio>
#include <string>
#include <vector>

#include "app/display.h"
#include "app/show_batch.h"
#include "app/unattended_run.h"
#include "batch/batch_file.h"
#include "batch/machine_values.h"
#include "batch/profile.h"
#include "batch/settings_check.h"
#include "engine/exit_code.h"
#include "engine/run_context.h"
#include "platform/system_facts.h"

namespace quorbit {
namespace {

class FatalOnConsole : public FatalHandler {
public:
    void FatalMessage(const std::string& text) override
    {
        std::fprintf(stderr, "quorbit: %s\n", text.c_str());
    }
};

bool FileExists(const std::string& path)
{
    return KindOfPath(path) == PathKind::File;
}

int ShowBatchFile(const std::string& path)
{
    Batch file;
    const Profile profile(OpenSettingsStores().profile);
    const BatchFileStatus read =
        ReadBatchFile(path, file, profile.GetProfileInt(Setting::CodePage));
    if (!read) {
        std::fprintf(stderr, "quorbit: %s: %s\n", Printable(path).c_str(),
                     read.GetError().Text().c_str());
        return kExitNoRun;
    }
    std::fputs(ShowEntries(file.m_arrEntries).c_str(), stdout);
    return kExitOk;
}

int SetUp()
{
    const Status done = CompleteSetup(OpenSettingsStores().machine);
    if (!done) {
        std::fprintf(stderr, "quorbit: the settings cannot be created: %s\n",
                     done.GetError().Text().c_str());
    }
    return done ? kExitOk : kExitNoRun;
}

// Returns true if the first start is not complete. Until then, switches are ignored.
bool IsFirstRunAhead(const SettingsStore& machine)
{
    const auto folder = machine.FirstSection();
    const auto marker = folder ? machine.ReadText(*folder, NameOf(MachineValue::Run1)) : folder;
    return marker ? *marker == "1" : machine.State() == StoreState::Missing;
}

int StartUnattended(const CommandLine& line)
{
    const SettingsStores stores = OpenSettingsStores();
    FatalOnConsole fatal;
    // Ignore an error here: reading the store below reports it.
    (void)EnsureMachineStore(stores.machine);
    MachineValues machine(stores.machine, fatal);
    if (!machine.GetRegValue(MachineValue::Run1)) {
        return kExitOk;
    }
    if (machine.IsFirstRun()) {
        std::fprintf(stderr, "quorbit: %s\n", kNoSwitchesOnFirstRun);
        return kExitNoRun;
    }
    return RunUnattended(line, machine, Profile(stores.profile));
}

int Start(const CommandLine& line, const WindowStart& runInWindow)
{
    for (const std::string& mistake : FindSettingsMistakes(OpenSettingsStores().profile)) {
        std::fprintf(stderr, "quorbit: warning: %s\n", mistake.c_str());
    }
    const bool unattended = (line.nRunMode & kRunInvisible) != 0;
    if (HasDisplay() && !(unattended && !IsFirstRunAhead(OpenSettingsStores().machine))) {
        return runInWindow(line);
    }
    if (unattended) {
        return StartUnattended(line);
    }
    std::fputs("quorbit: this needs a window, and there is no display. Run a batch file with /I.\n",
               stderr);
    return kExitNoRun;
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments, const WindowStart& runInWindow)
{
    const CommandLine line = ParseCommandLine(arguments, FileExists);
    switch (line.action) {
        case CommandAction::Help:
            std::fputs(UsageText().c_str(), stdout);
            return kExitOk;
        case CommandAction::Version:
            std::puts("Quorbit " QUORBIT_VERSION);
            return kExitOk;
        case CommandAction::Setup:
            return SetUp();
        case CommandAction::Show:
            return ShowBatchFile(line.batchFile);
        case CommandAction::Wrong:
            std::fprintf(stderr, "quorbit: %s\nTry 'quorbit --help'.\n", line.error.c_str());
            return kExitNoRun;
        case CommandAction::Start:
            break;
    }
    return Start(line, runInWindow);
}

}  // namespace quorbit
