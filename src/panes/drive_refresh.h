// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Brings a tree in step with the disk: drives and folders of the desktop that came and went, and
// folders that came and went below nodes that are expanded. What stands is not made anew. Each
// folder is read in a thread that nobody waits for, so that a mount that does not answer holds up
// itself alone; a folder that cannot be read keeps its nodes. User interface thread only.

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
    // tree outlives this object.
    explicit DriveRefresh(ShellTree& tree);
    ~DriveRefresh();
    DriveRefresh(const DriveRefresh&) = delete;
    DriveRefresh& operator=(const DriveRefresh&) = delete;

    // Begins with the drives and with the folders of the desktop. What is still being read for an
    // earlier refresh is read once more when it has been; the tree does not wait for it again.
    void Start();
    // Nothing is being read.
    [[nodiscard]] bool IsOver() const { return m_reads.empty(); }

private:
    struct Read;
    // A node that is null stands for the desktop, whose folders follow the root node.
    using Apply = void (DriveRefresh::*)(ShellTreeNode*, const Read&);
    using ByName = std::unordered_map<std::string, ShellTreeNode*>;  // by parsing name

    void Update(ShellTreeNode* node);
    void UpdateIfOpen(ShellTreeNode& node);
    void Begin(ShellTreeNode* node, std::uint32_t flags, Apply apply);
    void OnBatch(Read& read, FolderBatch batch);

    void ApplyDrives(ShellTreeNode* root, const Read& read);
    void ApplyFolder(ShellTreeNode* node, const Read& read);
    void AddMissing(ShellTreeNode* node, const Read& read);

    void RemoveVanished(ShellTreeNode* node, const Read& read);
    void UpdateExpandedChildren(const ShellTreeNode* node);
    [[nodiscard]] std::vector<ShellTreeNode*> Children(const ShellTreeNode* node) const;
    [[nodiscard]] ByName ChildrenByName(const ShellTreeNode* node) const;

    ShellTree& m_tree;
    std::list<std::unique_ptr<Read>> m_reads;
};

}  // namespace quorbit
