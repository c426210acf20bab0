// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the folder picker.

#include "dialogs/dialogs_test.h"
#include "dialogs/sel_dir_dialog.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {
namespace {

class PickersTest : public DialogsTest {};

TEST_F(PickersTest, FolderPickerGoesAsFarDownAsFoldersExist)
{
    Write({"Docs/Letters/x=", "file=", ".hidden/x="});
    const struct {
        std::string start;
        std::string shown;
    } cases[] = {
        {Path("Docs/Letters"), Path("Docs/Letters")},
        {Path("docs/LETTERS/"), Path("Docs/Letters")},
        {Path("Docs/gone/further"), Path("Docs")},
        {Path("file"), Path()},
        {"Q:\\docs", ""},
        {"", ""},
    };
    for (const auto& c : cases) {
        CSelDirDlg dialog(services, nullptr, c.start);
        auto* edit = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(edit->text().toStdString(), c.start);
        auto* panel = static_cast<ShellTree*>(dialog.findChild<QTreeWidget*>());
        EXPECT_TRUE(Until([&] {
            const ShellTreeNode* node = panel->SelectedNode();
            return node != nullptr && node->Path().value_or("") == c.shown &&
                   edit->text().toStdString() == c.shown;
        })) << c.start
            << " shows " << edit->text().toStdString();
    }
}

TEST_F(PickersTest, FolderPickerGivesTheTextOfItsBox)
{
    InNextDialog([](QDialog& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>();
        auto* panel = static_cast<ShellTree*>(dialog.findChild<QTreeWidget*>());
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("names nothing"));
        EXPECT_TRUE(Until([&] { return panel->SelectedNode() != nullptr && !panel->IsFilling(); }));
        Click(dialog, "OK");
    });
    EXPECT_EQ(PickFolder(services, nullptr, Path()), "names nothing");
    InNextDialog([](QDialog& dialog) { Click(dialog, "Cancel"); });
    EXPECT_EQ(PickFolder(services, nullptr, Path()), std::nullopt);
}

TEST_F(PickersTest, FolderPickerHasFoldersWithAPath)
{
    const auto folderBits = SFGAO_FOLDER | SFGAO_FILESYSTEM;
    const struct {
        const char* what;
        TreeCandidate candidate;
        TreeVerdict verdict;
    } cases[] = {
        {"file", {SFGAO_FILESYSTEM, "f"}, TreeVerdict::Count},
        {"folder", {folderBits, "d"}, TreeVerdict::Make},
        {"no way to files", {SFGAO_FOLDER, "d"}, TreeVerdict::Skip},
        {"first of the top",
         {SFGAO_FOLDER | SFGAO_FILESYSANCESTOR, "My Computer", true},
         TreeVerdict::Make},
        {"later at the top",
         {SFGAO_FOLDER | SFGAO_FILESYSANCESTOR, "x", true, false, 1},
         TreeVerdict::Skip},
        {"network",
         {SFGAO_FOLDER | SFGAO_FILESYSANCESTOR, "Network Neighborhood", true, false, 1},
         TreeVerdict::Make},
        {"control panel", {folderBits, "Control Panel"}, TreeVerdict::Skip},
        {"sub folders but no folder",
         {SFGAO_HASSUBFOLDER | SFGAO_FILESYSTEM, "x"},
         TreeVerdict::Count},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SelDirFilter(c.candidate), c.verdict) << c.what;
    }
}

}  // namespace
}  // namespace quorbit
