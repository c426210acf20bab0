// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The entry dialogs as a person uses them.

#include "batch/qrb_doc.h"
#include "dialogs/external_file_dialog.h"
#include "dialogs/file_dialog.h"
#include "dialogs/file_entry_window.h"
#include "dialogs/file_type_dialog.h"
#include "dialogs/file_type_window.h"
#include "dialogs_test.h"
#include "support/tree.h"

namespace quorbit {
namespace {

using Names = std::vector<std::string>;

class FakeTree final : public CView, public DrivePane {
public:
    std::string source, dest, deleted, current, drop;

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::DriveTree; }
    void OnUpdate(CView*, int, const HintObject*) override {}
    bool OnCommand(int) override { return false; }
    bool OnUpdateCommand(int, CommandState&) override { return false; }
    [[nodiscard]] std::string GetSourcePath() const override { return source; }
    [[nodiscard]] std::string GetDestPath() const override { return dest; }
    [[nodiscard]] std::string GetDeletePath() const override { return deleted; }
    [[nodiscard]] bool DeleteMode() const override { return false; }
    [[nodiscard]] std::string CurrentPath() const override { return current; }
    [[nodiscard]] std::string DropText() const override { return drop; }
};

class FakeList final : public CView, public FilePane {
public:
    Names names;

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::FileList; }
    void OnUpdate(CView*, int, const HintObject*) override {}
    bool OnCommand(int) override { return false; }
    bool OnUpdateCommand(int, CommandState&) override { return false; }
    [[nodiscard]] bool FilesSelected() const override { return true; }
    [[nodiscard]] bool DeleteMode() const override { return false; }
    [[nodiscard]] Names GetSelectedNames() const override { return names; }
};

class EntryWindowsTest : public DialogsTest {
protected:
    EntryWindowsTest()
    {
        doc.AddView(&list);
        doc.AddView(&tree);
    }

    CQRBDoc doc;
    FakeTree tree;
    FakeList list;
};

CDirCopy Entry(std::uint32_t kind, std::uint32_t flags, Names items, Names folderTypes = {})
{
    CDirCopy entry("/nowhere/from\xff", "/to/", flags, kind, 0);
    entry.m_listItems = std::move(items);
    entry.m_listFolderTypes = std::move(folderTypes);
    return entry;
}

// As the document does.
bool Edit(CQRBDoc& doc, const DialogServices& services, const CDirCopy& entry, EntryValues& values)
{
    const bool bDelete = (entry.m_dwFlags & DCF_DELETE) != 0;
    if (entry.m_nKind == DCK_TYPES) {
        return CFileTypeDlg(services).DoModal(doc, &entry, bDelete, values);
    }
    if ((entry.m_dwFlags & (DCF_SCRIPT_WSH | DCF_SCRIPT_DOS)) != 0) {
        return CExternalFile(services).DoModal(doc, &entry, values);
    }
    const bool bFiles = (entry.m_dwFlags & DCF_FOLDER_ITEMS) == 0;
    return CFileDlg(services).DoModal(doc, bFiles, &entry, bDelete, values);
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
        ASSERT_TRUE(Edit(doc, services, entries[i], values)) << i;
        CDirCopy after(values.m_strSource, values.m_strDest, values.m_dwFlags, entries[i].m_nKind,
                       0);
        after.m_listItems = values.m_listItems;
        after.m_listFolderTypes = values.m_listFolderTypes;
        EXPECT_EQ(after, entries[i]) << i << " flags " << std::hex << after.m_dwFlags;
        EXPECT_EQ(prompts.told, Names{}) << i;

        InNextDialog([](QDialog& dialog) { Click(dialog, "Cancel"); });
        EXPECT_FALSE(Edit(doc, services, entries[i], values)) << i;
    }
}

