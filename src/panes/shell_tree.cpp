// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/shell_tree.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <algorithm>
#include <utility>
#include <vector>

#include "panes/focus_frame.h"
#include "panes/network_name.h"
#include "panes/node_fill.h"
#include "panes/whole_text_tip.h"
#include "platform/path_text.h"
#include "platform/shell/shell_constants.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {

namespace {

constexpr std::uint32_t kTreeAttributes = 0xF0000170;

// Draws the note of a node behind its text.
class NodeDelegate final : public FocusDelegate {
public:
    using FocusDelegate::FocusDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        FocusDelegate::initStyleOption(option, index);
        const QString note = index.data(Qt::AccessibleDescriptionRole).toString();
        option->text += note.isEmpty() ? note : QStringLiteral("  (%1)").arg(note);
    }
};

bool IsBelow(const QTreeWidgetItem* item, const QTreeWidgetItem& node)
{
    while (item != nullptr && item != &node) {
        item = item->parent();
    }
    return item != nullptr;
}

// Returns true if `path` is `volume` or is below it. Neither has a trailing separator unless it is
// a root. Drive letters are compared ignoring case.
bool LiesOn(std::string_view path, std::string_view volume)
{
    if (IsDrivePath(path) && IsDrivePath(volume)) {
        return QChar(QLatin1Char(path[0])).toUpper() == QChar(QLatin1Char(volume[0])).toUpper();
    }
    return path.starts_with(volume) && (path.size() == volume.size() || EndsInSeparator(volume) ||
                                        path[volume.size()] == SeparatorOf(path));
}

}  // namespace

ShellTree::ShellTree(ShellFolderPtr desktop, const ItemIcons& icons, std::uint32_t flags,
                     TreeFilter filter, QWidget* parent)
    : QTreeWidget(parent),
      m_desktop(std::move(desktop)),
      m_dwFlags(flags),
      m_filter(std::move(filter)),
      m_look{.pIcons = &icons}
{
    setColumnCount(1);
    setHeaderHidden(true);
    setHeaderLabel(QStringLiteral("Folder"));  // read by screen readers
    setRootIsDecorated(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new NodeDelegate(this));
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    auto* frame = new FocusFrame(*this);
    connect(qApp, &QApplication::focusChanged, frame,
            [this, frame] { frame->setVisible(hasFocus()); });
    connect(this, &QTreeWidget::itemExpanded, this,
            [this](QTreeWidgetItem* item) { OnExpanded(*NodeOf(item)); });
    connect(this, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { OnCollapsed(*NodeOf(item)); });
    connect(this, &QTreeWidget::currentItemChanged, this, &ShellTree::OnCurrentChanged);
}

ShellTree::~ShellTree()
{
    // Destroy the nodes here: their read tokens use members of this class.
    const QSignalBlocker silent(this);
    m_fill.reset();
    clear();
}

std::shared_ptr<void> ShellTree::ShowRunning()
{
    ++m_nRunning;
    ++m_nWaitedFor;
    viewport()->setCursor(Qt::WaitCursor);
    return {nullptr, [this, begun = m_nStops](std::nullptr_t) {
                --m_nRunning;
                if (begun == m_nStops && --m_nWaitedFor == 0) {
                    viewport()->unsetCursor();
                }
            }};
}

void ShellTree::StopWaiting()
{
    ++m_nStops;
    m_nWaitedFor = 0;
    viewport()->unsetCursor();
}

void ShellTree::FillFromDesktop(std::function<void()> done)
{
    m_fill.reset();
    clear();
    m_fill = std::make_unique<NodeFill>(m_desktop);
    m_fill->SetRunning(ShowRunning());
    m_fill->m_done.push_back(std::move(done));
    m_fill->Start(
        {m_dwFlags, kTreeAttributes},
        [this](FolderBatch batch) { OnBatch(nullptr, std::move(batch)); }, [](const QString&) {});
}

void ShellTree::FillNode(ShellTreeNode& node, std::function<void()> done)
{
    if (node.m_fill == nullptr && !node.m_bFilled && node.HasMark()) {
        auto folder = node.Item().m_pFolder->BindToObject(node.Item().m_pidlItem);
        if (folder) {
            node.m_fill = std::make_unique<NodeFill>(std::move(*folder));
            node.m_fill->Start(
                {m_dwFlags, kTreeAttributes},
                [this, &node](FolderBatch batch) { OnBatch(&node, std::move(batch)); },
                [&node](const QString& note) { node.SetNote(note); });
        }
    }
    if (node.m_fill != nullptr) {
        node.m_fill->SetRunning(ShowRunning());  // show the wait cursor again
        node.m_fill->m_done.push_back(std::move(done));
    } else if (done) {
        done();
    }
}

