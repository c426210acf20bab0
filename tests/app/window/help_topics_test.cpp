// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compares the help topics of the controls of all windows with those of the help.

#include "document/help_topics.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <set>

#include "app/window/app_test.h"
#include "dialogs/file_entry_window.h"
#include "dialogs/file_type_window.h"
#include "dialogs/folder_setup_dialog.h"
#include "dialogs/open_dialog.h"
#include "dialogs/options_dialog.h"
#include "dialogs/script_entry_window.h"
#include "dialogs/sel_dir_dialog.h"
#include "dialogs/set_attributes_dialog.h"
#include "document/help_topic.h"
#include "engine/dialog/progress_dialog.h"
#include "help/help_pages.h"
#include "help/tip_dialog.h"
#include "platform/native.h"
#include "platform/posix/mount_table.h"
#include "platform/shell/desktop_folder.h"
#include "support/run_machine.h"

namespace quorbit {
namespace {

class HelpTopicsTest : public AppTest {
protected:
    HelpTopicsTest()
    {
        services.pPrompts = &prompts;
        services.pIcons = &icons;
        services.desktop = MakeDesktopFolder(
            {[] { return ParseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"); }, "", {}});
        sources.pProfile = &profile;
    }

    ProgressServices MakeProgressServices()
    {
        return {.run = {.pMachine = &machine.Values(),
                        .pFiles = files.get(),
                        .pProcesses = processes.get(),
                        .readOptFlags = [] { return 0U; }},
                .pPrompts = &prompts,
                .pTextEditor = &editor,
                .setExitCode = [](int) {},
                .postRefresh = [] {},
                .postExit = [] {},
                .endProgram = [](int) {}};
    }

    // Creates every dialog in each of its variants.
    std::vector<std::unique_ptr<QDialog>> Dialogs()
    {
        std::vector<std::unique_ptr<QDialog>> all;
        for (const bool bDelete : {false, true}) {
            for (const bool bFiles : {false, true}) {
                all.push_back(std::make_unique<FileEntryWindow>(
                    services, NewFileEntryForm(bFiles, bDelete, "/", "/", {})));
            }
            all.push_back(
                std::make_unique<FileTypeWindow>(services, NewFileTypeForm(bDelete, "/", "/")));
        }
        all.push_back(std::make_unique<CFolderSetupDlg>(services, nullptr));
        all.push_back(std::make_unique<CSetAttributes>(nullptr));
        all.push_back(std::make_unique<ScriptEntryWindow>(services, ScriptEntryForm()));
        all.push_back(std::make_unique<CSelDirDlg>(services, nullptr, "/"));
        all.push_back(std::make_unique<COpenDialog>(services, nullptr, ""));
        all.push_back(std::make_unique<COptionsDlg>(services, sources, nullptr));
        all.push_back(std::make_unique<CProgressDlg>(nullptr, nullptr, MakeProgressServices()));
        all.push_back(std::make_unique<CTipDlg>(TipServices{&profile, &prompts, ""}, nullptr));
        return all;
    }

    static void Collect(const QObject& root, std::set<int>& topics)
    {
        topics.insert(HelpTopicOf(root));
        for (const QObject* object : root.findChildren<QObject*>()) {
            topics.insert(HelpTopicOf(*object));
        }
    }

    RunMachine machine{Path("machine.ini"), Path("logs/")};
    std::unique_ptr<FileSystem> files = MakeFileSystem();
    std::unique_ptr<ProcessRunner> processes = MakeProcessRunner();
    ItemIcons icons;
    DialogServices services;
    OptionSources sources;
};

// A topic without a control is never shown, and F1 shows nothing for a control without a topic.
TEST_F(HelpTopicsTest, ControlsAskForExactlyTheTopicsThatTheHelpExplains)
{
    SetUpProgram();
    Start();
    std::set<int> asked;
    Collect(Frame(), asked);
    for (const auto& dialog : Dialogs()) {
        Collect(*dialog, asked);
    }
    // The tip command is a button of the help window, and kTopicNone marks objects without a topic.
    asked.insert(HelpTopicOfCommand(CMD_TIP_OF_THE_DAY));
    asked.erase(kTopicNone);

    std::set<int> explained;
    static const QRegularExpression anchor(QStringLiteral("<a name=\"(\\d+)\">"));
    auto matches =
        anchor.globalMatch(HelpPages::Read(HelpPages().Page(QStringLiteral("controls.html"))));
    while (matches.hasNext()) {
        explained.insert(matches.next().captured(1).toInt());
    }
    EXPECT_EQ(asked, explained);
}

}  // namespace
}  // namespace quorbit
