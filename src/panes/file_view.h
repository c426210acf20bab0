// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The file list: shows the content of the folder selected in the drive tree. Selected files or
// folders, never both, are dragged onto the tree or become a delete entry. Never changes the file
// system. User interface thread only.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/command_map.h"
#include "document/entry_dialogs.h"
#include "panes/drag_gesture.h"
#include "panes/file_list_model.h"
#include "panes/list_view_ex.h"
#include "panes/pane_services.h"
#include "panes/row_sorter.h"
#include "panes/selection_check.h"
#include "panes/slow_read.h"
#include "platform/shell/folder_feed.h"
#include "platform/shell/shell_pidl.h"
#include "platform/shell/shell_tree_item.h"

namespace quorbit {

class CFileView final : public CListViewEx, public CShellPidl {
public:
    // Reads column widths and styles from the profile. Does not add the view to the document.
    // runDrag runs a drag until it ends.
    explicit CFileView(const PaneServices& services, QWidget* parent = nullptr,
                       DragRunner runDrag = RunDrag);
    ~CFileView() override;

    // Clears the list and starts to fill it with the content of `folder`. Rows are added by the
    // event loop and finally sorted by name. Returns false if `folder` is null.
    bool ShowFolder(const ShellFolderPtr& folder);
    // Returns true while rows are being read or sorted.
    [[nodiscard]] bool IsReading() const { return m_feed != nullptr || m_sorter.IsRunning(); }

    // Returns true if the selected rows, together with `row` (-1: none), are all files or all
    // folders, and stores the kind. If they are mixed and Ctrl is pressed, shows a warning and
    // refills the list.
    bool CheckSelection(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    [[nodiscard]] SelectionKind CheckedKind() const { return m_nSelectionKind; }
    // Returns the path of a row, or its last component if bareName is set; volumes and roots always
    // return the path. Returns nullopt if there is no such row or it has no path.
    [[nodiscard]] std::optional<std::string> GetRowName(int row, bool bareName) const;
    // Saves the styles to the profile; unless the frame is minimised, also the size and, in report
    // style, the column widths.
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
    void OnRowOpened(int row) override;
    void OnParentKey() override;
    void OnContextMenu(int row, const QPoint& position, Qt::KeyboardModifiers modifiers) override;
    void OnBeginDrag(int row, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) override;

private:
    void ShowNode(const ShellTreeItem& node, const std::string& text);
    void OnPortion(FolderBatch batch);
    void OnEnd(const std::optional<Error>& error);
    // TopRow keeps the top row in place while rows are added and sorted, if the user has scrolled
    // down; ScrollPlace keeps the scroll bar position after a click on a column header.
    enum class Keep { TopRow, ScrollPlace };
    void Sort(Keep keep);
    void ShowWaiting();
    void SelectLeftFolder();
    [[nodiscard]] std::vector<std::string> NamesOf(const std::vector<int>& rows) const;
    void WarnOfMixture() const;
    void SetUpDelete();
    [[nodiscard]] static const CommandMap<CFileView>& Commands();
    void NextStyle();
    // For the commands CMD_VIEW_LARGE_ICONS to CMD_VIEW_ROW_DETAIL.
    void SetStyleOf(int nId);
    [[nodiscard]] std::optional<CommandState> StateOfStyle(int nId) const;

    PaneServices m_services;
    DragRunner m_runDrag;
    FileListModel m_model;
    std::unique_ptr<FolderFeed> m_feed;  // while reading
    std::unique_ptr<SlowRead> m_slow;    // while reading
    RowSorter m_sorter;
    ShellFolderPtr m_folder;      // the folder shown
    std::string m_strParentText;  // text of its node in the tree
    std::string m_strLeftFolder;  // its row is to be selected; empty if there is none
    int m_nSortColumn = 0;
    bool m_bDeleteMode = false;
    SelectionKind m_nSelectionKind = SelectionKind::None;
};

}  // namespace quorbit
