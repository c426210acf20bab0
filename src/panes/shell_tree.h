// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A tree of the shell namespace from the desktop down, reduced to what a filter lets through. A
// node's children are read when it is expanded or selected for the first time, in a thread that
// nobody waits for: a mount that does not answer leaves its node without children and the window
// alive. The tree shows the wait cursor while that is read which was asked for last; whoever goes
// on to something else does not wait any more, though the reading goes on. User interface thread
// only.

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

// What a filter decides by.
struct TreeCandidate {
    std::uint32_t attributes = 0;  // SFGAO_ bits of the mask 0xF0000170
    std::string_view name;         // display name, whole
    bool topLevel = false;
    bool belowFirst = false;     // its parent is the first top-level node
    std::size_t considered = 0;  // items of this folder that were considered before it
};

enum class TreeVerdict {
    Make,   // a node is made; counts as considered
    Count,  // no node, but counts as considered
    Skip,   // neither
};

using TreeFilter = std::function<TreeVerdict(const TreeCandidate&)>;

class ShellTree : public QTreeWidget {
public:
    // flags: SHCONTF_ of what is enumerated. icons outlive the tree. Nothing is filled yet.
    ShellTree(ShellFolderPtr desktop, const ItemIcons& icons, std::uint32_t flags,
              TreeFilter filter, QWidget* parent = nullptr);
    ~ShellTree() override;
    ShellTree(const ShellTree&) = delete;
    ShellTree& operator=(const ShellTree&) = delete;

    // Drops all nodes and reads the top level. The first node is selected and expanded as soon as
    // it is there. done is called when the top level is complete and sorted; it may be empty.
    void FillFromDesktop(std::function<void()> done = {});

    // Reads the children of a node that has the mark and has not been read. done is called once
    // they stand in the tree, sorted; at once if there is nothing to read; never if the node goes
    // before or its folder does not answer.
    void FillNode(ShellTreeNode& node, std::function<void()> done = {});
    // Called for each node whose children have just been read, and with null for the top level.
    void SetOnFilled(std::function<void(ShellTreeNode*)> onFilled)
    {
        m_onFilled = std::move(onFilled);
    }
    // Whether the top level is complete.
    [[nodiscard]] bool HasTopLevel() const { return m_fill == nullptr; }
    // Whether something is being read.
    [[nodiscard]] bool IsFilling() const { return m_nRunning != 0; }

    // The first top-level node; null while there is none. The volumes are its children.
    [[nodiscard]] ShellTreeNode* RootNode() const { return NodeOf(topLevelItem(0)); }
    // The selected node; null if none is.
    [[nodiscard]] ShellTreeNode* SelectedNode() const { return NodeOf(currentItem()); }
    // Makes it visible, then selects it, which reads its children.
    void SelectNode(ShellTreeNode& node);

    // The volume that a path lies on: the child of the root node with the longest path that it
    // begins with, ignoring the case of drive letters. Null if there is none in the tree.
    [[nodiscard]] ShellTreeNode* FindVolume(std::string_view path) const;
    // The child of that name, as bytes; else the first one with that name or text but for the case.
    // Only children that have a path. Null if there is none.
    [[nodiscard]] static ShellTreeNode* FindChild(const ShellTreeNode& node, std::string_view name);
    // Goes down to a path, selecting node by node as far as they exist, each once its parent has
    // been read. Ends early when something else is selected meanwhile. done: as of FillNode.
    void GoToPath(const std::string& path, std::function<void()> done = {});

    [[nodiscard]] const ShellFolderPtr& Desktop() const { return m_desktop; }

    // Puts a node for an item of a folder under a parent, at a place among its children. A parent
    // that is null stands for the top level.
    void InsertNode(ShellTreeNode* parent, int place, const ShellFolderPtr& folder,
                    const FolderItem& item);
    // Sorts the children by their text, ignoring case; the top level as it was filled.
    void SortByText(ShellTreeNode* parent);
    void RemoveNode(ShellTreeNode& node);

    // A highlight apart from the selection, for the target of a drag; null for none.
    void SetHighlight(const ShellTreeNode* node);

    // For work that reads: the wait cursor shows as long as the token is kept, which must not
    // outlive the tree, or until StopWaiting.
    [[nodiscard]] std::shared_ptr<void> ShowRunning();
    // What is being read goes on without the wait cursor.
    void StopWaiting();

private:
    void OnExpanded(ShellTreeNode& node);
    void OnCollapsed(ShellTreeNode& node);
    void OnCurrentChanged(QTreeWidgetItem* current, QTreeWidgetItem* previous);
    // node: null for the top level.
    void OnBatch(ShellTreeNode* node, FolderBatch batch);
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
    int m_nRunning = 0;                // readings that go on
    int m_nWaitedFor = 0;              // those of them that show the wait cursor
    unsigned m_nStops = 0;             // how often the waiting was stopped
    std::unique_ptr<NodeFill> m_fill;  // of the top level
};

}  // namespace quorbit
