// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The drive tree, the left pane. Selecting a folder shows it in the file list. The tree is a source
// of folder drags and the only drop target: the dragged item becomes the source of a batch entry,
// the folder under the drop its destination. The context menu creates delete entries. User
// interface thread only.

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

// Commands of the drop menu and the context menu.
enum : int {
    CMD_DROP_ADD_FILE_TYPES = 1000,
    CMD_DROP_ADD_DEFAULT = 1001,
    CMD_DROP_ADD_ALL = 1002,
    CMD_DELETE_SETUP = 1003,
};

class CDriveView final : public ShellTree, public CView, public FolderTree {
public:
    // Starts to fill the tree, unless the program was started to run or show a batch (nRunMode is
    // not 0). Copies the services. Does not add the view to the document.
    explicit CDriveView(PaneServices services, QWidget* parent = nullptr);
    ~CDriveView() override;

    // Sets `path` to the path of a node's folder, as bytes. Returns false and leaves `path`
    // unchanged if the node has none.
    bool GetItemPath(const QTreeWidgetItem* item, std::string& path) const;
    // Returns the loaded node of the folder at a path, or null if there is none. Returns the node
    // of the volume if `path` is its root or its children have not been read.
    [[nodiscard]] ShellTreeNode* FindNodeByPath(std::string_view path) const;
    // Selects the node of a row of the file list: the first match in depth-first order, starting at
    // the selected node. If the children of the selected node are being read, searches when they
    // are complete. Calls onMissing if no node matches.
    void FindListRow(const ShellListItem& row, std::function<void()> onMissing);
    // Asks the other views to show the selected folder (HINT_FOLDER_SELECTED).
    void RefreshFileList();

    // Saves the size of the pane to the profile, unless the frame is minimised.
    void SaveLayout() const;

    // Path of the source of the last drag or context menu. After a drag from the file list, the
    // folder that the list shows.
    [[nodiscard]] std::string GetSourcePath() const;
    // Path of the node of the last drop. Returns the previous result if that node has no path
    // ("Network Neighborhood"), or an empty string if the node was removed.
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

    // The last menu opened, or null. Owned by this object.
    [[nodiscard]] QMenu* PopupMenu() const { return m_pPopupMenu.get(); }
    // Replaces RunDrag.
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
    std::string m_strCurrentPath;         // of the last selected folder, or "My Computer"
    mutable std::string m_strSourcePath;  // previous results
    mutable std::string m_strDestPath;
    NodeRef m_sourceItem;           // start of a drag, or the node of a context menu
    bool m_bSourceIsList = false;   // the last drop came from the file list
    mutable NodeRef m_contextItem;  // for the delete setup, which clears it
    std::unique_ptr<QMenu> m_pPopupMenu;
    DragGesture m_gesture;
    DragRunner m_runDrag = RunDrag;
    DriveDropTarget m_dropTarget;
    DriveRefresh m_refresh;
};

}  // namespace quorbit