void ShellTree::OnBatch(ShellTreeNode* node, FolderBatch batch)
{
    NodeFill& fill = node != nullptr ? *node->m_fill : *m_fill;
    fill.Answered();
    KeepWanted(node, fill, std::move(batch.items));
    if (node == nullptr) {
        // Show the drives before all files on the desktop have been read.
        InsertWanted(nullptr, fill);
    }
    if (batch.ended) {
        EndFill(node, batch.error.has_value());
    }
}

TreeVerdict ShellTree::Judge(const ShellTreeNode* parent, const FolderItem& item,
                             std::size_t considered) const
{
    return m_filter({.attributes = item.attributes,
                     .name = item.name,
                     .topLevel = parent == nullptr,
                     .belowFirst = parent != nullptr && parent == RootNode(),
                     .considered = considered});
}

bool ShellTree::IsWanted(const ShellTreeNode* parent, const FolderItem& item) const
{
    return Judge(parent, item, 1) == TreeVerdict::Make;
}

void ShellTree::KeepWanted(ShellTreeNode* node, NodeFill& fill, std::vector<FolderItem> items) const
{
    for (FolderItem& item : items) {
        const TreeVerdict verdict = Judge(node, item, fill.m_nConsidered);
        fill.m_nConsidered += verdict == TreeVerdict::Skip ? 0 : 1;
        if (verdict == TreeVerdict::Make) {
            fill.m_wanted.push_back(std::move(item));
        }
    }
}

void ShellTree::InsertWanted(ShellTreeNode* node, NodeFill& fill)
{
    std::vector<std::unique_ptr<ShellTreeNode>> made;
    for (const FolderItem& item : std::exchange(fill.m_wanted, {})) {
        made.push_back(MakeNode(node, fill.Folder(), item));
    }
    std::ranges::stable_sort(made, [](const auto& a, const auto& b) { return *a < *b; });
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(made.size()));
    for (auto& one : made) {
        items.append(one.release());  // now owned by the tree
    }
    if (node != nullptr) {
        node->addChildren(items);
        return;
    }
    addTopLevelItems(items);
    if (ShellTreeNode* root = RootNode(); root != nullptr && currentItem() == nullptr) {
        root->setExpanded(true);
        setCurrentItem(root);
    }
}

void ShellTree::EndFill(ShellTreeNode* node, bool failed)
{
    const std::unique_ptr<NodeFill> fill = std::move(node != nullptr ? node->m_fill : m_fill);
    if (node == nullptr) {
        invisibleRootItem()->sortChildren(0, Qt::AscendingOrder);
    } else {
        node->SetNote({});
        InsertWanted(node, *fill);
        // Keep the mark if the read has failed, so that the user can try again.
        node->m_bFilled = !failed || node->childCount() > 0;
        node->SetMark(!node->m_bFilled);
        if (node->childCount() == 0) {
            node->setExpanded(false);
        }
    }
    // A callback may remove the node; the remaining ones are then skipped.
    const QPersistentModelIndex place = node != nullptr ? indexFromItem(node) : QModelIndex();
    const auto stillThere = [&] { return node == nullptr || place.isValid(); };
    if (m_onFilled) {
        m_onFilled(node);
    }
    for (const auto& done : std::exchange(fill->m_done, {})) {
        if (done && stillThere()) {
            done();
        }
    }
}

std::unique_ptr<ShellTreeNode> ShellTree::MakeNode(const ShellTreeNode* parent,
                                                   const ShellFolderPtr& folder,
                                                   const FolderItem& item) const
{
    const bool below = parent != nullptr && (item.attributes & SFGAO_FILESYSANCESTOR) != 0;
    const std::string text =
        below ? CutNetworkName(item.name, parent->text(0).toStdString()) : item.name;
    const ItemIdView parentList = parent != nullptr ? parent->Item().m_pidlFull : ItemIdView();
    auto node = std::make_unique<ShellTreeNode>(
        ShellTreeItem{folder, CShellPidl::CopySingleItemId(item.id),
                      CShellPidl::ConcatIdLists(parentList, item.id)},
        text, m_look);
    node->SetMark((item.attributes & SFGAO_HASSUBFOLDER) != 0);
    return node;
}

ShellTreeNode& ShellTree::InsertNode(ShellTreeNode* parent, int place, const ShellFolderPtr& folder,
                                     const FolderItem& item)
{
    ShellTreeNode* node = MakeNode(parent, folder, item).release();  // now owned by the tree
    QTreeWidgetItem* above = parent != nullptr ? parent : invisibleRootItem();
    above->insertChild(place, node);
    return *node;
}

void ShellTree::SortByText(ShellTreeNode* parent)
{
    if (parent == nullptr) {
        invisibleRootItem()->sortChildren(0, Qt::AscendingOrder);
        return;
    }
    m_look.bSortByText = true;
    parent->sortChildren(0, Qt::AscendingOrder);
    m_look.bSortByText = false;
}

