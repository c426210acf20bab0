// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/drive_view.h"

#include <algorithm>
#include <array>
#include <utility>

#include "batch/dir_copy.h"
#include "panes/drive_tree_filter.h"
#include "panes/pane_hints.h"
#include "platform/path_text.h"
#include "platform/shell/shell_constants.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {

namespace {

// Indexed by command, from CMD_DROP_ADD_FILE_TYPES on.
constexpr std::array<const char*, 4> kMenuTexts = {
    "Add &File Types", "Add &Default File Configuration", "&Add *.* with defaults",
    "&Delete Folder Setup"};

// Returns the first node of an item in depth-first order, starting at `node` and continuing with
// its next siblings. Null if there is none.
ShellTreeNode* FindItem(ShellTreeNode* node, const ShellListItem& item)
{
    const auto isIt = [&](const ShellTreeItem& record) {
        return record.m_pFolder != nullptr &&
               CShellPidl::IsSameItem(*item.m_pFolder, item.m_pidlItem, *record.m_pFolder,
                                      record.m_pidlItem);
    };
    // Not recursive: a deep path could overflow the stack.
    QTreeWidgetItemIterator next(node);
    const QTreeWidgetItem* parent = node->parent();
    for (; *next != nullptr; ++next) {
        ShellTreeNode* found = NodeOf(*next);
        const QTreeWidgetItem* above = found;
        while (above != nullptr && above->parent() != parent) {
            above = above->parent();
        }
        if (above == nullptr) {
            return nullptr;  // beyond the last sibling
        }
        if (isIt(found->Item())) {
            return found;
        }
    }
    return nullptr;
}

FolderItem ItemOf(const ShellListItem& row)
{
    FolderItem item;
    item.id = row.m_pidlItem;
    item.attributes = row.m_dwAttributes;
    item.name = row.m_szName;
    return item;
}

}  // namespace

CDriveView::CDriveView(PaneServices services, QWidget* parent)
    : ShellTree(services.desktop, *services.pIcons, SHCONTF_FOLDERS | SHCONTF_INCLUDEHIDDEN,
                DriveTreeVerdict, parent),
      m_services(std::move(services)),
      m_dropTarget(*this, [this](const TreeDrop& drop) { OnDropped(drop); }),
      m_refresh(*this)
{
    setAccessibleName(QStringLiteral("Drives and folders"));
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* current) { OnSelected(NodeOf(current)); });
    if (m_services.nRunMode == 0) {
        FillFromDesktop();
    }
}

CDriveView::~CDriveView()
{
    // The base class deletes the nodes after the members of this class are destroyed; its signals
    // must not reach them.
    blockSignals(true);
}

bool CDriveView::GetItemPath(const QTreeWidgetItem* item, std::string& path) const
{
    auto found = item != nullptr ? NodeOf(item)->Path() : std::nullopt;
    if (!found) {
        return false;
    }
    path = std::move(*found);
    return true;
}

ShellTreeNode* CDriveView::FindNodeByPath(std::string_view path) const
{
    ShellTreeNode* node = FindVolume(path);
    if (node == nullptr || node->childCount() == 0) {
        return node;
    }
    const char separator = SeparatorOf(path);
    std::string_view rest = path.substr(std::min(node->Path()->size(), path.size()));
    while (node != nullptr && !rest.empty()) {
        const std::string_view part = rest.substr(0, rest.find(separator));
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
        if (!part.empty()) {
            node = FindChild(*node, part);
        }
    }
    return node;
}

void CDriveView::FindListRow(const ShellListItem& row, std::function<void()> onMissing)
{
    ShellTreeNode* selected = SelectedNode();
    if (selected == nullptr || row.m_pFolder == nullptr) {
        onMissing();
    } else {
        if (!selected->m_bFilled && IsWanted(selected, ItemOf(row))) {
            selected->SetMark(true);  // the node was read before it had subfolders
        }
        FillNode(*selected, [this, selected, row, onMissing = std::move(onMissing)] {
            if (SelectedNode() == selected) {
                SearchListRow(row, onMissing);
            }
        });
    }
}

void CDriveView::SearchListRow(const ShellListItem& row, const std::function<void()>& onMissing)
{
    ShellTreeNode* selected = SelectedNode();
    ShellTreeNode* found = FindItem(selected, row);
    const FolderItem item = ItemOf(row);
    if (found == nullptr && selected->m_bFilled && IsWanted(selected, item)) {
        found = &InsertNode(selected, selected->childCount(), row.m_pFolder, item);
        SortByText(selected);
    }
    if (found != nullptr) {
        SelectNode(*found);
    } else {
        onMissing();
    }
}

void CDriveView::OnSelected(ShellTreeNode* node)
{
    if (node == nullptr) {
        return;
    }
    m_strCurrentPath = node->Path().value_or(kMyComputer);
    RefreshFileList();
}

void CDriveView::RefreshFileList()
{
    if (const ShellTreeNode* node = SelectedNode()) {
        const TreeItemHint hint(node->Item(), node->text(0).toStdString());
        m_services.pDoc->UpdateAllViews(this, HINT_FOLDER_SELECTED, &hint);
    }
}

void CDriveView::SelectParent()
{
    ShellTreeNode* node = SelectedNode();
    if (node != nullptr && node->parent() != nullptr) {
        SelectNode(*NodeOf(node->parent()));
    }
}

void CDriveView::Refresh()
{
    StopWaiting();
    m_refresh.Start();
    // Update the list now: it reads the disk itself and must not wait for a drive that does not
    // respond. If the selected node turns out to be deleted, the new selection fills the list
    // again.
    RefreshFileList();
}

