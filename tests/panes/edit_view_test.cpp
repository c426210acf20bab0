// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/edit_view.h"

#include <memory>

#include "panes/list_test.h"

namespace quorbit {
namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<int>;

class EditViewTest : public ListTest {
protected:
    class Dialog : public FileTypeDialog {
    public:
        std::vector<std::uint32_t> edited;
        bool DoModal(const PaneAnswers&, const CDirCopy* entry, bool, EntryValues&) override
        {
            edited.push_back(entry->m_nId);
            return false;
        }
    };

    EditViewTest()
    {
        DocumentServices services;
        services.fileTypeDialog = &dialog;
        doc = CQRBDoc(services);
    }
    ~EditViewTest() override
    {
        if (view) {
            doc.RemoveView(view.get());
        }
    }

    // Adds entries with ids 10, 11, ... and sources "/s0", "/s1", ...
    void Add(int entries)
    {
        const int end = static_cast<int>(doc.m_arrEntries.size()) + entries;
        for (int i = end - entries; i < end; ++i) {
            doc.m_arrEntries.emplace_back("/s" + std::to_string(i), "/d", i == 1 ? DCF_DELETE : 0U,
                                          DCK_TYPES, 10U + static_cast<std::uint32_t>(i));
            doc.m_arrEntries.back().m_listItems = {"*.a", "*.b"};
        }
    }
    void Make(int entries)
    {
        Add(entries);
        view = std::make_unique<CQRBEditView>(Services());
        doc.AddView(view.get());
        Show(*view);
        doc.UpdateAllViews(nullptr, HINT_REFRESH_ENTRIES);
    }
    [[nodiscard]] std::vector<std::uint32_t> Ids() const
    {
        std::vector<std::uint32_t> ids;
        for (const CDirCopy& entry : doc.m_arrEntries) {
            ids.push_back(entry.m_nId);
        }
        return ids;
    }
    [[nodiscard]] bool EditEnabled()
    {
        CommandState state;
        return view->OnUpdateCommand(CMD_EDIT_ENTRY, state) && state.enabled;
    }

    Dialog dialog;
    std::unique_ptr<CQRBEditView> view;
};

TEST_F(EditViewTest, DeletesAllSelectedRowsAndOnlyThose)
{
    Make(4);
    Click(*view, 1);
    Click(*view, 2, Qt::ControlModifier);
    prompts.answers = {PromptAnswer::No, PromptAnswer::Yes};
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(Ids(), std::vector<std::uint32_t>({10, 11, 12, 13}));
    EXPECT_EQ(view->SelectedRows(), Rows({1, 2}));

    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(Ids(), std::vector<std::uint32_t>({10, 13}));
    EXPECT_EQ(Column(*view, kEntrySource), Texts({"/s0", "/s3"}));
    EXPECT_EQ(prompts.asked, Texts(2, "Are you sure you want to delete this entry?"));
}

TEST_F(EditViewTest, AsksThoughNothingIsSelectedAndDeletesNothing)
{
    Make(2);
    prompts.answers = {PromptAnswer::Yes};
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(prompts.asked.size(), 1U);
    EXPECT_EQ(Ids().size(), 2U);
}

TEST_F(EditViewTest, LeavesTheDeleteCommandToThePaneWithTheFocus)
{
    Make(2);
    Click(*view, 0);
    QWidget other;
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    other.activateWindow();
    other.setFocus();
    ASSERT_TRUE(Until([&] { return !view->HasFocus(); }));
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_TRUE(prompts.asked.empty());
    EXPECT_FALSE(EditEnabled());
}

TEST_F(EditViewTest, DoubleClickEditsTheRowUnderTheMouse)
{
    Make(3);
    Click(*view, 0);
    DoubleClick(*view, 2);
    EXPECT_EQ(dialog.edited, std::vector<std::uint32_t>({12}));
    QTest::mouseDClick(view->ActiveView().viewport(), Qt::LeftButton, {}, QPoint(20, 350));
    EXPECT_EQ(dialog.edited.size(), 1U);
}

TEST_F(EditViewTest, EditNeedsExactlyOneRow)
{
    Make(3);
    EXPECT_FALSE(EditEnabled());
    Click(*view, 1);
    EXPECT_TRUE(EditEnabled());
    EXPECT_TRUE(view->OnCommand(CMD_EDIT_ENTRY));
    Click(*view, 2, Qt::ControlModifier);
    EXPECT_FALSE(EditEnabled());
    EXPECT_TRUE(view->OnCommand(CMD_EDIT_ENTRY));
    EXPECT_EQ(dialog.edited, std::vector<std::uint32_t>({11}));
}

}  // namespace
}  // namespace quorbit
