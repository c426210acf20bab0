// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests the commands of the document with fake dialogs and panes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "document/command_table.h"
#include "document/qrb_doc.h"
#include "support/fake_views.h"

namespace quorbit {
namespace {

// Fakes the three entry dialogs and the run: records the calls and returns scripted answers.
class FakeDialogs : public FileTypeDialog,
                    public FileDialog,
                    public ScriptDialog,
                    public RunDialog {
public:
    bool ok = true;
    EntryValues answer;
    std::vector<std::string> asked;
    int runs = 0;

    bool DoModal(const PaneAnswers&, const CDirCopy* entry, bool bDelete,
                 EntryValues& values) override
    {
        return Answer(
            std::string("types") + (entry ? " edit" : " new") + (bDelete ? " delete" : ""), values);
    }
    bool DoModal(const PaneAnswers&, bool bFiles, const CDirCopy* entry, bool bDelete,
                 EntryValues& values) override
    {
        return Answer(std::string(bFiles ? "files" : "folders") + (entry ? " edit" : " new") +
                          (bDelete ? " delete" : ""),
                      values);
    }
    bool DoModal(const CDirCopy* entry, EntryValues& values) override
    {
        return Answer(std::string("script") + (entry ? " edit" : " new"), values);
    }
    void DoModal(const Batch&) override { ++runs; }

private:
    bool Answer(const std::string& question, EntryValues& values)
    {
        asked.push_back(question);
        values = answer;
        return ok;
    }
};

class QrbDocCommandsTest : public testing::Test {
protected:
    void SetUp() override
    {
        tree.answers.sourcePath = "/from";
        tree.answers.destPath = "/to";
        dialogs.answer.m_strSource = "/s";
        dialogs.answer.m_strDest = "/d";
        dialogs.answer.m_dwFlags = DCF_NO_ATTRS;
        dialogs.answer.m_listItems = {"*.txt", "*.doc"};
        dialogs.answer.m_listFolderTypes = {"*.x"};
        doc.AddView(&list);
        doc.AddView(&tree);
        doc.AddView(&entries);
    }
    void AddEntry(std::uint32_t kind, std::uint32_t flags, std::uint32_t id)
    {
        doc.m_arrEntries.emplace_back("/old", "/older", flags, kind, id);
    }
    [[nodiscard]] std::vector<std::uint32_t> Ids() const
    {
        std::vector<std::uint32_t> ids;
        for (const CDirCopy& entry : doc.m_arrEntries) {
            ids.push_back(entry.m_nId);
        }
        return ids;
    }

