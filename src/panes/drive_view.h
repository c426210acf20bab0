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

#include "document/command_map.h"
#include "document/entry_dialogs.h"
#include "document/view.h"
#include "panes/drag_gesture.h"
#include "panes/drive_drop_target.h"
#include "panes/drive_refresh.h"
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

class CDriveView final : public ShellTree, public CView {
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
    // are complete. A folder that is newer than the tree becomes a child of the selected node.
    // Calls onMissing if no node matches, so for a row that is no folder.
    void FindListRow(const ShellListItem& row, std::function<void()> onMissing);
    // Asks the other views to show the selected folder (HINT_FOLDER_SELECTED).
    void RefreshFileList();
    // Selects the parent of the selected node, if it has one.
    void SelectParent();

    // Saves the size of the pane to the profile, unless the frame is minimised.
    void SaveLayout() const;

    // Paths of the last accepted drop, empty before the first: the dragged folder, or the folder
    // that the file list showed when its rows were dropped; and the folder of the drop.
    [[nodiscard]] std::string GetSourcePath() const { return m_strSourcePath; }
    [[nodiscard]] std::string GetDestPath() const { return m_lastDrop.destPath; }
    [[nodiscard]] std::string DropText() const { return m_lastDrop.content.text; }
    // Path of the folder of the last delete setup.
    [[nodiscard]] std::string GetDeletePath() const { return m_strDeletePath; }
    [[nodiscard]] bool DeleteMode() const { return m_bDeleteMode; }
    // Path of the selected folder. kMyComputer for the root node and for "Network Neighborhood",
    // whose rows are drives, too: entries name drives by their whole paths.
    [[nodiscard]] std::string CurrentPath() const { return m_strCurrentPath; }

    // Returns the record of the selected node, or null if no node is selected. Owned by the tree;
    // valid until control returns to the event loop.
    [[nodiscard]] const ShellTreeItem* GetSelectedItemData() const;

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
    void keyPressEvent(QKeyEvent* event) override;
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
    [[nodiscard]] static const CommandMap<CDriveView>& Commands();
    void OnDropped(const TreeDrop& drop);
    void AddFromDrop();
    void OpenContextMenu(const ShellTreeNode* node, const QPoint& screenPosition);
    void OnMenuKey();
    void OpenMenu(int firstCommand, int lastCommand, const QPoint& screenPosition);
    void SetUpDelete(const std::string& path);

    PaneServices m_services;
    bool m_bFocus = false;
    bool m_bDeleteMode = false;    // while the dialog of a delete setup is open
    std::string m_strCurrentPath;  // of the last selected folder, or kMyComputer
    TreeDrop m_lastDrop;
    std::string m_strSourcePath;  // of m_lastDrop
    std::string m_strDeletePath;
    std::string m_strContextPath;  // of the folder on which the context menu was opened
    std::unique_ptr<QMenu> m_pPopupMenu;
    DragGesture m_gesture;
    DragRunner m_runDrag = RunDrag;
    DriveDropTarget m_dropTarget;
    DriveRefresh m_refresh;
};

}  // namespace quorbit
