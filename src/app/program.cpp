// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "app/complaint.h"
#include "app/display.h"
#include "app/show_batch.h"
#include "app/unattended_run.h"
#include "batch/batch_file.h"
#include "batch/machine_values.h"
#include "batch/profile.h"
#include "batch/settings_check.h"
#include "engine/exit_code.h"
#include "engine/run_context.h"
#include "platform/path_text.h"
#include "platform/standard_folders.h"
#include "platform/standard_streams.h"

namespace quorbit {
namespace {

// Returns why a settings file cannot be used.
std::string WhyUnusable(const SettingsStore& store)
{
    if (store.Path().empty()) {
        return "There is no folder for the settings. Set HOME or XDG_CONFIG_HOME to a full path.";
    }
    const auto section = store.FirstSection();
    if (!section && section.GetError().Kind() != ErrorKind::Missing) {
        return store.Path() + ": " + section.GetError().Text();
    }
    if (!section && store.State() != StoreState::Missing) {
        return store.Path() + " is empty or damaged. 'quorbit --setup' repairs it.";
    }
    return store.Path() + " cannot be written.";
}

// Adds the cause to the message, which has none.
class FatalOnConsole : public FatalHandler {
public:
    explicit FatalOnConsole(SettingsStore machine) : m_machine(std::move(machine)) {}
    void FatalMessage(const std::string& text) override
    {
        Complain(text);
        Complain(WhyUnusable(m_machine));
    }

private:
    SettingsStore m_machine;
};

// Returns the exit code of an option that only prints.
int Print(const std::string& text)
{
    const Status written = WriteStandardOutput(text);
    if (!written) {
        Complain("standard output: " + written.GetError().Text());
    }
    return written ? kExitOk : kExitErrors;
}

int ShowBatchFile(const std::string& path)
{
    Batch file;
    const Profile profile(OpenSettingsStores().profile);
    const BatchFileStatus read =
        ReadBatchFile(path, file, profile.GetProfileInt(Setting::CodePage));
    if (!read) {
        Complain(path + ": " + read.GetError().Text());
        return kExitNoRun;
    }
    return Print(ShowEntries(file.m_arrEntries));
}

int SetUp()
{
    const SettingsStores stores = OpenSettingsStores();
    const auto refuse = [](const std::string& where, const Error& error) {
        Complain("the settings cannot be created: " + where + ": " + error.Text());
        return kExitNoRun;
    };
    if (stores.machine.Path().empty()) {
        Complain(WhyUnusable(stores.machine));
        return kExitNoRun;
    }
    if (const Status done = CompleteSetup(stores.machine); !done) {
        return refuse(stores.machine.Path() + " or its log folder", done.GetError());
    }
    if (const Status done = SetUpDefaultEntry(stores.profile); !done) {
        return refuse(stores.profile.Path(), done.GetError());
    }
    return kExitOk;
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
    FatalOnConsole fatal(stores.machine);
    if (const Status created = EnsureMachineStore(stores.machine); !created) {
        Complain("the settings or the log folder cannot be created: " + created.GetError().Text());
    }
    MachineValues machine(stores.machine, fatal);
    if (!machine.GetRegValue(MachineValue::Run1)) {
        return kExitNoRun;
    }
    if (machine.IsFirstRun()) {
        // Only a convenience of the window, so an error must not get in the way here.
        (void)SetUpDefaultEntry(stores.profile);
        Complain(kNoSwitchesOnFirstRun);
        return kExitNoRun;
    }
    return RunUnattended(line, machine, Profile(stores.profile));
}

void NameMistakes(const SettingsStores& stores)
{
    std::vector<std::string> mistakes = FindSettingsMistakes(stores.profile);
    // Other errors of the machine store prevent the start and are named there.
    if (stores.machine.State() != StoreState::Unreadable) {
        std::ranges::move(FindSettingsMistakes(stores.machine), std::back_inserter(mistakes));
    }
    for (const std::string& mistake : mistakes) {
        Complain("warning: " + mistake);
    }
}

// /I needs a window only to show at the first start that switches are ignored.
bool NeedsWindow(const CommandLine& line, DisplayKind display)
{
    const bool unattended = (line.nRunMode & kRunInvisible) != 0;
    return unattended
               ? display == DisplayKind::Named && IsFirstRunAhead(OpenSettingsStores().machine)
               : display != DisplayKind::None;
}

int Start(const CommandLine& line, const WindowStart& runInWindow)
{
    const auto withoutWindow = [&line](const char* reason) {
        if ((line.nRunMode & kRunInvisible) != 0) {
            return StartUnattended(line);
        }
        Complain(std::string(reason) + " Run a batch file with /I.");
        return static_cast<int>(kExitNoRun);
    };
    NameMistakes(OpenSettingsStores());
    if (NeedsWindow(line, FindDisplay())) {
        return runInWindow(line, [&withoutWindow] {
            return withoutWindow("no window can be opened on this display.");
        });
    }
    return withoutWindow("this needs a window, and there is no display.");
}

}  // namespace

int RunProgram(const std::vector<std::string>& arguments, const WindowStart& runInWindow)
{
    ReserveStandardStreams();
    const CommandLine line = ParseCommandLine(arguments);
    const bool usesFolders = line.action == CommandAction::Setup ||
                             line.action == CommandAction::Show ||
                             line.action == CommandAction::Start;
    if (const std::string relative = RelativeFolderVariable(); usesFolders && !relative.empty()) {
        Complain(relative + " is not an absolute path");
        return kExitNoRun;
    }
    switch (line.action) {
        case CommandAction::Help:
            return Print(UsageText());
        case CommandAction::Version:
            return Print("Quorbit " QUORBIT_VERSION "\n");
        case CommandAction::Setup:
            return SetUp();
        case CommandAction::Show:
            return ShowBatchFile(line.batchFile);
        case CommandAction::Wrong:
            Complain(line.error);
            std::fputs("Try 'quorbit --help'.\n", stderr);
            return kExitNoRun;
        case CommandAction::Start:
            break;
    }
    return Start(line, runInWindow);
}

}  // namespace quorbit