    FakeDialogs dialogs;
    DefaultEntry standard;
    CQRBDoc doc{{&dialogs, &dialogs, &dialogs, &dialogs, [this] { return standard; }}};
    FakeTree tree;
    FakeList list;
    FakeView entries{ViewKind::EntryList};
};

using Ids = std::vector<std::uint32_t>;
using Strings = std::vector<std::string>;

TEST_F(QrbDocCommandsTest, EachNewEntryTakesTheListsOfItsVariety)
{
    struct Case {
        int command;
        const char* question;
        std::uint32_t flags;
        std::uint32_t kind;
        const char* dest;
        std::size_t items;
        std::size_t types;
    };
    for (const Case& c :
         {Case{CMD_NEW_FILE_TYPE_ENTRY, "types new", DCF_NO_ATTRS, DCK_TYPES, "/d", 2, 0},
          Case{CMD_NEW_FILE_ENTRY, "files new", DCF_NO_ATTRS, DCK_NAMES, "/d", 2, 1},
          Case{CMD_NEW_SCRIPT_ENTRY, "script new", DCF_SCRIPT_DOS, DCK_NAMES, "", 0, 0}}) {
        doc.OnNewDocument();
        entries.hints.clear();
        dialogs.asked.clear();
        dialogs.answer.m_dwFlags = c.flags;
        ASSERT_TRUE(doc.OnCommand(c.command));
        EXPECT_EQ(dialogs.asked, Strings{c.question});
        ASSERT_EQ(doc.m_arrEntries.size(), 1U) << c.question;
        const CDirCopy& entry = doc.GetEntry(0);
        EXPECT_EQ(entry.m_strSource, "/s");
        EXPECT_EQ(entry.m_strDest, c.dest) << c.question;
        EXPECT_EQ(entry.m_nKind, c.kind) << c.question;
        EXPECT_EQ(entry.m_listItems.size(), c.items) << c.question;
        EXPECT_EQ(entry.m_listFolderTypes.size(), c.types) << c.question;
        EXPECT_TRUE(doc.IsModified());
        EXPECT_EQ(entries.hints, std::vector<int>{HINT_REFRESH_ENTRIES});
    }
}

TEST_F(QrbDocCommandsTest, PanesTellDialogsWhatIsMeantAndACancelledOneChangesNothing)
{
    AddEntry(DCK_TYPES, 0, 3);
    const std::vector<CDirCopy> before = doc.m_arrEntries;
    tree.answers.deleteMode = true;
    list.answers.deleteMode = true;
    list.answers.filesSelected = false;
    dialogs.ok = false;
    doc.OnCommand(CMD_NEW_FILE_TYPE_ENTRY);
    doc.OnCommand(CMD_NEW_FILE_ENTRY);
    doc.EditEntry(3);
    EXPECT_EQ(dialogs.asked, (Strings{"types new delete", "folders new delete", "types edit"}));
    EXPECT_TRUE(doc.m_arrEntries == before);
    EXPECT_FALSE(doc.IsModified());
    EXPECT_TRUE(entries.hints.empty());
}

TEST_F(QrbDocCommandsTest, EditingRunsTheDialogOfTheVarietyAndKeepsThePlace)
{
    AddEntry(DCK_TYPES, DCF_DELETE, 4);
    AddEntry(DCK_NAMES, DCF_SCRIPT_WSH, 7);
    AddEntry(DCK_NAMES, 0, 1);
    AddEntry(DCK_NAMES, DCF_FOLDER_ITEMS | DCF_DELETE, 9);
    for (const std::uint32_t id : {4U, 7U, 1U, 9U, 50U}) {
        doc.EditEntry(id);
    }
    EXPECT_EQ(dialogs.asked,
              (Strings{"types edit delete", "script edit", "files edit", "folders edit delete"}));
    // Each replaced entry got the lowest free id. The id 1 was free again when its own entry was
    // replaced.
    EXPECT_EQ(Ids(), (quorbit::Ids{0, 2, 1, 3}));
    EXPECT_EQ(doc.GetEntry(3).m_nKind, static_cast<std::uint32_t>(DCK_NAMES));
    EXPECT_TRUE(doc.IsModified());
}

TEST_F(QrbDocCommandsTest, IdsAreReusedAndTheFirstOfTwoIsMeant)
{
    AddEntry(DCK_TYPES, 0, 0);
    AddEntry(DCK_TYPES, 1, 1);
    AddEntry(DCK_TYPES, 2, 1);
    doc.DeleteEntry(0);
    doc.DeleteEntry(1);
    EXPECT_EQ(Ids(), quorbit::Ids{1});
    EXPECT_EQ(doc.GetEntry(0).m_dwFlags, 2U);
    doc.OnCommand(CMD_NEW_FILE_TYPE_ENTRY);
    EXPECT_EQ(Ids(), (quorbit::Ids{1, 0}));
    doc.SetModifiedFlag(false);
    doc.DeleteEntry(77);
    EXPECT_FALSE(doc.IsModified());
}

TEST_F(QrbDocCommandsTest, AddDefaultMakesAnEntryOfTheStoredDefaults)
{
    standard = {DCF_SYNC, "*.txt*.doc*.htm"};
    doc.OnCommand(CMD_ADD_DEFAULT);
    ASSERT_EQ(doc.m_arrEntries.size(), 1U);
    const CDirCopy& entry = doc.GetEntry(0);
    EXPECT_EQ(entry.m_strSource, "/from");
    EXPECT_EQ(entry.m_strDest, "/to");
    EXPECT_EQ(entry.m_dwFlags, static_cast<std::uint32_t>(DCF_SYNC));
    EXPECT_EQ(entry.m_listItems, (Strings{"*.txt", "*.doc", "*.htm"}));
    EXPECT_FALSE(doc.IsModified());
    EXPECT_EQ(entries.hints, std::vector<int>{HINT_REFRESH_ENTRIES});
}

TEST(SplitMasksTest, CutsARunOfMasks)
{
    for (const char* all : {"*.*", "Default", ""}) {
        EXPECT_EQ(SplitMasks(all), Strings{"*.*"});
    }
    EXPECT_EQ(SplitMasks("*.tar.gz*.c"), (Strings{"*.tar", "*.c"}));
    EXPECT_EQ(SplitMasks("x*.a*.b"), (Strings{"*.a", "*.b"}));
    EXPECT_EQ(SplitMasks("*."), Strings{"*."});
}

TEST_F(QrbDocCommandsTest, HintsReachAllButTheirSender)
{
    doc.OnCommand(CMD_DELETE);
    doc.UpdateAllViews(&tree, HINT_FOLDER_SELECTED);
    doc.RemoveView(&entries);
    doc.UpdateAllViews(nullptr, HINT_FOLDER_OPENED);
    EXPECT_EQ(tree.hints, (std::vector<int>{HINT_DELETE, HINT_FOLDER_OPENED}));
    EXPECT_EQ(list.hints,
              (std::vector<int>{HINT_DELETE, HINT_FOLDER_SELECTED, HINT_FOLDER_OPENED}));
    EXPECT_EQ(entries.hints, (std::vector<int>{HINT_DELETE, HINT_FOLDER_SELECTED}));
    EXPECT_EQ(doc.GetView(ViewKind::EntryList), nullptr);
}

TEST_F(QrbDocCommandsTest, StartRunsWhateverStandsInMemory)
{
    doc.SetModifiedFlag();
    EXPECT_TRUE(doc.OnCommand(CMD_START_BATCH));
    EXPECT_EQ(dialogs.runs, 1);
    EXPECT_TRUE(doc.IsModified());
}

}  // namespace
}  // namespace quorbit
