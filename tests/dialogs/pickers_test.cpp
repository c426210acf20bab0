// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The folder picker and the options.

#include "batch/profile.h"
#include "dialogs/options_dialog.h"
#include "dialogs/sel_dir_dialog.h"
#include "dialogs_test.h"
#include "platform/shell/shell_constants.h"
#include "support/tree.h"

namespace quorbit {
namespace {

class PickersTest : public DialogsTest {
protected:
    static bool Wait(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, 10000);
    }
};

TEST_F(PickersTest, FolderPickerGoesAsFarDownAsFoldersExist)
{
    WriteTree(folder.Path(), {"Docs/Letters/x=", "file=", ".hidden/x="});
    const struct {
        std::string start;
        std::string shown;
    } cases[] = {
        {Path("Docs/Letters"), Path("Docs/Letters")},
        {Path("docs/LETTERS/"), Path("Docs/Letters")},
        {Path("Docs/gone/further"), Path("Docs")},
        {Path("file"), folder.Path()},
        {"Q:\\docs", ""},
        {"", ""},
    };
    for (const auto& c : cases) {
        CSelDirDlg dialog(services, nullptr, c.start);
        auto* edit = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(edit->text().toStdString(), c.start);
        auto* panel = static_cast<ShellTree*>(dialog.findChild<QTreeWidget*>());
        EXPECT_TRUE(Wait([&] {
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
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("names nothing"));
        QTest::qWait(100);
        Click(dialog, "OK");
    });
    EXPECT_EQ(PickFolder(services, nullptr, folder.Path()), "names nothing");
    InNextDialog([](QDialog& dialog) { Click(dialog, "Cancel"); });
    EXPECT_EQ(PickFolder(services, nullptr, folder.Path()), std::nullopt);
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

TEST_F(PickersTest, OptionsAreStoredOnOkAlone)
{
    const Profile profile{SettingsStore(Path("profile.ini"))};
    profile.WriteProfileInt(Setting::OptFlags, 4 | kOptRefreshViews);
    const OptionSources sources{&profile, [] { return std::string("/logs/"); },
                                [] { return std::string("/logs/last.log"); }};

    InNextDialog([](QDialog& dialog) {
        EXPECT_EQ(Find<QLineEdit>(dialog, "m_edtFolder")->text(), QStringLiteral("/logs/"));
        EXPECT_EQ(Find<QLineEdit>(dialog, "m_edtLogFile")->text(),
                  QStringLiteral("/logs/last.log"));
        EXPECT_TRUE(Button(dialog, "Refresh views after running a qrb file.")->isChecked());
        Find<QLineEdit>(dialog, "m_edtFolder")->setText(QStringLiteral("/other"));
        Click(dialog, "Cancel");
    });
    EXPECT_FALSE(COptionsDlg(services, sources, nullptr).DoModal());
    EXPECT_EQ(profile.GetProfileString(Setting::QrbFilePath, "none"), "none");
    EXPECT_EQ(profile.GetProfileInt(Setting::OptFlags), 4 | kOptRefreshViews);

    InNextDialog([](QDialog& dialog) {
        Click(dialog, "Suppress error message boxes while running qrb file.");
        Find<QLineEdit>(dialog, "m_edtFolder")->clear();
        Click(dialog, "OK");
    });
    EXPECT_TRUE(COptionsDlg(services, sources, nullptr).DoModal());
    EXPECT_EQ(profile.GetProfileInt(Setting::OptFlags), kOptRefreshViews | kOptSuppressErrors);
    EXPECT_EQ(profile.GetProfileString(Setting::QrbFilePath, "none"), "");

    OptionSources broken = sources;
    broken.readLogFile = [] { return std::nullopt; };
    EXPECT_FALSE(COptionsDlg(services, broken, nullptr).DoModal());
}

}  // namespace
}  // namespace quorbit