TEST_F(EntryWindowsTest, ShowWhatTheirModeHas)
{
    const char* boxes[] = {"&Delete selected folders ",
                           "&Include sub folders",
                           "&Preserve folder structure",
                           "&Sync Files (overwrite older files)",
                           "Incremental bac&kup",
                           "Process all &but specified files (in Files to process listbox below)",
                           "Overwrite Read Only Files",
                           "File T&ype Setup"};
    const struct {
        bool bFiles;
        bool bDelete;
        const char* title;
        const char* shown;
    } cases[] = {
        {true, false, "Copy File Property Setup", "00011110"},
        {false, false, "Copy Folder Property Setup", "01111011"},
        {true, true, "Delete File Property Setup", "00000100"},
        {false, true, "Delete Folder Property Setup", "11000001"},
    };
    for (const auto& c : cases) {
        FileEntryWindow window(services, NewFileEntryForm(c.bFiles, c.bDelete, "", "", {}));
        EXPECT_EQ(window.windowTitle(), QLatin1String(c.title));
        for (std::size_t i = 0; i < std::size(boxes); ++i) {
            EXPECT_EQ(IsShown(window, boxes[i]), c.shown[i] == '1') << c.title << boxes[i];
        }
        EXPECT_EQ(Find<QLineEdit>(window, "m_edtDest")->isVisibleTo(&window), !c.bDelete);
    }
}

TEST_F(EntryWindowsTest, FileWindowOffersWhatLiesInTheSource)
{
    WriteTree(folder.Path(), {"b.txt=", ".hidden=", "A=", "sub/in="});
    const struct {
        bool bFiles;
        Names offered;
    } cases[] = {{true, {".hidden", "A", "b.txt"}}, {false, {"sub"}}};
    for (const auto& c : cases) {
        FileEntryWindow window(services, NewFileEntryForm(c.bFiles, false, folder.Path(), "", {}));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Lines(window, "m_lstChoose") == c.offered; }));
        EXPECT_EQ(SpeedBox(window)->count(), static_cast<int>(c.offered.size()));
        EXPECT_TRUE(SpeedBox(window)->currentText().isEmpty());
    }
    FileEntryWindow drives(services, NewFileEntryForm(false, false, kMyComputer, "", {"/"}));
    QTest::qWait(50);
    EXPECT_EQ(Lines(drives, "m_lstChoose"), Names{});
}

TEST_F(EntryWindowsTest, FileWindowRefusesAMask)
{
    FileEntryWindow window(services, NewFileEntryForm(true, false, "", "", {}));
    const struct {
        const char* text;
        bool taken;
    } cases[] = {{"*.txt", false}, {"?a", false}, {"a*", true}};
    for (const auto& c : cases) {
        prompts.told.clear();
        SpeedBox(window)->setEditText(QLatin1String(c.text));
        Click(window, "Add &Entry ->");
        EXPECT_EQ(prompts.told.empty(), c.taken) << c.text;
        EXPECT_EQ(SpeedBox(window)->currentText().isEmpty(), c.taken) << c.text;
    }
    EXPECT_EQ(Lines(window, "m_lstProcess"), Names{"a*"});
    SpeedBox(window)->setEditText(QStringLiteral("*"));
    prompts.told.clear();
    Click(window, "Add &Entry ->");
    EXPECT_EQ(prompts.told,
              Names{"Invalid characters: File types cannot be added in the File Setup Dialog.  "
                    "Activate the folders setup dialog to add file types."});
}

TEST_F(EntryWindowsTest, NewFileEntryBeginsWithTheDrop)
{
    tree.current = "/from";
    tree.dest = "/to";
    tree.drop = "Fb, a";
    CFileDlg dialog(services);
    EntryValues values;
    InNextDialog([](QDialog& window) {
        Click(window, "&Sync Files (overwrite older files)");
        EXPECT_FALSE(Button(window, "Incremental bac&kup")->isEnabled());
        Click(window, "OK");
    });
    ASSERT_TRUE(dialog.DoModal(doc, true, nullptr, false, values));
    EXPECT_EQ(values.m_strSource, "/from");
    EXPECT_EQ(values.m_strDest, "/to");
    EXPECT_EQ(values.m_listItems, (Names{"a", "b"}));
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_SYNC);

    // The next one keeps the destination and nothing else; a name with a comma stays whole.
    tree.dest.clear();
    list.names = {"x, y"};
    InNextDialog([](QDialog& window) { Click(window, "OK"); });
    ASSERT_TRUE(dialog.DoModal(doc, true, nullptr, true, values));
    EXPECT_EQ(values.m_strDest, "/to");
    EXPECT_EQ(values.m_listItems, Names{"x, y"});
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_DELETE);
}

