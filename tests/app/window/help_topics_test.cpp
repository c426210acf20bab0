// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The controls of every window against the topics of the help.

#include "batch/help_topics.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDirIterator>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QToolBar>
#include <QToolButton>
#include <map>
#include <set>

#include "app/window/app_test.h"
#include "batch/help_topic.h"
#include "dialogs/file_entry_window.h"
#include "dialogs/file_type_window.h"
#include "dialogs/folder_setup_dialog.h"
#include "dialogs/open_dialog.h"
#include "dialogs/options_dialog.h"
#include "dialogs/script_entry_window.h"
#include "dialogs/sel_dir_dialog.h"
#include "dialogs/set_attributes_dialog.h"
#include "engine/dialog/progress_dialog.h"
#include "help/tip_dialog.h"
#include "platform/mount_table.h"
#include "platform/shell/desktop_folder.h"

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

    // Every dialog in every form that it has.
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
        all.push_back(std::make_unique<CProgressDlg>(nullptr, nullptr, ProgressServices()));
        all.push_back(std::make_unique<CTipDlg>(TipServices{&profile, &prompts, ""}, nullptr));
        return all;
    }

    // What a person can use or read a value from.
    static bool IsControl(const QWidget& widget)
    {
        return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
               qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
               qobject_cast<const QComboBox*>(&widget) != nullptr ||
               qobject_cast<const QLineEdit*>(&widget) != nullptr ||
               qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
               qobject_cast<const QProgressBar*>(&widget) != nullptr ||
               widget.objectName().startsWith(u"m_stc");
    }
    static std::string NameOf(const QWidget& window, const QWidget& widget)
    {
        return (window.windowTitle() + QStringLiteral(": ") +
                QLatin1String(widget.metaObject()->className()) + u' ' + widget.objectName() +
                u' ' + widget.accessibleName())
            .toStdString();
    }
    static void Collect(const QObject& root, std::set<int>& topics)
    {
        topics.insert(HelpTopicOf(root));
        for (const QObject* object : root.findChildren<QObject*>()) {
            topics.insert(HelpTopicOf(*object));
        }
    }

    ItemIcons icons;
    DialogServices services;
    OptionSources sources;
};

TEST_F(HelpTopicsTest, EveryControlOfEveryDialogHasATopicAndEveryTitleBarItsQuestionMark)
{
    for (const auto& dialog : Dialogs()) {
        EXPECT_TRUE(dialog->windowFlags().testFlag(Qt::WindowContextHelpButtonHint))
            << dialog->windowTitle().toStdString();
        int controls = 0;
        for (const QWidget* widget : dialog->findChildren<QWidget*>()) {
            if (IsControl(*widget) && widget->window() == dialog.get()) {
                ++controls;
                EXPECT_NE(HelpTopicAt(widget), kTopicNone) << NameOf(*dialog, *widget);
            }
        }
        EXPECT_GT(controls, 3) << dialog->windowTitle().toStdString();
    }
}

TEST_F(HelpTopicsTest, EveryButtonAndMenuItemOfTheMainWindowHasOne)
{
    SetUpProgram();
    Start();
    int items = 0;
    for (const QAction* title : Frame().menuBar()->actions()) {
        for (const QAction* action : title->menu()->actions()) {
            items += action->isSeparator() ? 0 : 1;
            EXPECT_EQ(HelpTopicOf(*action) == kTopicNone, action->isSeparator())
                << action->text().toStdString();
        }
    }
    EXPECT_GT(items, 20);
    for (const auto* button : Frame().findChild<QToolBar*>()->findChildren<QToolButton*>()) {
        if (button->defaultAction() != nullptr) {
            EXPECT_NE(HelpTopicAt(button), kTopicNone) << button->text().toStdString();
        }
    }
    for (const auto* pane : Frame().findChildren<QAbstractItemView*>()) {
        EXPECT_NE(HelpTopicAt(pane), kTopicNone) << pane->accessibleName().toStdString();
    }
}

// What no control asks for would never be read, and what has no page leaves F1 without an answer.
TEST_F(HelpTopicsTest, PagesAndControlsAskForTheSameNumbers)
{
    SetUpProgram();
    Start();
    std::set<int> asked;
    Collect(Frame(), asked);
    for (const auto& dialog : Dialogs()) {
        Collect(*dialog, asked);
    }
    // Neither is in a menu: the one is a button of the help, the other a line of nothing.
    asked.insert(HelpTopicOfCommand(CMD_TIP_OF_THE_DAY));
    asked.erase(kTopicNone);

    std::set<int> pages;
    QDirIterator files(QStringLiteral(":/help/topics"));
    while (files.hasNext()) {
        files.next();
        pages.insert(files.fileInfo().baseName().toInt());
    }
    EXPECT_EQ(asked, pages);
}

TEST_F(HelpTopicsTest, TheOptionsDialogAsksForTheNumbersThatAnInstalledHelpKnows)
{
    COptionsDlg dialog(services, sources, nullptr);
    std::map<std::string, int> asked;
    for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
        if (const int topic = HelpTopicOf(*widget)) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const auto* label = qobject_cast<const QLabel*>(widget);
            const QString text = button != nullptr  ? button->text()
                                 : label != nullptr ? label->text()
                                                    : widget->accessibleName();
            asked[text.toStdString()] = topic;
        }
    }
    const std::map<std::string, int> given{
        {"Log file path", 70},
        {"Refresh views after running a qrb file.", 29},
        {"Suppress error message boxes while running qrb file.", 71},
        {"Text editor for log file:  Notepad.exe", 79},
        {"Qrb file folder", 105},
        {"...", 106},
        {"OK", kTopicOk},
        {"Cancel", kTopicCancel},
    };
    EXPECT_EQ(asked, given);
}

}  // namespace
}  // namespace quorbit
