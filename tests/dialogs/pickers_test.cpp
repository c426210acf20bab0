// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pickers, the options, and the sizes that dialogs remember.

#include <QTreeView>

#include "batch/profile.h"
#include "dialogs/file_entry_window.h"
#include "dialogs/file_type_window.h"
#include "dialogs/folder_setup_dialog.h"
#include "dialogs/kept_size.h"
#include "dialogs/open_dialog.h"
#include "dialogs/options_dialog.h"
#include "dialogs/script_entry_window.h"
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

TEST_F(PickersTest, FilePickerGoesThroughFoldersToAFile)
{
    const std::string name = "run\xff.sh";
    WriteTree(folder.Path(), {"sub/" + name + "=", "a.sh="});
    const auto waitForRow = [](QDialog& dialog, int row, const char* text) {
        auto* list = Find<QTreeView>(dialog, "m_lstFiles");
        const auto index = [&] { return list->model()->index(row, 0); };
        EXPECT_TRUE(Wait([&] { return index().data().toString() == QLatin1String(text); })) << text;
        list->setCurrentIndex(index());
        return list;
    };
    const struct {
        const char* what;
        std::function<void(QDialog&)> act;
        std::string result;
    } cases[] = {
        {"a file by its row",
         [&](QDialog& dialog) {
             waitForRow(dialog, 1, "a.sh");
             EXPECT_EQ(Find<QLineEdit>(dialog, "m_edtName")->text(), QStringLiteral("a.sh"));
             Click(dialog, "OK");
         },
         Path("a.sh")},
        {"a file in a folder by keys",
         [&](QDialog& dialog) {
             QTest::keyClick(waitForRow(dialog, 0, "sub"), Qt::Key_Return);
             QTest::keyClick(waitForRow(dialog, 0, "run\\xFF.sh"), Qt::Key_Return);
         },
         Path("sub/") + name},
        {"out of a folder and a name that is new",
         [&](QDialog& dialog) {
             QTest::keyClick(waitForRow(dialog, 0, "sub"), Qt::Key_Return);
             QTest::keyClick(waitForRow(dialog, 0, "run\\xFF.sh"), Qt::Key_Backspace);
             waitForRow(dialog, 0, "sub");
             QTest::keyClicks(Find<QLineEdit>(dialog, "m_edtName"), QStringLiteral("sub/../new"));
             Click(dialog, "OK");
             Wait([&] { return !dialog.isVisible(); });
         },
         Path("new")},
        {"the name of a folder leads into it",
         [&](QDialog& dialog) {
             QTest::keyClicks(Find<QLineEdit>(dialog, "m_edtName"), QStringLiteral("sub"));
             Click(dialog, "OK");
             waitForRow(dialog, 0, "run\\xFF.sh");
             EXPECT_EQ(Find<QLineEdit>(dialog, "m_edtLookIn")->text().toStdString(), Path("sub/"));
             Click(dialog, "Cancel");
         },
         Path("gone.sh")},
    };
    for (const auto& c : cases) {
        // Through the window of script entries.
        ScriptEntryForm form;
        form.file = Path("gone.sh");
        form.type = ScriptType::DosBatch;
        ScriptEntryWindow window(services, form);
        InNextDialog(c.act);
        Click(window, "...");
        window.accept();
        EXPECT_EQ(window.Form().file, c.result) << c.what;
    }
}

TEST_F(PickersTest, DialogsOpenWithTheSizeOfTheirLastClose)
{
    const Profile profile{SettingsStore(Path("profile.ini"))};
    services.pProfile = &profile;
    const OptionSources sources{&profile, [] { return std::nullopt; }, [] { return ""; }};
    const struct {
        Setting setting;
        std::function<std::unique_ptr<QDialog>()> make;
    } dialogs[] = {
        {Setting::FileDialogSize,
         [&] {
             return std::make_unique<FileEntryWindow>(services,
                                                      NewFileEntryForm(true, true, "", "", {}));
         }},
        {Setting::FileTypeDialogSize,
         [&] { return std::make_unique<FileTypeWindow>(services, NewFileTypeForm(true, "", "")); }},
        {Setting::FolderTypesDialogSize,
         [&] { return std::make_unique<CFolderSetupDlg>(services, nullptr); }},
        {Setting::ScriptDialogSize,
         [&] { return std::make_unique<ScriptEntryWindow>(services, ScriptEntryForm()); }},
        {Setting::SelectFolderSize,
         [&] { return std::make_unique<CSelDirDlg>(services, nullptr, ""); }},
        {Setting::SelectFileSize,
         [&] { return std::make_unique<COpenDialog>(services, nullptr, ""); }},
        {Setting::OptionsDialogSize,
         [&] { return std::make_unique<COptionsDlg>(services, sources, nullptr); }},
    };
    int added = 0;
    for (const auto& d : dialogs) {
        const char* name = InfoOf(d.setting).name;
        auto first = d.make();
        const QSize usual = first->size();
        first->show();
        const QSize wanted = first->size() + QSize(11 + added++, 7);
        first->resize(wanted);
        first->close();
        EXPECT_EQ(SizeOfText(profile.GetProfileString(d.setting)), wanted) << name;
        EXPECT_EQ(d.make()->size(), wanted) << name;

        profile.WriteProfileString(d.setting, "90000x80000");
        const QSize screen = first->screen()->availableSize();
        EXPECT_EQ(d.make()->size().boundedTo(screen), d.make()->size()) << name;
        profile.WriteProfileString(d.setting, "10x");
        EXPECT_EQ(d.make()->size(), usual) << name;
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
