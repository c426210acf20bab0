// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/file_view.h"

#include <QHeaderView>
#include <QLabel>
#include <algorithm>
#include <condition_variable>
#include <filesystem>
#include <memory>
#include <mutex>

#include "panes/drag_payload.h"
#include "panes/file_list_columns.h"
#include "panes/folder_tree.h"
#include "panes/list_test.h"
#include "panes/pane_hints.h"

namespace quorbit {
namespace {

using Texts = std::vector<std::string>;

// The tree, with one node selected.
class FakeTree : public CView, public FolderTree {
public:
    ShellTreeItem selected;
    Texts opened;  // names that came with HINT_FOLDER_OPENED

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::DriveTree; }
    void OnUpdate(CView*, int nHint, const HintObject* object) override
    {
        if (nHint == HINT_FOLDER_OPENED) {
            opened.push_back(dynamic_cast<const ListItemHint&>(*object).Item().m_szName);
        }
    }
    bool OnCommand(int) override { return false; }
    bool OnUpdateCommand(int, CommandState&) override { return false; }
    [[nodiscard]] const ShellTreeItem* GetSelectedItemData() const override { return &selected; }
    [[nodiscard]] std::string GetSelectedText() const override { return "node"; }
};

class FileViewTest : public ListTest {
protected:
    FileViewTest() { std::filesystem::create_directory(Path("data")); }
    ~FileViewTest() override
    {
        doc.RemoveView(view.get());
        doc.RemoveView(&tree);
    }

    void Make()
    {
        view = std::make_unique<CFileView>(
            Services(), nullptr, [this](QWidget&, const std::string& payload, Qt::MouseButton b) {
                drags.push_back(ReadPayload(payload).value_or("(foreign)"));
                buttons.push_back(b);
            });
        doc.AddView(&tree);
        doc.AddView(view.get());
        Show(*view);
    }
    // Two folders and three files.
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
    // Selects a folder of the test in the tree, and waits for the rows.
    void Select(const std::string& name)
    {
        const ShellFolderPtr parent = BindTemp();
        tree.selected = {parent, IdOf(*parent, name), {}};
        const TreeItemHint hint(tree.selected);
        doc.UpdateAllViews(&tree, HINT_FOLDER_SELECTED, &hint);
        Wait();
    }
    void Wait() const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !view->IsReading(); }, 30'000));
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
    [[nodiscard]] std::string Checked() const
    {
        std::string checked;
        for (int nId = CMD_VIEW_LARGE_ICONS; nId <= CMD_VIEW_ROW_DETAIL; ++nId) {
            CommandState state;
            EXPECT_TRUE(view->OnUpdateCommand(nId, state));
            checked += state.checked ? std::to_string(nId) : "";
        }
        return checked;
    }

    FakeTree tree;
    std::unique_ptr<CFileView> view;
    Texts drags;  // what stands behind "QRB"
    std::vector<Qt::MouseButton> buttons;
};

TEST_F(FileViewTest, ShowsFoldersThenFilesByTheirBytes)
{
    std::filesystem::create_directory(Path("data/sub"));
    std::filesystem::create_directory(Path("data/Zoo"));
    WriteContent(Path("data/b.txt"), std::string(1024, 'x'));
    WriteContent(Path("data/B.txt"), "");
    WriteContent(Path("data/.hidden"), "");
    Make();
    Select("data");
    EXPECT_EQ(Names(), Texts({"Zoo", "sub", ".hidden", "B.txt", "b.txt"}));
    EXPECT_EQ(Column(*view, kFileSize), Texts({"0 bytes", "0 bytes", "1KB", "1KB", "2KB"}));
    EXPECT_EQ(Notice(), "");
    Select("data");
    EXPECT_EQ(Names().size(), 5U) << "the rows of before have gone";
}

TEST_F(FileViewTest, PortionsEndUpInOneOrder)
{
    for (int i = 0; i < 6500; ++i) {
        WriteContent(Path("data/") + std::to_string(i), "");
    }
    Make();
    Select("data");
    const Texts names = Names();
    EXPECT_EQ(names.size(), 6500U);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

// More rows than are sorted at once.
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
    QTest::qWait(50);
    EXPECT_EQ(Names(), Texts({"one"}));
}

