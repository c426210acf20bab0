// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Updates a tree to match the disk: adds and removes drives, network shares, folders of the
// desktop, and folders below expanded nodes and below the selected node. Existing nodes are kept.
// Each folder is read in a thread of its own, so a mount that does not respond blocks only its own
// node. A folder that cannot be read keeps its nodes. User interface thread only.

#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "panes/node_ref.h"
#include "platform/shell/folder_feed.h"

namespace quorbit {

class DriveRefresh {
public:
    // `tree` must outlive this object.
    explicit DriveRefresh(ShellTree& tree);
    ~DriveRefresh();
    DriveRefresh(const DriveRefresh&) = delete;
    DriveRefresh& operator=(const DriveRefresh&) = delete;

    // Starts to read the drives and the folders of the desktop. A folder that an earlier refresh is
    // still reading is read again when that read ends; until then no wait cursor is shown for it.
    void Start();
    // Returns true if no folder is being read.
    [[nodiscard]] bool IsOver() const { return m_reads.empty(); }

private:
    struct Read;
    // A null node means the desktop, whose folders follow the root node.
    using Apply = void (DriveRefresh::*)(ShellTreeNode*, const Read&);
    using ByName = std::unordered_map<std::string, ShellTreeNode*>;  // by parsing name

    void Update(ShellTreeNode* node);
    void UpdateIfOpen(ShellTreeNode& node);
    void Begin(ShellTreeNode* node, std::uint32_t flags, Apply apply);
    void OnBatch(Read& read, FolderBatch batch);

    void ApplyDrives(ShellTreeNode* root, const Read& read);
    void ApplyFolder(ShellTreeNode* node, const Read& read);

    void RemoveVanished(ShellTreeNode* node, const Read& read);
    void UpdateMark(ShellTreeNode& node, std::uint32_t attributes);
    void UpdateExpandedChildren(const ShellTreeNode* node);
    [[nodiscard]] std::vector<ShellTreeNode*> Children(const ShellTreeNode* node) const;
    [[nodiscard]] ByName ChildrenByName(const ShellTreeNode* node) const;

    ShellTree& m_tree;
    std::list<std::unique_ptr<Read>> m_reads;
};

}  // namespace quorbit
