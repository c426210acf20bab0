// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pane that shows what is in the folder selected in the tree. What is selected in it is dragged
// onto the tree, or becomes the setup of a delete entry; files or folders, never both. It changes
// nothing on a disk. User interface thread only.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/entry_dialogs.h"
#include "panes/drag_gesture.h"
#include "panes/file_list_model.h"
#include "panes/list_view_ex.h"
#include "panes/pane_services.h"
#include "panes/row_sorter.h"
#include "panes/selection_check.h"
#include "platform/shell/folder_feed.h"
#include "platform/shell/shell_pidl.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class CFileView final : public CListViewEx, public CShellPidl {
public:
    // Reads column widths and styles of the profile. Does not add itself to the document.
    // runDrag: what carries a drag until it is over.
    explicit CFileView(const PaneServices& services, QWidget* parent = nullptr,
                       DragRunner runDrag = RunDrag);
    ~CFileView() override;

    // Empties the list and begins to fill it with what is in the folder, which is that of the
    // tree's selected node; the rows come while the event loop runs, sorted by name in the end.
    // False without a folder.
    bool ShowFolder(const ShellFolderPtr& folder);
    // Whether rows are still to come, or to be put into their order.
    [[nodiscard]] bool IsReading() const { return m_feed != nullptr || m_sorter.IsRunning(); }

    // Whether the selection, with the row (-1: none) that is about to be added, is of one kind; the
    // kind is kept. With the Ctrl key a mixture is warned of and the list is filled again.
    bool CheckSelection(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] SelectionKind CheckedKind() const { return m_nSelectionKind; }
    // Path of a row, or with bareName its last component; a drive is always a path. Nothing if
    // there is no such row, or it has no path.
    [[nodiscard]] std::optional<std::string> GetRowName(int row, bool bareName) const;
    // Writes size, styles and, in report style, the column widths to the profile.
    void SaveLayout() const;
    [[nodiscard]] const FileListModel& Model() const { return m_model; }

    [[nodiscard]] bool FilesSelected() const;
    [[nodiscard]] bool DeleteMode() const { return m_bDeleteMode; }
    [[nodiscard]] std::vector<std::string> GetSelectedNames() const;

    [[nodiscard]] ViewKind Kind() const override { return ViewKind::FileList; }
    void OnUpdate(CView* sender, int nHint, const HintObject* object) override;
    void AnswerDocument(PaneAnswers& answers) const override;
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

protected:
    bool OnRowPressed(int row, Qt::KeyboardModifiers modifiers) override;
    void OnRowDoubleClicked(int row) override;
    void OnContextMenu(int row, const QPoint& position, Qt::KeyboardModifiers modifiers) override;
    void OnBeginDrag(int row, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) override;

private:
    bool ShowNode(const ShellTreeItem& node);
    void ShowSelectedNode();
    void OnPortion(FolderBatch batch);
    void OnEnd(const std::optional<Error>& error);
    // Who has scrolled keeps the row at the top while rows come and find their places; a click on
    // a column leaves the scroll bar alone.
    enum class Keep { TopRow, ScrollPlace };
    void Sort(Keep keep);
    void ShowWaiting();
    [[nodiscard]] std::vector<std::string> NamesOf(const std::vector<int>& rows) const;
    void WarnOfMixture() const;
    void SetUpDelete();
    void NextStyle();

    PaneServices m_services;
    DragRunner m_runDrag;
    FileListModel m_model;
    std::unique_ptr<FolderFeed> m_feed;  // while reading
    RowSorter m_sorter;
    ShellFolderPtr m_folder;      // the one that is shown
    std::string m_strParentText;  // its node in the tree, as shown
    int m_nSortColumn = 0;
    bool m_bDeleteMode = false;
    SelectionKind m_nSelectionKind = SelectionKind::None;
};

}  // namespace quorbit
