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
    } else if (selected->m_fill == nullptr) {
        SearchListRow(row, onMissing);
    } else {
        FillNode(*selected, [this, selected, row, onMissing = std::move(onMissing)] {
            if (SelectedNode() == selected) {
                SearchListRow(row, onMissing);
            }
        });
    }
}

void CDriveView::SearchListRow(const ShellListItem& row, const std::function<void()>& onMissing)
{
    ShellTreeNode* found = FindItem(SelectedNode(), row);
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
    if (node == RootNode()) {
        m_strCurrentPath = kMyComputer;
    } else {
        GetItemPath(node, m_strCurrentPath);
    }
    RefreshFileList();
}

void CDriveView::RefreshFileList()
{
    if (const ShellTreeItem* item = GetSelectedItemData()) {
        const TreeItemHint hint(*item);
        m_services.pDoc->UpdateAllViews(this, HINT_FOLDER_SELECTED, &hint);
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

std::string CDriveView::GetSourcePath() const
{
    if (m_bSourceIsList) {
        return m_strCurrentPath;
    }
    const ShellTreeNode* node = m_sourceItem.Get();
    if (node == nullptr) {
        m_strSourcePath.clear();
    } else {
        GetItemPath(node, m_strSourcePath);
    }
    return m_strSourcePath;
}

std::string CDriveView::GetDestPath() const
{
    const ShellTreeNode* node = m_dropTarget.DropNode();
    if (node == nullptr) {
        m_strDestPath.clear();
    } else {
        GetItemPath(node, m_strDestPath);
    }
    return m_strDestPath;
}

std::string CDriveView::GetDeletePath() const
{
    const ShellTreeNode* context = std::exchange(m_contextItem, {}).Get();
    // Never return the path of an earlier call: this folder will be deleted.
    m_strSourcePath.clear();
    GetItemPath(context != nullptr ? context : SelectedNode(), m_strSourcePath);
    return m_strSourcePath;
}

const ShellTreeItem* CDriveView::GetSelectedItemData() const
{
    const ShellTreeNode* node = SelectedNode();
    return node != nullptr ? &node->Item() : nullptr;
}

std::string CDriveView::GetSelectedText() const
{
    const ShellTreeNode* node = SelectedNode();
    return node != nullptr ? node->text(0).toStdString() : std::string();
}

void CDriveView::OnUpdate(CView*, int nHint, const HintObject* object)
{
    const auto* opened = dynamic_cast<const ListItemHint*>(object);
    if (nHint == HINT_FOLDER_OPENED && opened != nullptr) {
        FindListRow(opened->Item(), [this, row = opened->Item()] {
            const ListItemHint hint(row);
            m_services.pDoc->UpdateAllViews(this, HINT_FOLDER_NOT_FOUND, &hint);
        });
    } else if (nHint == HINT_DELETE && m_bFocus && SelectedNode() != nullptr) {
        m_contextItem = {};  // set by a context menu that was dismissed
        SetUpDelete();
    }
}

void CDriveView::AnswerDocument(PaneAnswers& answers) const
{
    answers.tree = {.sourcePath = GetSourcePath(),
                    .destPath = GetDestPath(),
                    .deletePath = GetDeletePath(),
                    .currentPath = CurrentPath(),
                    .dropText = DropText(),
                    .dropNames = {},
                    .deleteMode = DeleteMode()};
}

bool CDriveView::OnCommand(int nId)
{
    switch (nId) {
        case CMD_REFRESH:
            Refresh();
            return true;
        case CMD_DROP_ADD_FILE_TYPES:
            m_services.postCommand(DropText().starts_with('F') ? CMD_NEW_FILE_ENTRY
                                                               : CMD_NEW_FILE_TYPE_ENTRY);
            return true;
        case CMD_DROP_ADD_DEFAULT:
            m_services.postCommand(CMD_ADD_DEFAULT);
            return true;
        case CMD_DROP_ADD_ALL:
            m_services.postCommand(CMD_ADD_DEFAULT_ALL);
            return true;
        case CMD_DELETE_SETUP:
            SetUpDelete();
            return true;
        default:
            return false;
    }
}

bool CDriveView::OnUpdateCommand(int nId, CommandState& state)
{
    if (nId != CMD_REFRESH && (nId < CMD_DROP_ADD_FILE_TYPES || nId > CMD_DELETE_SETUP)) {
        return false;
    }
    state.enabled = true;
    return true;
}

void CDriveView::SetUpDelete()
{
    m_bDeleteMode = true;
    // Returns after the dialog has closed, so the mode applies to this dialog only.
    m_services.sendCommand(CMD_NEW_FILE_TYPE_ENTRY);
    m_bDeleteMode = false;
}

void CDriveView::SetSource(const ShellTreeNode* node)
{
    m_sourceItem = NodeRef(*this, node);
    m_bSourceIsList = false;
}

void CDriveView::OnDropped(const TreeDrop& drop)
{
    const ShellTreeNode* node = drop.node.Get();
    const bool fromList = DropText().starts_with('F');
    m_bSourceIsList = fromList;
    std::string destination;
    const bool same = node != nullptr &&
                      (fromList ? GetItemPath(node, destination) && destination == m_strCurrentPath
                                : node == m_sourceItem.Get());
    if (same) {
        m_services.pPrompts->Ask("Warning you are trying to copy to the same directory.", {},
                                 PromptIcon::Exclamation, PromptButtons::Ok);
    }
    if (drop.rightButton) {
        OpenMenu(CMD_DROP_ADD_FILE_TYPES, CMD_DROP_ADD_ALL, viewport()->mapToGlobal(drop.position));
    } else {
        OnCommand(CMD_DROP_ADD_FILE_TYPES);
    }
}

void CDriveView::OpenContextMenu(const ShellTreeNode* node, const QPoint& screenPosition)
{
    SetSource(node);
    if (node != nullptr && node != RootNode()) {
        m_contextItem = NodeRef(*this, node);
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
