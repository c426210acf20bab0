// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_view.h"

#include <QHeaderView>
#include <QLabel>
#include <algorithm>
#include <filesystem>
#include <memory>

#include "panes/file_list_columns.h"
#include "panes/list_test.h"
#include "panes/pane_hints.h"

namespace quorbit {
namespace {

using Texts = std::vector<std::string>;

class FileViewTest : public ListTest {
protected:
    FileViewTest() { std::filesystem::create_directory(Path("data")); }
    ~FileViewTest() override { doc.RemoveView(view.get()); }

    void Make()
    {
        view = std::make_unique<CFileView>(
            Services(), nullptr, [this](QWidget&, const DragContent& content, Qt::MouseButton b) {
                drags.push_back(content.text);
                buttons.push_back(b);
            });
        doc.AddView(view.get());
        Show(*view);
    }
    // Creates two folders and three files and shows them.
    void MakeMixed()
    {
        std::filesystem::create_directory(Path("data/F1"));
        std::filesystem::create_directory(Path("data/F2"));
        for (const char* name : {"a", "b", "c"}) {
            WriteContent(Path("data/") + name, "");
        }
        Make();
        Select("data");
    }
    // Selects a folder in the tree and waits until its rows are read.
    void Select(const std::string& name)
    {
        const ShellFolderPtr parent = BindTemp();
        const ShellTreeItem node{parent, IdOf(*parent, name), {}};
        const TreeItemHint hint(node, "node");
        doc.UpdateAllViews(nullptr, HINT_FOLDER_SELECTED, &hint);
        Wait();
    }
    void Wait() const
    {
        ASSERT_TRUE(Until([this] { return !view->IsReading(); }));
    }
    [[nodiscard]] Texts Names() const { return Column(*view, kFileName); }
    [[nodiscard]] std::string Notice() const
    {
        const auto* label = view->findChild<QLabel*>();
        return label->isHidden() ? "" : label->text().toStdString();
    }
    void Drag(int row, Qt::MouseButton button)
    {
        QWidget* viewport = view->ActiveView().viewport();
        const QPoint from = PlaceOf(*view, row);
        QTest::mousePress(viewport, button, {}, from);
        const QPoint to = from + QPoint(QApplication::startDragDistance() + 1, 0);
        QMouseEvent move(QEvent::MouseMove, to, viewport->mapToGlobal(to), Qt::NoButton, button,
                         {});
        QApplication::sendEvent(viewport, &move);
        QTest::mouseRelease(viewport, button, {}, to);
    }

    std::unique_ptr<CFileView> view;
    Texts drags;
    std::vector<Qt::MouseButton> buttons;
};

// Uses more rows than are sorted in one step.
TEST_F(FileViewTest, WhatIsSelectedStaysSoWhileManyRowsAreSorted)
{
    for (int i = 0; i < 6500; ++i) {
        WriteContent(Path("data/") + std::to_string(i), i % 2 == 0 ? "" : std::string(2000, 'x'));
    }
    std::filesystem::create_directory(Path("other"));
    WriteContent(Path("other/one"), "");
    Make();
    Select("data");
    Click(*view, 3000);
    const Texts selected = view->GetSelectedNames();
    const auto clickOn = [this](int column) {
        const QHeaderView& header = *view->Report().header();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + 10, header.height() / 2});
    };
    clickOn(kFileSize);
    Wait();
    const Texts sizes = Column(*view, kFileSize);
    EXPECT_TRUE(std::is_sorted(sizes.begin(), sizes.end()));
    EXPECT_EQ(view->GetSelectedNames(), selected);
    clickOn(kFileName);
    EXPECT_TRUE(view->IsReading());
    Select("other");
    EXPECT_EQ(Names(), Texts({"one"}));
}

TEST_F(FileViewTest, AnEmptyFolderIsNotTakenForOneThatCannotBeRead)
{
    Make();
    Select("data");
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(Notice(), "");
    const ShellFolderPtr gone = BindTemp("data");
    std::filesystem::remove(Path("data"));
    EXPECT_TRUE(view->ShowFolder(gone));
    Wait();
    EXPECT_NE(Notice(), "");
    EXPECT_TRUE(prompts.asked.empty());
}

TEST_F(FileViewTest, WarnsOfFilesAndFoldersTogetherAndDropsTheSelection)
{
    MakeMixed();
    Click(*view, 2);
    Click(*view, 3, Qt::ControlModifier);
    EXPECT_TRUE(view->FilesSelected());
    Click(*view, 0, Qt::ControlModifier);
    Wait();
    EXPECT_EQ(prompts.asked,
              Texts({"Files and folders can not be selected at the same time.  See help topic "
                     "\"Selection Error\"."}));
    EXPECT_TRUE(view->SelectedRows().empty());
    EXPECT_EQ(view->CheckedKind(), SelectionKind::None);
    EXPECT_EQ(Names().size(), 5U);
    Click(*view, 1);
    EXPECT_EQ(view->CheckedKind(), SelectionKind::Folders);
    EXPECT_EQ(view->GetSelectedNames(), Texts({"F2"}));
}

TEST_F(FileViewTest, BothButtonsDragTheSelectedNamesInRowOrder)
{
    MakeMixed();
    Click(*view, 4);
    Click(*view, 2, Qt::ControlModifier);
    Drag(2, Qt::LeftButton);
    Drag(4, Qt::RightButton);
    EXPECT_EQ(drags, Texts({"Fa, c", "Fa, c"}));
    Drag(2, Qt::MiddleButton);
    EXPECT_EQ(buttons, std::vector<Qt::MouseButton>({Qt::LeftButton, Qt::RightButton}));
    EXPECT_TRUE(CloseMenu(*view).empty()) << "a drag brings no menu";
    Drag(1, Qt::LeftButton);  // not selected before
    EXPECT_EQ(drags.back(), "FF2");
    EXPECT_FALSE(view->FilesSelected());
}

TEST_F(FileViewTest, MenuStandsOnRowsOnlyAndSetsUpADelete)
{
    MakeMixed();
    RightClickBeside(*view);
    EXPECT_TRUE(CloseMenu(*view).empty());
    Click(*view, 3, {}, Qt::RightButton);
    bool deleteMode = false;
    whileSent = [&] { deleteMode = view->DeleteMode() && view->FilesSelected(); };
    view->PopupMenu()->actions().constFirst()->trigger();
    EXPECT_TRUE(deleteMode);
    EXPECT_FALSE(view->DeleteMode());
    EXPECT_EQ(sent, std::vector<int>({CMD_NEW_FILE_ENTRY}));
    EXPECT_EQ(CloseMenu(*view), Texts({"Delete Folder/File Setup"}));
    PressMenuKey(*view);
    EXPECT_EQ(CloseMenu(*view).size(), 1U);
}

TEST_F(FileViewTest, DeleteCommandNeedsFocusAndRowsOfOneKind)
{
    MakeMixed();
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_TRUE(sent.empty());
    Click(*view, 1);
    QTest::keyClick(&view->ActiveView(), Qt::Key_Down);  // keys select without a check
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(sent.size(), 1U);
    EXPECT_TRUE(view->FilesSelected());
    QTest::keyClick(&view->ActiveView(), Qt::Key_A, Qt::ControlModifier);
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(sent.size(), 1U);
    EXPECT_EQ(prompts.asked.size(), 1U);
}

}  // namespace
}  // namespace quorbit
