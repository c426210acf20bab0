// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The left pane: a tree of what holds files, from the desktop down. It tells the list of files
// which folder to show, it is the source of folder drags and the only target of drags: what is
// dragged is the source of a batch entry, the folder dropped upon its destination. Its context menu
// begins a delete entry. User interface thread only.

#pragma once

#include <QMenu>
#include <memory>
#include <optional>
#include <string>

#include "document/entry_dialogs.h"
#include "document/view.h"
#include "panes/drag_gesture.h"
#include "panes/drive_drop_target.h"
#include "panes/drive_refresh.h"
#include "panes/folder_tree.h"
#include "panes/node_ref.h"
#include "panes/pane_services.h"
#include "panes/shell_tree.h"
#include "platform/shell/shell_list_item.h"

namespace quorbit {

// Commands of the tree's own menus.
enum : int {
    CMD_DROP_ADD_FILE_TYPES = 1000,
    CMD_DROP_ADD_DEFAULT = 1001,
    CMD_DROP_ADD_ALL = 1002,
    CMD_DELETE_SETUP = 1003,
};

class CDriveView final : public ShellTree, public CView, public FolderTree {
public:
    // Begins to fill itself, unless the program was started to run or show a batch. The services
    // are copied; the pane is no view of the document yet.
    explicit CDriveView(PaneServices services, QWidget* parent = nullptr);
    ~CDriveView() override;

    // Path of the folder that a node is, as bytes. False, and path untouched, if it has none.
    bool GetItemPath(const QTreeWidgetItem* item, std::string& path) const;
    // The node of the folder at a path, of those that are in the tree. The volume's node where the
    // path goes no further or the volume's children have not been read; null if there is none.
    [[nodiscard]] ShellTreeNode* FindNodeByPath(std::string_view path) const;
    // Selects the node that a row of the list is: the first from the selected node on, depth first.
    // Waits for the children of the selected node if they are just being read. onMissing is called
    // if the row is no node.
    void FindListRow(const ShellListItem& row, std::function<void()> onMissing);
    // Tells the other views to show the selected folder.
    void RefreshFileList();

    // Stores the size of the pane in the profile, unless the frame is minimised.
    void SaveLayout() const;

    // After a drag from the list it is the folder that the list shows.
    [[nodiscard]] std::string GetSourcePath() const;
    // Of the node that was dropped upon last. What it was before, if that node has no path
    // ("Network Neighborhood"); empty if it is gone.
    [[nodiscard]] std::string GetDestPath() const;
    [[nodiscard]] std::string GetDeletePath() const;
    [[nodiscard]] bool DeleteMode() const { return m_bDeleteMode; }
    [[nodiscard]] std::string CurrentPath() const { return m_strCurrentPath; }
    [[nodiscard]] std::string DropText() const { return m_dropTarget.DropText(); }

    // FolderTree
    [[nodiscard]] const ShellTreeItem* GetSelectedItemData() const override;
    [[nodiscard]] std::string GetSelectedText() const override;

    // CView
    [[nodiscard]] ViewKind Kind() const override { return ViewKind::DriveTree; }
    void OnUpdate(CView* sender, int nHint, const HintObject* object) override;
    void AnswerDocument(PaneAnswers& answers) const override;
    bool OnCommand(int nId) override;
    bool OnUpdateCommand(int nId, CommandState& state) override;

    // The menu that was opened last; null if there was none.
    [[nodiscard]] QMenu* PopupMenu() const { return m_pPopupMenu.get(); }
    // Carries drags in place of RunDrag.
    void SetDragRunner(DragRunner runner) { m_runDrag = std::move(runner); }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void OnSelected(ShellTreeNode* node);
    void Refresh();
    void SearchListRow(const ShellListItem& row, const std::function<void()>& onMissing);
    void BeginDrag(Qt::MouseButton button);
    void OnDropped(const TreeDrop& drop);
    void SetSource(const ShellTreeNode* node);
    void OpenContextMenu(const ShellTreeNode* node, const QPoint& screenPosition);
    void OpenMenu(int firstCommand, int lastCommand, const QPoint& screenPosition);
    void SetUpDelete();

    PaneServices m_services;
    bool m_bFocus = false;
    bool m_bDeleteMode = false;           // while the dialog of a delete setup is open
    std::string m_strCurrentPath;         // of the folder selected last, or "My Computer"
    mutable std::string m_strSourcePath;  // the last results
    mutable std::string m_strDestPath;
    NodeRef m_sourceItem;           // where a drag began, or what was clicked for a menu
    bool m_bSourceIsList = false;   // the last drag came from the list of files
    mutable NodeRef m_contextItem;  // for the delete setup; used up by it
    std::unique_ptr<QMenu> m_pPopupMenu;
    DragGesture m_gesture;
    DragRunner m_runDrag = RunDrag;
    DriveDropTarget m_dropTarget;
    DriveRefresh m_refresh;
};

}  // namespace quorbit