TEST_F(FileViewTest, WhoHasScrolledKeepsTheRowAtTheTop)
{
    for (int i = 0; i < 6500; ++i) {
        WriteContent(Path("data/") + std::to_string(i), "");
    }
    Make();
    const ShellFolderPtr folder = BindTemp("data");
    EXPECT_TRUE(view->ShowFolder(folder));
    ASSERT_TRUE(QTest::qWaitFor([this] { return view->Model().RowCount() > 5500; }));
    view->Report().PutOnTop(view->Model().index(5400, 0));
    const QPersistentModelIndex top = view->Report().TopRow();
    Wait();
    EXPECT_EQ(view->Report().TopRow(), top);
}

TEST_F(FileViewTest, DefaultWidthsShowATimeInAnyFont)
{
    const QFont before = QApplication::font();
    for (const int points : {8, 24}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        const CFileView list(Services());
        const int time = QFontMetrics(font).horizontalAdvance(QStringLiteral("12/28/08 08:05 PM"));
        EXPECT_GE(list.Report().columnWidth(kFileModified), time + 12) << points;
    }
    QApplication::setFont(before);
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

TEST_F(FileViewTest, DrivesAreFoldersThatGoByTheirPaths)
{
    m_strMounts += "21 20 8:2 / /mnt/usb rw - ext4 /dev/sdb1 rw\n";
    Make();
    EXPECT_TRUE(view->ShowFolder(Bind("::My Computer")));
    Wait();
    EXPECT_EQ(Column(*view, kFileSize), Texts({"0 bytes", "0 bytes"}));
    view->ActiveView().selectAll();
    Texts names = view->GetSelectedNames();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, Texts({"/", "/mnt/usb"}));
    EXPECT_EQ(view->GetRowName(2, true), std::nullopt);
    EXPECT_EQ(view->GetRowName(-1, true), std::nullopt);
}

// A folder whose disk does not answer until the test is over.
class SilentFolder : public ShellFolder {
public:
    struct Gate {
        std::mutex mutex;
        std::condition_variable opened;
        bool open = false;
    };
    struct Silence : ShellEnumerator {
        explicit Silence(std::shared_ptr<Gate> at) : gate(std::move(at)) {}
        Result<std::optional<ItemIdList>> Next() override
        {
            std::unique_lock lock(gate->mutex);
            gate->opened.wait(lock, [this] { return gate->open; });
            return std::optional<ItemIdList>();
        }
        Result<FindData> ReadDetails() override { return FindData(); }
        std::shared_ptr<Gate> gate;
    };

    ~SilentFolder() override = default;
    std::shared_ptr<Gate> gate = std::make_shared<Gate>();

    void Answer() const
    {
        const std::lock_guard lock(gate->mutex);
        gate->open = true;
        gate->opened.notify_all();
    }
    std::unique_ptr<ShellEnumerator> EnumObjects(std::uint32_t, std::stop_token) const override
    {
        return std::make_unique<Silence>(gate);
    }
    Result<std::uint32_t> GetAttributesOf(ItemIdView, std::uint32_t) const override { return 0U; }
    Result<std::string> GetDisplayNameOf(ItemIdView, std::uint32_t) const override
    {
        return std::string();
    }
    Result<std::shared_ptr<const ShellFolder>> BindToObject(ItemIdView) const override
    {
        return std::shared_ptr<const ShellFolder>();
    }
    Result<int> CompareIDs(ItemIdView, ItemIdView) const override { return 0; }
    Result<ItemIdList> ParseDisplayName(std::string_view) const override { return ItemIdList(); }
};

