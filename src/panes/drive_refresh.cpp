// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drive_refresh.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/shell/shell_constants.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {

namespace {

constexpr std::uint32_t kAttributes =
    SFGAO_FILESYSTEM | SFGAO_FOLDER | SFGAO_HASSUBFOLDER | SFGAO_FILESYSANCESTOR;
constexpr std::uint32_t kFolders = SHCONTF_FOLDERS;
constexpr std::uint32_t kAllFolders = SHCONTF_FOLDERS | SHCONTF_INCLUDEHIDDEN;

bool IsFolderOnDisk(const FolderItem& item)
{
    constexpr std::uint32_t kBoth = SFGAO_FILESYSTEM | SFGAO_FOLDER;
    return (item.attributes & kBoth) == kBoth;
}

std::string ParsingName(const ShellFolder& folder, ItemIdView id)
{
    return CShellPidl::GetItemName(folder, id, SHGDN_FORPARSING).value_or("");
}

}  // namespace

// A read of one node's folder, or of the desktop, in progress.
struct DriveRefresh::Read {
    bool desktop = false;
    NodeRef node;
    ShellFolderPtr folder;
    Apply apply = nullptr;
    bool again = false;  // requested again during the read
    std::vector<FolderItem> items;
    std::shared_ptr<void> running;
    std::unique_ptr<FolderFeed> feed;

    [[nodiscard]] bool IsOf(const ShellTreeNode* one) const
    {
        return desktop ? one == nullptr : one != nullptr && node.Get() == one;
    }
};

DriveRefresh::DriveRefresh(ShellTree& tree) : m_tree(tree) {}

DriveRefresh::~DriveRefresh() = default;

void DriveRefresh::Start()
{
    m_reads.remove_if(
        [](const auto& read) { return !read->desktop && read->node.Get() == nullptr; });
    ShellTreeNode* root = m_tree.RootNode();
    if (root == nullptr) {
        return;
    }
    if (root->m_bFilled) {
        Begin(root, kFolders, &DriveRefresh::ApplyDrives);
    }
    if (m_tree.HasTopLevel()) {
        Update(nullptr);
    }
    UpdateExpandedChildren(nullptr);
}

// The selected node is read because the file list shows its new folders. A node without a path, the
// network, is read because its shares come from the mount table, not from a disk.
void DriveRefresh::UpdateIfOpen(ShellTreeNode& node)
{
    const bool open = node.isExpanded() || &node == m_tree.SelectedNode() || !node.Path();
    if (open && node.m_bFilled) {
        Update(&node);
    }
}

void DriveRefresh::Update(ShellTreeNode* node)
{
    // Include hidden folders, as when a node is filled. This also avoids reading the attributes of
    // each folder.
    Begin(node, kAllFolders, &DriveRefresh::ApplyFolder);
}

void DriveRefresh::Begin(ShellTreeNode* node, std::uint32_t flags, Apply apply)
{
    const auto same =
        std::ranges::find_if(m_reads, [&](const auto& read) { return read->IsOf(node); });
    if (same != m_reads.end()) {
        (*same)->again = true;
        return;
    }
    Result<ShellFolderPtr> folder =
        node != nullptr ? node->Item().m_pFolder->BindToObject(node->Item().m_pidlItem)
                        : Result<ShellFolderPtr>(m_tree.Desktop());
    if (!folder) {
        return;
    }
    Read& read = *m_reads.emplace_back(std::make_unique<Read>());
    read.desktop = node == nullptr;
    read.node = NodeRef(m_tree, node);
    read.folder = std::move(*folder);
    read.apply = apply;
    read.running = m_tree.ShowRunning();
    read.feed = std::make_unique<FolderFeed>(
        read.folder, FolderRequest{flags, kAttributes},
        [this, &read](FolderBatch batch) { OnBatch(read, std::move(batch)); });
}

