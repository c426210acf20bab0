// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "dialogs/sel_dir_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "dialogs/file_name_text.h"
#include "dialogs/ok_cancel_row.h"
#include "dialogs/remembered_size.h"
#include "document/help_topic.h"
#include "document/help_topics.h"
#include "platform/shell/shell_constants.h"

namespace quorbit {

TreeVerdict SelDirFilter(const TreeCandidate& candidate)
{
    const auto has = [&candidate](std::uint32_t bits) {
        return (candidate.attributes & bits) != 0;
    };
    if (!has(SFGAO_FOLDER | SFGAO_HASSUBFOLDER)) {
        return TreeVerdict::Count;
    }
    if (!has(SFGAO_FILESYSANCESTOR | SFGAO_FILESYSTEM)) {
        return TreeVerdict::Skip;
    }
    const bool leadsToFiles = !candidate.topLevel && has(SFGAO_FILESYSANCESTOR);
    if (!leadsToFiles) {
        const bool hasPath = has(SFGAO_FILESYSTEM);
        if (candidate.topLevel && !hasPath && candidate.considered > 0 &&
            candidate.name != "Network Neighborhood") {
            return TreeVerdict::Skip;
        }
        if ((candidate.belowFirst && !hasPath) || candidate.name == "Control Panel") {
            return TreeVerdict::Skip;
        }
    }
    return has(SFGAO_FOLDER) ? TreeVerdict::Make : TreeVerdict::Count;
}

CSelDirDlg::CSelDirDlg(const DialogServices& services, QWidget* parent, std::string strPath)
    : QDialog(parent),
      m_strPath(std::move(strPath)),
      m_edit(new QLineEdit(this)),
      // Only folders become nodes, so read only folders.
      m_pTree(
          new ShellTree(services.desktop, *services.pIcons, SHCONTF_FOLDERS, SelDirFilter, this))
{
    setWindowTitle(QStringLiteral("Select Folder"));
    m_edit->setAccessibleName(QStringLiteral("folder"));
    m_pTree->setAccessibleName(QStringLiteral("folders"));
    m_pTree->setHeaderHidden(true);
    m_pTree->setRootIsDecorated(true);
    LayOut();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    SetHelpTopics({{m_edit, kTopicPickFolder}, {m_pTree, kTopicPickFolderTree}});
    RememberSize(*this, services.pProfile, Setting::SelectFolderSize);
    // Show the start folder now: until the tree has expanded it, OK must not return one of its
    // parents.
    ShowPath(m_strPath);
    connect(m_pTree, &QTreeWidget::currentItemChanged, this, [this] { OnNodeSelected(); });
    m_pTree->FillFromDesktop(
        [this] { m_pTree->GoToPath(WithSeparator(m_strPath), [this] { OnArrived(); }); });
}

void CSelDirDlg::LayOut()
{
    QHBoxLayout* buttons = MakeOkCancelRow(*this);
    auto* pathLabel = new QLabel(QStringLiteral("&Folder:"), this);
    auto* treeLabel = new QLabel(QStringLiteral("&Drives and folders:"), this);
    pathLabel->setBuddy(m_edit);
    treeLabel->setBuddy(m_pTree);
    auto* column = new QVBoxLayout(this);
    column->addWidget(pathLabel);
    column->addWidget(m_edit);
    column->addWidget(treeLabel);
    column->addWidget(m_pTree, 1);
    column->addLayout(buttons);
    m_pTree->setMinimumSize(fontMetrics().averageCharWidth() * 50,
                            fontMetrics().lineSpacing() * 18);
}

void CSelDirDlg::ShowPath(const std::string& path)
{
    m_strShown = path;
    m_edit->setText(ShownText(path));
}

void CSelDirDlg::OnNodeSelected()
{
    if (!m_bArrived && !m_pTree->hasFocus()) {
        return;  // still expanding; keep a text that the user may have typed
    }
    m_bArrived = true;
    const ShellTreeNode* node = m_pTree->SelectedNode();
    if (const auto path = node != nullptr ? node->Path() : std::nullopt) {
        ShowPath(*path);
    }
}

void CSelDirDlg::OnArrived()
{
    if (std::exchange(m_bArrived, true) || m_edit->text() != ShownText(m_strShown)) {
        return;
    }
    const ShellTreeNode* node = m_pTree->SelectedNode();
    ShowPath(node != nullptr ? node->Path().value_or("") : "");
}

std::optional<std::string> CSelDirDlg::DoModal()
{
    if (exec() != Accepted) {
        return std::nullopt;
    }
    m_strPath = m_edit->text() == ShownText(m_strShown) ? m_strShown : TypedName(m_edit->text());
    return m_strPath;
}

std::optional<std::string> PickFolder(const DialogServices& services, QWidget* parent,
                                      const std::string& start)
{
    return CSelDirDlg(services, parent, start).DoModal();
}

}  // namespace quorbit