TEST_F(FileViewTest, AFolderThatDoesNotAnswerLetsAnotherOneBeShown)
{
    MakeMixed();
    const auto silent = std::make_shared<SilentFolder>();
    EXPECT_TRUE(view->ShowFolder(silent));
    QTest::qWait(50);
    EXPECT_TRUE(view->IsReading());
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(view->cursor().shape(), Qt::WaitCursor);
    Select("data");
    EXPECT_EQ(Names().size(), 5U);
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
    silent->Answer();
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

TEST_F(FileViewTest, AClickThatReplacesTheSelectionDoesNotWarn)
{
    MakeMixed();
    Click(*view, 2);
    Click(*view, 0);
    EXPECT_TRUE(prompts.asked.empty());
    EXPECT_EQ(view->GetSelectedNames(), Texts({"F1"}));
    EXPECT_EQ(view->CheckedKind(), SelectionKind::Folders);
}

TEST_F(FileViewTest, BothButtonsDragTheSelectedNamesInRowOrder)
{
    MakeMixed();
    Click(*view, 4);
    Click(*view, 2, Qt::ControlModifier);
    Drag(2, Qt::LeftButton);
    Drag(4, Qt::RightButton);
    EXPECT_EQ(drags, Texts({"Fa, c", "Fa, c"}));
    EXPECT_EQ(buttons, std::vector<Qt::MouseButton>({Qt::LeftButton, Qt::RightButton}));
    EXPECT_TRUE(CloseMenu(*view).empty()) << "a drag brings no menu";
    Drag(1, Qt::LeftButton);  // not selected before
    EXPECT_EQ(drags.back(), "FF2");
    EXPECT_FALSE(view->FilesSelected());
}

TEST_F(FileViewTest, DragsNoMixture)
{
    MakeMixed();
    view->ActiveView().selectAll();
    Drag(3, Qt::LeftButton);
    EXPECT_TRUE(drags.empty());
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
    QTest::keyClick(&view->ActiveView(), Qt::Key_Down);  // to a file, without a check
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(sent.size(), 1U);
    EXPECT_TRUE(view->FilesSelected());
    QTest::keyClick(&view->ActiveView(), Qt::Key_A, Qt::ControlModifier);
    doc.UpdateAllViews(nullptr, HINT_DELETE);
    EXPECT_EQ(sent.size(), 1U);
    EXPECT_EQ(prompts.asked.size(), 1U);
}

TEST_F(FileViewTest, DoubleClickOpensTheRowUnderTheMouse)
{
    MakeMixed();
    Click(*view, 3);
    DoubleClick(*view, 1);
    EXPECT_EQ(tree.opened, Texts({"F2"}));
    view->SetFullRow(false);
    QWidget* viewport = view->ActiveView().viewport();
    const QPoint size(view->Report().columnViewportPosition(1) + 5, PlaceOf(*view, 0).y());
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, size);
    EXPECT_EQ(tree.opened.size(), 1U) << "beside the name";
}

TEST_F(FileViewTest, AColumnSortsOneWayAndTheSelectionFollows)
{
    WriteContent(Path("data/a"), std::string(5000, 'x'));
    WriteContent(Path("data/b"), "");
    Make();
    Select("data");
    Click(*view, 0);
    const QHeaderView& header = *view->Report().header();
    const QPoint size(header.sectionViewportPosition(kFileSize) + 10, header.height() / 2);
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, size);
        EXPECT_EQ(Names(), Texts({"b", "a"}));
        EXPECT_EQ(view->GetSelectedNames(), Texts({"a"}));
    }
}

TEST_F(FileViewTest, ViewsStepThroughTheCycleOnOneSelection)
{
    MakeMixed();
    Click(*view, 2);
    EXPECT_EQ(Checked(), "113");
    for (const char* next : {"114", "110", "111", "112", "113"}) {
        EXPECT_TRUE(view->OnCommand(CMD_VIEWS));
        EXPECT_EQ(Checked(), next);
        EXPECT_EQ(view->GetSelectedNames(), Texts({"a"})) << next;
        EXPECT_TRUE(view->HasFocus()) << next;
        Click(*view, 2);
    }
    EXPECT_FALSE(view->OnCommand(CMD_EDIT_ENTRY));
}

TEST_F(FileViewTest, RowDetailSurvivesARestartAndWidthsOnlyAReport)
{
    profile.WriteProfileInts({{Setting::FileHeader1, 0}, {Setting::FileHeader2, 88}});
    Make();
    EXPECT_EQ(view->Report().columnWidth(kFileSize),
              70 * view->Report().fontMetrics().horizontalAdvance(QLatin1Char('0')) / 5);
    EXPECT_EQ(view->Report().columnWidth(kFileType), 88);
    view->Report().setColumnWidth(kFileType, 99);
    view->OnCommand(CMD_VIEW_LIST);
    view->SaveLayout();
    EXPECT_EQ(profile.GetProfileInt(Setting::FileHeader2), 88);
    EXPECT_EQ(profile.GetProfileInt(Setting::ViewStyle), 3);
    view->OnCommand(CMD_VIEW_ROW_DETAIL);
    view->SaveLayout();
    const CFileView restarted(Services());
    EXPECT_EQ(restarted.Report().columnWidth(kFileType), 99);
    EXPECT_EQ(restarted.Style(), ListStyle::Report);
    EXPECT_TRUE(restarted.GetFullRow());
}

}  // namespace
}  // namespace quorbit
