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
        bool DoModal(CQRBDoc&, const CDirCopy* entry, bool, EntryValues&) override
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

    static QIcon Mark(const QColor& color)
    {
        QPixmap picture(16, 16);
        picture.fill(color);
        return {picture};
    }
    // Entries 10, 11, ... from "/s0", "/s1", ...
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
        PaneServices services = Services();
        services.marks = {Mark(Qt::red), Mark(Qt::blue)};
        view = std::make_unique<CQRBEditView>(services);
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

TEST_F(EditViewTest, ShowsTheEntriesInTheirOrder)
{
    Make(3);
    EXPECT_EQ(Column(*view, kEntrySource), Texts({"/s0", "/s1", "/s2"}));
    EXPECT_EQ(Column(*view, kEntryItems), Texts(3, "*.a*.b"));
    const auto picture = [&](int row) {
        return view->Model().index(row, 0).data(Qt::DecorationRole).value<QIcon>();
    };
    EXPECT_NE(picture(0).pixmap(16).toImage(), picture(1).pixmap(16).toImage());
    EXPECT_EQ(picture(0).pixmap(16).toImage(), picture(2).pixmap(16).toImage());
    EXPECT_EQ(activated, std::vector<CView*>({view.get()}));
}

TEST_F(EditViewTest, BringsAnAddedEntryIntoSightAndStaysWhereItIsAfterAnEdit)
{
    Make(200);
    const auto refresh = [&] { doc.UpdateAllViews(nullptr, HINT_REFRESH_ENTRIES); };
    const auto top = [&] { return view->Report().TopRow().row(); };
    EXPECT_EQ(top(), 0);
    Add(1);
    refresh();
    EXPECT_EQ(view->RowAt(PlaceOf(*view, 200)), 200);
    EXPECT_GT(top(), 150);
    EXPECT_EQ(view->CurrentRow(), 200);
    EXPECT_EQ(view->SelectedRows(), Rows());

    Click(*view, 120);
    const int before = top();
    ASSERT_GT(before, 0);
    doc.m_arrEntries[120].m_strDest = "/elsewhere";
    refresh();
    EXPECT_EQ(top(), before);
    EXPECT_EQ(view->CurrentRow(), 120);
    EXPECT_EQ(view->SelectedRows(), Rows());

    doc.m_arrEntries.erase(doc.m_arrEntries.begin(), doc.m_arrEntries.begin() + 9);
    refresh();
    EXPECT_EQ(top(), 0) << "another document";
}

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

TEST_F(EditViewTest, DeletesMoreRowsThanFiveHundred)
{
    Make(700);
    view->ActiveView().selectAll();
    prompts.answers = {PromptAnswer::Yes};
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_TRUE(Ids().empty());
    EXPECT_EQ(view->Model().rowCount(), 0);
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
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view->HasFocus(); }));
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

TEST_F(EditViewTest, MenuOffersWhatTheSelectionAllows)
{
    Make(3);
    const std::string add = "Add WSH or Dos Batch File";
    RightClickBeside(*view);
    EXPECT_EQ(CloseMenu(*view), Texts({"-Edit", "-Delete", add}));
    Click(*view, 1, {}, Qt::RightButton);  // selects the row, too
    view->PopupMenu()->actions().at(1)->trigger();
    EXPECT_EQ(posted, std::vector<int>({CMD_DELETE}));
    EXPECT_EQ(CloseMenu(*view), Texts({"Edit", "Delete", add}));
    Click(*view, 2, Qt::ControlModifier);
    PressMenuKey(*view);
    EXPECT_EQ(CloseMenu(*view), Texts({"-Edit", "Delete", add}));
}

TEST_F(EditViewTest, KeepsColumnWidthsAndSizeButNotOfAMinimisedWindow)
{
    profile.WriteProfileInts({{Setting::EditHeader0, 0}, {Setting::EditHeader2, 77}});
    Make(0);
    EXPECT_EQ(view->Report().columnWidth(0),
              175 * view->Report().fontMetrics().horizontalAdvance(QLatin1Char('0')) / 5);
    EXPECT_EQ(view->Report().columnWidth(2), 77);
    view->Report().setColumnWidth(3, 91);
    minimised = true;
    view->SaveLayout();
    EXPECT_EQ(profile.GetProfileInt(Setting::EditHeader3), 150);
    minimised = false;
    view->SaveLayout();
    EXPECT_EQ(profile.GetProfileInt(Setting::EditHeader3), 91);
    EXPECT_EQ(profile.EditViewSize(), (PaneSize{600, 400}));
}

}  // namespace
}  // namespace quorbit