void DriveRefresh::OnBatch(Read& read, FolderBatch batch)
{
    std::ranges::move(batch.items, std::back_inserter(read.items));
    if (!batch.ended) {
        return;
    }
    const auto place =
        std::ranges::find_if(m_reads, [&](const auto& one) { return one.get() == &read; });
    const std::unique_ptr<Read> ended = std::move(*place);
    m_reads.erase(place);
    ShellTreeNode* node = ended->node.Get();
    if (node == nullptr && !ended->desktop) {
        return;
    }
    if (ended->again) {
        node == m_tree.RootNode() ? Start() : Update(node);
        return;
    }
    // An incomplete listing does not show which folders were deleted, so keep all nodes. Missing
    // means that the folder itself was deleted, so remove its child nodes.
    if (!batch.error || batch.error->Kind() == ErrorKind::Missing) {
        (this->*ended->apply)(node, *ended);
    }
}

// Returns the child nodes. For the desktop (null), those that follow the root node.
std::vector<ShellTreeNode*> DriveRefresh::Children(const ShellTreeNode* node) const
{
    std::vector<ShellTreeNode*> children;
    const int count = node != nullptr ? node->childCount() : m_tree.topLevelItemCount();
    for (int i = node != nullptr ? 0 : 1; i < count; ++i) {
        children.push_back(NodeOf(node != nullptr ? node->child(i) : m_tree.topLevelItem(i)));
    }
    return children;
}

DriveRefresh::ByName DriveRefresh::ChildrenByName(const ShellTreeNode* node) const
{
    ByName children;
    for (ShellTreeNode* child : Children(node)) {
        children.emplace(ParsingName(*child->Item().m_pFolder, child->Item().m_pidlItem), child);
    }
    return children;
}

void DriveRefresh::ApplyDrives(ShellTreeNode* root, const Read& read)
{
    const ByName drives = ChildrenByName(root);
    int place = 0;
    for (const FolderItem& item : read.items) {
        if (!IsFolderOnDisk(item)) {
            continue;
        }
        const auto found = drives.find(ParsingName(*read.folder, item.id));
        if (found != drives.end()) {
            UpdateMark(*found->second, item.attributes);
            place = root->indexOfChild(found->second) + 1;
        } else {
            m_tree.InsertNode(root, place++, read.folder, item);
        }
    }
    RemoveVanished(root, read);
    UpdateExpandedChildren(root);
}

void DriveRefresh::ApplyFolder(ShellTreeNode* node, const Read& read)
{
    RemoveVanished(node, read);
    const ByName children = ChildrenByName(node);
    bool added = false;
    for (const FolderItem& item : read.items) {
        const auto found = children.find(ParsingName(*read.folder, item.id));
        if (found != children.end()) {
            UpdateMark(*found->second, item.attributes);
        } else if (m_tree.IsWanted(node, item)) {
            const int end = node != nullptr ? node->childCount() : m_tree.topLevelItemCount();
            m_tree.InsertNode(node, end, read.folder, item);
            added = true;
        }
    }
    if (added) {
        m_tree.SortByText(node);
    }
    if (node == nullptr) {
        return;
    }
    if (node->childCount() == 0) {
        node->setExpanded(false);
        node->SetMark(false);
    }
    UpdateExpandedChildren(node);
}

void DriveRefresh::RemoveVanished(ShellTreeNode* node, const Read& read)
{
    std::unordered_set<std::string> there;
    for (const FolderItem& item : read.items) {
        there.insert(ParsingName(*read.folder, item.id));
    }
    for (const auto& [name, child] : ChildrenByName(node)) {
        if (!there.contains(name)) {
            m_tree.RemoveNode(*child);
        }
    }
}

// Updates the expand mark of a node without children.
void DriveRefresh::UpdateMark(ShellTreeNode& node, std::uint32_t attributes)
{
    if (node.m_fill != nullptr || node.childCount() != 0) {
        return;
    }
    const bool hasSubfolder = (attributes & SFGAO_HASSUBFOLDER) != 0;
    node.m_bFilled = node.m_bFilled && !hasSubfolder;
    node.SetMark(hasSubfolder);
    if (hasSubfolder && &node == m_tree.SelectedNode()) {
        m_tree.FillNode(node);
    }
}

void DriveRefresh::UpdateExpandedChildren(const ShellTreeNode* node)
{
    for (ShellTreeNode* child : Children(node)) {
        UpdateIfOpen(*child);
    }
}

}  // namespace quorbit
