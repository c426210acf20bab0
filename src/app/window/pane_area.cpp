// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/pane_area.h"

#include <QApplication>
#include <algorithm>
#include <array>

#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {
namespace {

constexpr int kLeastStoredHeight = 50;  // of the tree; a smaller one is replaced
constexpr int kHeightInstead = 200;
constexpr int kLeastHeight = 100;

}  // namespace

PaneArea::PaneArea(const PaneServices& services, QWidget* parent)
    : QSplitter(Qt::Vertical, parent),
      m_doc(*services.pDoc),
      m_pTopSplitter(new QSplitter(Qt::Horizontal, this)),
      m_pFileView(new CFileView(services))
{
    m_doc.AddView(m_pFileView);
    m_pDriveView = new CDriveView(services);
    m_doc.AddView(m_pDriveView);
    m_pEditView = new CQRBEditView(services);
    m_doc.AddView(m_pEditView);

    m_pTopSplitter->addWidget(m_pDriveView);
    m_pTopSplitter->addWidget(m_pFileView);
    m_pTopSplitter->setStretchFactor(0, 0);
    m_pTopSplitter->setStretchFactor(1, 1);
    m_pTopSplitter->setMinimumHeight(kLeastHeight);
    addWidget(m_pTopSplitter);
    addWidget(m_pEditView);
    // The upper row keeps its stored height; the entry list takes the rest.
    setStretchFactor(0, 0);
    setStretchFactor(1, 1);
    for (QSplitter* splitter : {static_cast<QSplitter*>(this), m_pTopSplitter}) {
        splitter->setChildrenCollapsible(false);
    }
    SetHelpTopics({
        {m_pDriveView, kTopicDriveTree},
        {m_pFileView, kTopicFileList},
        {m_pEditView, kTopicEntryList},
    });
    setTabOrder(m_pDriveView, m_pFileView);
    setTabOrder(m_pFileView, m_pEditView);
    SetSizes(*services.pProfile);
    m_pEditView->OnUpdate(nullptr, HINT_REFRESH_ENTRIES, nullptr);
}

PaneArea::~PaneArea()
{
    m_doc.RemoveView(m_pEditView);
    m_doc.RemoveView(m_pDriveView);
    m_doc.RemoveView(m_pFileView);
}

void PaneArea::SetSizes(const Profile& profile)
{
    const PaneSize tree = profile.DriveViewSize();
    const PaneSize entries = profile.EditViewSize();
    const int height = tree.height < kLeastStoredHeight ? kHeightInstead : tree.height;
    setSizes({height, entries.height});
    m_pTopSplitter->setSizes({tree.width, std::max(entries.width - tree.width, 1)});
}

void PaneArea::SaveLayout() const
{
    m_pDriveView->SaveLayout();
    m_pFileView->SaveLayout();
    m_pEditView->SaveLayout();
}

void PaneArea::MoveFocus(bool forward)
{
    const std::array<QWidget*, 3> panes{m_pDriveView, m_pFileView, m_pEditView};
    const QWidget* focus = QApplication::focusWidget();
    const auto has = std::find_if(panes.begin(), panes.end(), [focus](const QWidget* pane) {
        return focus != nullptr && (pane == focus || pane->isAncestorOf(focus));
    });
    const auto count = panes.size();
    const auto now = static_cast<std::size_t>(has - panes.begin());
    const std::size_t next = has == panes.end() ? 0 : (now + (forward ? 1 : count - 1)) % count;
    panes[next]->setFocus(Qt::TabFocusReason);
}

}  // namespace quorbit
