// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/shell_tree_node.h"

#include <QApplication>
#include <QPalette>
#include <utility>

#include "panes/node_fill.h"
#include "platform/shell/shell_pidl.h"

namespace quorbit {

ShellTreeNode::ShellTreeNode(ShellTreeItem item, const std::string& text, const ShellTreeLook& look)
    : m_item(std::move(item)), m_look(look)
{
    setText(0, QString::fromStdString(text));
    setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
}

ShellTreeNode::~ShellTreeNode() = default;

std::optional<std::string> ShellTreeNode::Path() const
{
    const bool bound =
        m_item.m_pFolder != nullptr && m_item.m_pFolder->BindToObject(m_item.m_pidlItem).Ok();
    return bound ? CShellPidl::GetPathOf(*m_item.m_pFolder, m_item.m_pidlItem) : std::nullopt;
}

bool ShellTreeNode::HasMark() const
{
    return childIndicatorPolicy() == ShowIndicator;
}

void ShellTreeNode::SetMark(bool mark)
{
    setChildIndicatorPolicy(mark ? ShowIndicator : DontShowIndicatorWhenChildless);
}

void ShellTreeNode::SetNote(const QString& note)
{
    if (note != m_strNote) {
        m_strNote = note;
        emitDataChanged();
    }
}

QVariant ShellTreeNode::data(int column, int role) const
{
    const bool highlighted = m_look.pHighlighted == this;
    if (role == Qt::DecorationRole && m_look.pIcons != nullptr) {
        return m_look.pIcons->IconOf(m_item.m_pidlFull, m_look.pSelected == this);
    }
    if (role == Qt::AccessibleDescriptionRole) {
        return m_strNote;
    }
    if (role == Qt::BackgroundRole && highlighted) {
        return QApplication::palette().brush(QPalette::Highlight);
    }
    if (role == Qt::ForegroundRole && highlighted) {
        return QApplication::palette().brush(QPalette::HighlightedText);
    }
    return QTreeWidgetItem::data(column, role);
}

bool ShellTreeNode::operator<(const QTreeWidgetItem& other) const
{
    if (m_look.bSortByText) {
        return text(0).compare(other.text(0), Qt::CaseInsensitive) < 0;
    }
    return CompareItemIds(m_item, NodeOf(&other)->Item()) < 0;
}

}  // namespace quorbit
