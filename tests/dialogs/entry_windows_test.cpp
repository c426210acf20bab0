// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the entry dialogs with simulated user input.

#include "dialogs/dialogs_test.h"
#include "dialogs/external_file_dialog.h"
#include "dialogs/file_dialog.h"
#include "dialogs/file_entry_window.h"
#include "dialogs/file_type_dialog.h"
#include "dialogs/file_type_window.h"

namespace quorbit {
namespace {

using Names = std::vector<std::string>;

class EntryWindowsTest : public DialogsTest {
protected:
    TreeAnswers tree;
    ListAnswers list;
};

CDirCopy Entry(std::uint32_t kind, std::uint32_t flags, Names items, Names folderTypes = {})
{
    CDirCopy entry("/nowhere/from\xff", "/to/", flags, kind, 0);
    entry.m_listItems = std::move(items);
    entry.m_listFolderTypes = std::move(folderTypes);
    return entry;
}

// Opens the dialog for an entry, as CQRBDoc::EditEntry() does.
bool Edit(const DialogServices& services, const CDirCopy& entry, EntryValues& values)
{
    const bool bDelete = (entry.m_dwFlags & DCF_DELETE) != 0;
    if (entry.m_nKind == DCK_TYPES) {
        return CFileTypeDlg(services).DoModal({}, &entry, bDelete, values);
    }
    if ((entry.m_dwFlags & (DCF_SCRIPT_WSH | DCF_SCRIPT_DOS)) != 0) {
        return CExternalFile(services).DoModal(&entry, values);
    }
    const bool bFiles = (entry.m_dwFlags & DCF_FOLDER_ITEMS) == 0;
    return CFileDlg(services).DoModal({}, bFiles, &entry, bDelete, values);
}

TEST_F(EntryWindowsTest, OkWithoutAChangeGivesTheSameEntry)
{
    CDirCopy script("/run\xff.sh", "", DCF_SCRIPT_DOS, DCK_NAMES, 0);
    CDirCopy host("/run.js", "", DCF_SCRIPT_WSH, DCK_NAMES, 0);
    const std::uint32_t whole = DCF_SUBFOLDERS | DCF_PRESERVE_TREE;
    const std::uint32_t folders = DCF_FOLDER_ITEMS;
    const CDirCopy entries[] = {
        Entry(DCK_NAMES, DCF_NO_ATTRS, {"a", "B", "c\xff"}),
        Entry(DCK_NAMES, DCF_NO_ATTRS | DCF_SYNC | DCF_EXCLUDE | DCF_OVERWRITE_RO, {"a"}),
        Entry(DCK_NAMES, DCF_ATTR_OR | DCF_ATTR_HIDDEN | DCF_INCREMENTAL, {}),
        Entry(DCK_NAMES, DCF_NO_ATTRS | DCF_DELETE | DCF_EXCLUDE, {"a"}),
        Entry(DCK_NAMES, DCF_NO_ATTRS | folders | whole | DCF_SYNC, {"d"}, {"*.*"}),
        Entry(DCK_NAMES, DCF_ATTR_AND | folders | DCF_INCREMENTAL, {"/media/x/"}, {"*.b", "*.a"}),
        Entry(DCK_NAMES, DCF_NO_ATTRS | folders | DCF_DELETE | DCF_SUBFOLDERS, {"d"}, {"*.a"}),
        Entry(DCK_NAMES, DCF_NO_ATTRS | folders | DCF_DELETE | DCF_DELETE_FOLDER, {"d"}),
        Entry(DCK_TYPES, DCF_NO_ATTRS | whole | DCF_INCREMENTAL, {"*.a", "*.b"}),
        Entry(DCK_TYPES, DCF_ATTR_READONLY, {"*.a"}),
        Entry(DCK_TYPES, DCF_NO_ATTRS | DCF_ALL_TYPES | DCF_OVERWRITE_RO, {"*.*"}),
        Entry(DCK_TYPES, DCF_NO_ATTRS | DCF_EXCLUDE | DCF_SYNC, {"*.a"}),
        Entry(DCK_TYPES, DCF_NO_ATTRS | DCF_DELETE | DCF_EXCLUDE | DCF_SUBFOLDERS, {"*.a"}),
        Entry(DCK_TYPES, DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER, {"*.*"}),
        script,
        host,
    };
    for (std::size_t i = 0; i < std::size(entries); ++i) {
        InNextDialog([](QDialog& dialog) { Click(dialog, "OK"); });
        EntryValues values;
        ASSERT_TRUE(Edit(services, entries[i], values)) << i;
        CDirCopy after(values.m_strSource, values.m_strDest, values.m_dwFlags, entries[i].m_nKind,
                       0);
        after.m_listItems = values.m_listItems;
        after.m_listFolderTypes = values.m_listFolderTypes;
        EXPECT_EQ(after, entries[i]) << i << " flags " << std::hex << after.m_dwFlags;
        EXPECT_EQ(prompts.asked, Names{}) << i;

        InNextDialog([](QDialog& dialog) { Click(dialog, "Cancel"); });
        EXPECT_FALSE(Edit(services, entries[i], values)) << i;
    }
}

TEST_F(EntryWindowsTest, FileWindowOffersWhatLiesInTheSource)
{
    Write({"b.txt=", ".hidden=", "A=", "sub/in="});
    const struct {
        bool bFiles;
        Names offered;
    } cases[] = {{true, {".hidden", "A", "b.txt"}}, {false, {"sub"}}};
    for (const auto& c : cases) {
        FileEntryWindow window(services, NewFileEntryForm(c.bFiles, false, Path(), "", {}));
        EXPECT_TRUE(Until([&] { return Lines(window, "m_lstChoose") == c.offered; }));
        EXPECT_EQ(SpeedBox(window)->count(), static_cast<int>(c.offered.size()));
        EXPECT_TRUE(SpeedBox(window)->currentText().isEmpty());
    }
}

TEST_F(EntryWindowsTest, NewFileEntryBeginsWithTheDrop)
{
    tree.currentPath = "/from";
    tree.destPath = "/to";
    tree.dropText = "Fb, a, with, comma";
    tree.dropNames = {"b", "a", "with, comma"};
    CFileDlg dialog(services);
    EntryValues values;
    InNextDialog([](QDialog& window) {
        Click(window, "&Sync Files (overwrite older files)");
        EXPECT_FALSE(Button(window, "Incremental bac&kup")->isEnabled());
        Click(window, "OK");
    });
    ASSERT_TRUE(dialog.DoModal({tree, list}, true, nullptr, false, values));
    EXPECT_EQ(values.m_strSource, "/from");
    EXPECT_EQ(values.m_strDest, "/to");
    EXPECT_EQ(values.m_listItems, (Names{"a", "b", "with, comma"}));
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_SYNC);