void CDriveView::SaveLayout() const
{
    if (m_services.isFrameMinimised && m_services.isFrameMinimised()) {
        return;
    }
    m_services.pProfile->WriteProfileInts(
        {{Setting::DriveViewSizeX, width()}, {Setting::DriveViewSizeY, height()}});
}

const ShellTreeItem* CDriveView::GetSelectedItemData() const
{
    const ShellTreeNode* node = SelectedNode();
    return node != nullptr ? &node->Item() : nullptr;
}

void CDriveView::OnUpdate(CView*, int nHint, const HintObject* object)
{
    const auto* opened = dynamic_cast<const ListItemHint*>(object);
    if (nHint == HINT_FOLDER_OPENED && opened != nullptr) {
        FindListRow(opened->Item(), [this, row = opened->Item()] {
            const ListItemHint hint(row);
            m_services.pDoc->UpdateAllViews(this, HINT_FOLDER_NOT_FOUND, &hint);
        });
    } else if (nHint == HINT_PARENT_FOLDER) {
        SelectParent();
    } else if (nHint == HINT_DELETE && m_bFocus && SelectedNode() != nullptr) {
        SetUpDelete(SelectedNode()->Path().value_or(""));
    }
}

void CDriveView::AnswerDocument(PaneAnswers& answers) const
{
    answers.tree = {.sourcePath = GetSourcePath(),
                    .destPath = GetDestPath(),
                    .deletePath = GetDeletePath(),
                    .currentPath = CurrentPath(),
                    .dropText = DropText(),
                    .dropNames = m_lastDrop.content.names,
                    .deleteMode = DeleteMode()};
}

const CommandMap<CDriveView>& CDriveView::Commands()
{
    static const CommandMap<CDriveView> map{
        {CMD_REFRESH, &CDriveView::Refresh},
        {CMD_DROP_ADD_FILE_TYPES, &CDriveView::AddFromDrop},
        {CMD_DROP_ADD_DEFAULT,
         [](CDriveView& tree) { tree.m_services.postCommand(CMD_ADD_DEFAULT); }},
        {CMD_DROP_ADD_ALL,
         [](CDriveView& tree) { tree.m_services.postCommand(CMD_ADD_DEFAULT_ALL); }},
        {CMD_DELETE_SETUP, [](CDriveView& tree) { tree.SetUpDelete(tree.m_strContextPath); }},
        // Handled here only to disable it for a node without a path; else the document sends
        // HINT_DELETE.
        {CMD_DELETE, [](CDriveView&) {},
         [](const CDriveView& tree) {
             const ShellTreeNode* node = tree.SelectedNode();
             const bool pathless = tree.m_bFocus && (node == nullptr || !node->Path());
             return pathless ? std::optional(CommandState{.enabled = false}) : std::nullopt;
         }},
    };
    return map;
}

bool CDriveView::OnCommand(int nId)
{
    return Commands().Run(*this, nId);
}

bool CDriveView::OnUpdateCommand(int nId, CommandState& state)
{
    return Commands().Update(*this, nId, state);
}

void CDriveView::AddFromDrop()
{
    m_services.postCommand(m_lastDrop.content.IsList() ? CMD_NEW_FILE_ENTRY
                                                       : CMD_NEW_FILE_TYPE_ENTRY);
}

// Without a path there is no folder to delete, and the dialog would show that of its last use.
void CDriveView::SetUpDelete(const std::string& path)
{
    if (path.empty()) {
        return;
    }
    m_strDeletePath = path;
    m_bDeleteMode = true;
    // Returns after the dialog has closed, so the mode applies to this dialog only.
    m_services.sendCommand(CMD_NEW_FILE_TYPE_ENTRY);
    m_bDeleteMode = false;
}

void CDriveView::OnDropped(const TreeDrop& drop)
{
    m_lastDrop = drop;
    m_strSourcePath = drop.content.IsList() ? m_strCurrentPath : drop.content.FolderPath();
    if (m_strSourcePath == drop.destPath) {
        m_services.pPrompts->Ask("Warning you are trying to copy to the same directory.", {},
                                 PromptIcon::Exclamation, PromptButtons::Ok);
    }
    if (drop.rightButton) {
        OpenMenu(CMD_DROP_ADD_FILE_TYPES, CMD_DROP_ADD_ALL, viewport()->mapToGlobal(drop.position));
        // A default entry takes the source folder whole, and "My Computer" is none.
        for (QAction* action : m_pPopupMenu->actions().mid(1)) {
            action->setEnabled(m_strSourcePath != kMyComputer);
        }
    } else {
        AddFromDrop();
    }
}

void CDriveView::OpenContextMenu(const ShellTreeNode* node, const QPoint& screenPosition)
{
    const auto path = node != nullptr ? node->Path() : std::nullopt;
    if (path) {
        m_strContextPath = *path;
        OpenMenu(CMD_DELETE_SETUP, CMD_DELETE_SETUP, screenPosition);
    }
}

void CDriveView::OpenMenu(int firstCommand, int lastCommand, const QPoint& screenPosition)
{
    m_pPopupMenu = std::make_unique<QMenu>(this);
    for (int id = firstCommand; id <= lastCommand; ++id) {
        const char* text = kMenuTexts.at(static_cast<std::size_t>(id - CMD_DROP_ADD_FILE_TYPES));
        // Queued, so that the menu has closed before a dialog opens.
        connect(
            m_pPopupMenu->addAction(QString::fromLatin1(text)), &QAction::triggered, this,
            [this, id] { OnCommand(id); }, Qt::QueuedConnection);
    }
    m_pPopupMenu->popup(screenPosition);
}

}  // namespace quorbit
