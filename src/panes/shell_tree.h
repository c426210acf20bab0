// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A tree of the shell namespace, starting at the desktop and reduced by a filter. A node's children
// are read in a background thread when it is first expanded or selected, so a mount that does not
// respond leaves its node without children but does not block the window. The wait cursor is shown
// for the latest request; older reads continue without it. User interface thread only.

#pragma once

#include <QTreeWidget>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "panes/shell_tree_node.h"
#include "platform/shell/folder_reader.h"

namespace quorbit {

// Input of a filter.
struct TreeCandidate {
    std::uint32_t attributes = 0;  // SFGAO_ bits of the mask 0xF0000170
    std::string_view name;         // display name, not shortened
    bool topLevel = false;
    bool belowFirst = false;     // the parent is the first top-level node
    std::size_t considered = 0;  // number of earlier items of this folder counted as considered
};

enum class TreeVerdict {
    Make,   // create a node; counts as considered
    Count,  // create no node; counts as considered
    Skip,   // neither
};

using TreeFilter = std::function<TreeVerdict(const TreeCandidate&)>;

class ShellTree : public QTreeWidget {
public:
    // `flags` are the SHCONTF_ flags of the items to enumerate. `icons` must outlive the tree.
    // Creates an empty tree.
    ShellTree(ShellFolderPtr desktop, const ItemIcons& icons, std::uint32_t flags,
              TreeFilter filter, QWidget* parent = nullptr);
    ~ShellTree() override;
    ShellTree(const ShellTree&) = delete;
    ShellTree& operator=(const ShellTree&) = delete;

    // Removes all nodes and reads the top level. Selects and expands the first node as soon as it
    // exists. `done` is called when the top level is complete and sorted; it may be empty.
    void FillFromDesktop(std::function<void()> done = {});

    // Reads the children of a node that has the expand mark and has not been read. `done` is called
    // when the children are in the tree, sorted; immediately if there is nothing to read; never if
    // the node is removed first or its folder does not respond.
    void FillNode(ShellTreeNode& node, std::function<void()> done = {});
    // Sets a function to call after the children of a node have been read, with null for the top
    // level.
    void SetOnFilled(std::function<void(ShellTreeNode*)> onFilled)
    {
        m_onFilled = std::move(onFilled);
    }
    // Returns true if the top level is complete.
    [[nodiscard]] bool HasTopLevel() const { return m_fill == nullptr; }
    // Returns true while any folder is being read.
    [[nodiscard]] bool IsFilling() const { return m_nRunning != 0; }

    // The first top-level node, or null while there is none. Its children are the volumes.
    [[nodiscard]] ShellTreeNode* RootNode() const { return NodeOf(topLevelItem(0)); }
    // The selected node, or null.
    [[nodiscard]] ShellTreeNode* SelectedNode() const { return NodeOf(currentItem()); }
    // Scrolls to a node and selects it, which starts to read its children.
    void SelectNode(ShellTreeNode& node);

    // Returns the child of the root node with the longest path that contains `path`, ignoring the
    // case of drive letters. Null if the tree has none.
    [[nodiscard]] ShellTreeNode* FindVolume(std::string_view path) const;
    // Returns the child with this name (bytes), or else the first whose name or text matches if
    // case is ignored. Considers only children that have a path. Null if there is none.
    [[nodiscard]] static ShellTreeNode* FindChild(const ShellTreeNode& node, std::string_view name);
    // Selects the nodes along a path, one after the other, as far as they exist, each when its
    // parent has been read. Stops if the selection changes in the meantime. `done` as for FillNode.
    void GoToPath(const std::string& path, std::function<void()> done = {});

    [[nodiscard]] const ShellFolderPtr& Desktop() const { return m_desktop; }

    // Returns true if the filter accepts an item of the folder of `parent` that was found after the
    // first ones; null means the top level.
    [[nodiscard]] bool IsWanted(const ShellTreeNode* parent, const FolderItem& item) const;
    // Inserts a node for an item of `folder` at an index among the children of `parent`; null means
    // the top level.
    ShellTreeNode& InsertNode(ShellTreeNode* parent, int place, const ShellFolderPtr& folder,
                              const FolderItem& item);
    // Sorts the children by text, ignoring case. The top level (null) is sorted by CompareItemIds,
    // as it is when it is filled.
    void SortByText(ShellTreeNode* parent);
    void RemoveNode(ShellTreeNode& node);

    // Highlights the drop target of a drag, independently of the selection; null for none.
    void SetHighlight(const ShellTreeNode* node);

    // Shows the wait cursor while the returned token exists, or until StopWaiting. The token must
    // not outlive the tree.
    [[nodiscard]] std::shared_ptr<void> ShowRunning();
    // Hides the wait cursor; reads in progress continue.
    void StopWaiting();

protected:
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

private:
    void OnToolTip(const QHelpEvent& event);
    void OnExpanded(ShellTreeNode& node);
    void OnCollapsed(ShellTreeNode& node);
    void OnCurrentChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous);
    // A null node means the top level.
    void OnBatch(ShellTreeNode* node, FolderBatch batch);
    [[nodiscard]] TreeVerdict Judge(const ShellTreeNode* parent, const FolderItem& item,
                                    std::size_t considered) const;
    void KeepWanted(ShellTreeNode* node, NodeFill& fill, std::vector<FolderItem> items) const;
    void InsertWanted(ShellTreeNode* node, NodeFill& fill);
    void EndFill(ShellTreeNode* node, bool failed);
    [[nodiscard]] std::unique_ptr<ShellTreeNode> MakeNode(const ShellTreeNode* parent,
                                                          const ShellFolderPtr& folder,
                                                          const FolderItem& item) const;
    void GoDown(ShellTreeNode& node, std::string rest, char separator, std::function<void()> done);

    ShellFolderPtr m_desktop;
    std::uint32_t m_dwFlags;
    TreeFilter m_filter;
    ShellTreeLook m_look;
    std::function<void(ShellTreeNode*)> m_onFilled;
    int m_nRunning = 0;                // reads in progress
    int m_nWaitedFor = 0;              // reads that show the wait cursor
    unsigned m_nStops = 0;             // number of calls of StopWaiting
    std::unique_ptr<NodeFill> m_fill;  // of the top level
};

}  // namespace quorbit