    // The next dialog keeps only the destination. A name with a comma is not split.
    tree.destPath.clear();
    list.selectedNames = {"x, y"};
    InNextDialog([](QDialog& window) { Click(window, "OK"); });
    ASSERT_TRUE(dialog.DoModal({tree, list}, true, nullptr, true, values));
    EXPECT_EQ(values.m_strDest, "/to");
    EXPECT_EQ(values.m_listItems, Names{"x, y"});
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_DELETE);
}

TEST_F(EntryWindowsTest, DeleteEntriesDoNotChangeTheRememberedDestination)
{
    tree.deletePath = "/from/sub";
    tree.destPath = "/to";
    tree.currentPath = "/from";
    CFileTypeDlg dialog(services);
    EntryValues values;
    const auto use = [&](bool bDelete) {
        InNextDialog([](QDialog& window) {
            Click(window, "P&rocess all file types (*.*)");
            Click(window, "OK");
        });
        ASSERT_TRUE(dialog.DoModal({tree, list}, nullptr, bDelete, values));
    };
    use(false);
    tree.destPath.clear();
    for (int i = 0; i < 3; ++i) {
        use(true);
        EXPECT_EQ(values.m_strDest, "/to/from/sub");
    }
}

TEST_F(EntryWindowsTest, OkTakesTypedMasksAndAsksBeforeItDeletesEveryFile)
{
    const std::string question =
        "This deletes every file in /nowhere/from\\xFF, because no file is listed to be kept.  Do "
        "you want that?";
    const struct {
        std::uint32_t flags;
        Names listed;
        const char* typed;
        bool yes;
        bool closes;
        Names items;
        Names asked;
    } cases[] = {
        {DCF_EXCLUDE, {}, "*.cpp", false, true, {"*.cpp"}, {}},
        {DCF_EXCLUDE, {"*.h"}, "*.cpp, *.c;*.x", false, true, {"*.c", "*.cpp", "*.h", "*.x"}, {}},
        {DCF_EXCLUDE, {"*.h"}, " *.H", false, true, {"*.h"}, {}},
        {DCF_EXCLUDE, {}, "", false, false, {}, {question}},
        {DCF_EXCLUDE, {}, "", true, true, {}, {question}},
        {DCF_EXCLUDE, {"*.h"}, "*.*", false, false, {}, {question}},
        {0, {}, "a, b", false, true, {"a, b"}, {}},
        {0, {}, "", false, true, {}, {"Warning!  There are no filetypes to process.  "}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        prompts.asked.clear();
        prompts.answer = c.yes ? PromptAnswer::Yes : PromptAnswer::No;
        const CDirCopy entry = Entry(DCK_TYPES, DCF_NO_ATTRS | DCF_DELETE | c.flags, c.listed);
        FileTypeWindow window(services, EditFileTypeForm(true, entry));
        SpeedBox(window)->setEditText(QString::fromLatin1(c.typed));
        window.accept();
        EXPECT_EQ(window.result() == QDialog::Accepted, c.closes);
        EXPECT_EQ(prompts.asked, c.asked);
        if (c.closes) {
            EXPECT_EQ(ValuesOf(window.Form()).m_listItems, c.items);
        }
    }
}

TEST_F(EntryWindowsTest, OkTakesATypedNameWholeAndRefusesAMask)
{
    const struct {
        const char* typed;
        bool closes;
        Names items;
        std::size_t questions;
    } cases[] = {
        {"with, comma.dat", true, {"with, comma.dat"}, 0},
        {"*.txt", false, {}, 1},
        {"", false, {}, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        prompts.asked.clear();
        FileEntryForm form = NewFileEntryForm(true, true, "/nowhere", "", {});
        form.checks[EntryBox::AllBut] = true;
        FileEntryWindow window(services, form);
        SpeedBox(window)->setEditText(QString::fromLatin1(c.typed));
        window.accept();
        EXPECT_EQ(window.result() == QDialog::Accepted, c.closes);
        EXPECT_EQ(prompts.asked.size(), c.questions);
        EXPECT_EQ(Lines(window, "m_lstProcess"), c.items);
    }
}

TEST_F(EntryWindowsTest, CopyOfFoldersTellsThatEveryTypeIsTaken)
{
    tree.currentPath = "/from";
    tree.dropText = "Fdocs";
    EntryValues values;
    InNextDialog([](QDialog& window) {
        Click(window, "&Include sub folders");
        Click(window, "&Preserve folder structure");
        InNextDialog([](QDialog& attributes) {
            Click(attributes, "Don't apply attributes");
            Click(attributes, "&Archive files");
            Click(attributes, "OK");
        });
        Click(window, "Ad&vanced >>");
        Click(window, "OK");
    });
    ASSERT_TRUE(CFileDlg(services).DoModal({tree, list}, false, nullptr, false, values));
    EXPECT_EQ(values.m_listFolderTypes, Names{"*.*"});
    EXPECT_EQ(values.m_dwFlags, DCF_FOLDER_ITEMS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE |
                                    DCF_ATTR_OR | DCF_ATTR_ARCHIVE);
    EXPECT_EQ(prompts.asked,
              Names{"No file types were selected for the given folders.  *.* will "
                    "be used.  To set file types click on the \"file types setup\" button."});
}

}  // namespace
}  // namespace quorbit