void ShellTree::RemoveNode(ShellTreeNode& node)
{
    QTreeWidgetItem* above = node.parent() != nullptr ? node.parent() : invisibleRootItem();
    const std::unique_ptr<QTreeWidgetItem> gone(above->takeChild(above->indexOfChild(&node)));
}

bool ShellTree::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        OnToolTip(static_cast<QHelpEvent&>(*event));
        return true;
    }
    return QTreeWidget::viewportEvent(event);
}

void ShellTree::OnToolTip(const QHelpEvent& event)
{
    const QModelIndex index = indexAt(event.pos());
    const QRect row = visualRect(index);
    const QRect text(row.topLeft(), QSize(sizeHintForIndex(index).width(), row.height()));
    const bool cut = index.isValid() && !viewport()->rect().contains(text);
    ShowWholeText(event, *viewport(), row, cut ? index.data().toString() : QString());
}

// Makes the column at least as wide as the viewport, so that the highlight reaches its edge.
void ShellTree::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeWidget::resizeEvent(event);
}

// Without the focus, the selection is outlined by the delegate; do not fill the space before it.
void ShellTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const
{
    QStyleOptionViewItem own = option;
    if (!hasFocus()) {
        own.palette.setBrush(QPalette::Highlight, own.palette.brush(QPalette::Base));
    }
    QTreeWidget::drawRow(painter, own, index);
}

void ShellTree::OnExpanded(ShellTreeNode& node)
{
    FillNode(node);
}

void ShellTree::OnCollapsed(ShellTreeNode& node)
{
    if (node.m_fill != nullptr) {
        StopWaiting();
    }
    if (currentItem() != &node && IsBelow(currentItem(), node)) {
        setCurrentItem(&node);
    }
}

void ShellTree::OnCurrentChanged(QTreeWidgetItem* current, QTreeWidgetItem*)
{
    m_look.pSelected = current;
    StopWaiting();
    if (current != nullptr) {
        FillNode(*NodeOf(current));
    }
}

void ShellTree::SelectNode(ShellTreeNode& node)
{
    scrollToItem(&node);
    setCurrentItem(&node);
}

void ShellTree::SetHighlight(const ShellTreeNode* node)
{
    m_look.pHighlighted = node;
    viewport()->update();
}

ShellTreeNode* ShellTree::FindVolume(std::string_view path) const
{
    ShellTreeNode* best = nullptr;
    std::size_t bestSize = 0;
    for (int i = 0; RootNode() != nullptr && i < RootNode()->childCount(); ++i) {
        ShellTreeNode* node = NodeOf(RootNode()->child(i));
        const auto volume = node->Path();
        if (volume && volume->size() > bestSize && LiesOn(path, *volume)) {
            best = node;
            bestSize = volume->size();
        }
    }
    return best;
}

ShellTreeNode* ShellTree::FindChild(const ShellTreeNode& node, std::string_view name)
{
    const QString text = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    ShellTreeNode* alike = nullptr;
    for (int i = 0; i < node.childCount(); ++i) {
        ShellTreeNode* child = NodeOf(node.child(i));
        const auto path = child->Path();
        if (!path) {
            continue;
        }
        const std::string last = SplitLast(*path).second;
        if (last == name) {
            return child;
        }
        if (alike == nullptr &&
            (child->text(0).compare(text, Qt::CaseInsensitive) == 0 ||
             QString::fromStdString(last).compare(text, Qt::CaseInsensitive) == 0)) {
            alike = child;
        }
    }
    return alike;
}

void ShellTree::GoToPath(const std::string& path, std::function<void()> done)
{
    ShellTreeNode* root = RootNode();
    if (root == nullptr) {
        if (m_fill != nullptr) {
            m_fill->m_done.push_back([this, path, done] { GoToPath(path, done); });
        } else if (done) {
            done();
        }
        return;
    }
    FillNode(*root, [this, path, done = std::move(done)] {
        ShellTreeNode* volume = FindVolume(path);
        if (volume == nullptr) {
            if (done) {
                done();
            }
            return;
        }
        SelectNode(*volume);
        const std::size_t length = std::min(volume->Path()->size(), path.size());
        GoDown(*volume, path.substr(length), SeparatorOf(path), done);
    });
}

void ShellTree::GoDown(ShellTreeNode& node, std::string rest, char separator,
                       std::function<void()> done)
{
    rest.erase(0, rest.find_first_not_of(separator));
    const std::string name = rest.substr(0, rest.find(separator));
    FillNode(node, [this, &node, rest = rest.substr(name.size()), name, separator, done] {
        ShellTreeNode* child =
            !name.empty() && currentItem() == &node ? FindChild(node, name) : nullptr;
        if (child != nullptr) {
            SelectNode(*child);
            GoDown(*child, rest, separator, done);
        } else if (done) {
            done();
        }
    });
}

}  // namespace quorbit