TEST_F(EntryWindowsTest, CopyOfFoldersTellsThatEveryTypeIsTaken)
{
    tree.current = "/from";
    tree.drop = "Fdocs";
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
    ASSERT_TRUE(CFileDlg(services).DoModal(doc, false, nullptr, false, values));
    EXPECT_EQ(values.m_listFolderTypes, Names{"*.*"});
    EXPECT_EQ(values.m_dwFlags, DCF_FOLDER_ITEMS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE |
                                    DCF_ATTR_OR | DCF_ATTR_ARCHIVE);
    EXPECT_EQ(prompts.told,
              Names{"Folders Default: No file types were selected for the given folders.  *.* will "
                    "be used.  To set file types click on the \"file types setup\" button."});
}

TEST_F(EntryWindowsTest, NewFileTypeEntryWarnsOfNoTypes)
{
    tree.source = "/home/letters";
    tree.dest = "/backup";
    EntryValues values;
    CFileTypeDlg dialog(services);
    InNextDialog([](QDialog& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("File Type Property Setup"));
        EXPECT_FALSE(IsShown(window, "&Delete source folder"));
        Click(window, "OK");
    });
    ASSERT_TRUE(dialog.DoModal(doc, nullptr, false, values));
    EXPECT_EQ(prompts.told, Names{": Warning!  There are no filetypes to process.  "});
    EXPECT_EQ(values.m_strDest, "/backup/letters");
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS);

    tree.source.clear();
    tree.current = "/home";
    prompts.told.clear();
    InNextDialog([](QDialog& window) {
        Click(window, "P&rocess all file types (*.*)");
        EXPECT_FALSE(SpeedBox(window)->isEnabled());
        Click(window, "OK");
    });
    ASSERT_TRUE(dialog.DoModal(doc, nullptr, false, values));
    EXPECT_EQ(values.m_strSource, "/home");
    EXPECT_EQ(values.m_listItems, Names{"*.*"});
    EXPECT_EQ(prompts.told, Names{});
}

TEST_F(EntryWindowsTest, DeleteTypeWindowOffersToDeleteTheWholeSource)
{
    tree.deleted = "/old";
    EntryValues values;
    InNextDialog([](QDialog& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Delete File Type Setup"));
        EXPECT_FALSE(IsShown(window, "Overwrite Read Only Files"));
        Click(window, "&Include sub folders");
        Click(window, "&Delete source folder");
        EXPECT_FALSE(Button(window, "&Include sub folders")->isChecked());
        EXPECT_FALSE(Button(window, "&Add ->")->isEnabled());
        Click(window, "OK");
    });
    ASSERT_TRUE(CFileTypeDlg(services).DoModal(doc, nullptr, true, values));
    EXPECT_EQ(values.m_strSource, "/old");
    EXPECT_EQ(values.m_listItems, Names{"*.*"});
    EXPECT_EQ(values.m_dwFlags, DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER);
}

TEST_F(EntryWindowsTest, ScriptNeedsAType)
{
    EntryValues values;
    InNextDialog([&](QDialog& window) {
        auto* file = window.findChild<QLineEdit*>();
        QTest::keyClicks(file, QStringLiteral("/run.sh"));
        Click(window, "OK");
        EXPECT_EQ(prompts.told.size(), 1U);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(file->text(), QStringLiteral("/run.sh"));
        Click(window, "Windows Shell Host File");
        Click(window, "Dos Batch File");
        Click(window, "OK");
    });
    CExternalFile dialog(services);
    ASSERT_TRUE(dialog.DoModal(doc, nullptr, values));
    EXPECT_EQ(prompts.told,
              Names{": You need to select the file type  Windows Shell Host or Dos Batch File "
                    "before you can go on."});
    EXPECT_EQ(values.m_strSource, "/run.sh");
    EXPECT_EQ(values.m_dwFlags, DCF_SCRIPT_DOS);

    InNextDialog([](QDialog& window) {
        EXPECT_TRUE(window.findChild<QLineEdit*>()->text().isEmpty());
        EXPECT_FALSE(Button(window, "Dos Batch File")->isChecked());
    });
    EXPECT_FALSE(dialog.DoModal(doc, nullptr, values));
}

}  // namespace
}  // namespace quorbit
