// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/main_frame.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>
#include <utility>

#include "app/window/frame_geometry.h"
#include "app/window/lock_indicators.h"
#include "app/window/main_tool_bar.h"
#include "app/window/pane_area.h"
#include "app/window/program_names.h"
#include "help/help_desk.h"
#include "look/pictures.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

constexpr int kBetweenUpdates = 200;  // ms

QString OnScreen(const std::string& text)
{
    return QString::fromStdString(Printable(text));
}

// Returns the path of a dragged batch file, or an empty string unless it is exactly one local file.
QString DraggedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.constFirst().isLocalFile()) {
        return {};
    }
    const QString path = urls.constFirst().toLocalFile();
    const QString ending = QLatin1Char('.') + QLatin1String(kDocumentSuffix);
    return path.endsWith(ending, Qt::CaseInsensitive) ? path : QString();
}

}  // namespace

CMainFrame::CMainFrame(const FrameServices& services)
    : m_services(services),
      m_route(*services.pDoc, {services.pDoc, services.pFiles, this, services.pOwner}),
      m_actions(
          *this, [this](int nId) { return m_route.StateOf(nId); },
          [this](int nId) { OnCmdMsg(nId); }),
      m_caption(*this)
{
    setAcceptDrops(true);
    setCentralWidget(new QWidget(this));
    (void)MenuSpawn().LoadToolBar(ToolBarCommands(), CommandPicture);
    m_menu.emplace(*this, m_actions, *services.pRecent);
    m_wndToolBar = MakeMainToolBar(this, m_actions);
    addToolBar(m_wndToolBar);
    new LockIndicators(*statusBar());
    // The state of the toolbar depends on the selection and the focus, so update it regularly.
    connect(&m_idle, &QTimer::timeout, this, [this] { m_actions.UpdateStates(); });
    m_idle.start(kBetweenUpdates);
    OnUpdateFrameTitle();
}

// --- commands -----------------------------------------------------------------------------------

bool CMainFrame::OnCmdMsg(int nId)
{
    return m_route.OnCmdMsg(nId);
}

void CMainFrame::PostCommand(int nId)
{
    QMetaObject::invokeMethod(
        this, [this, nId] { OnCmdMsg(nId); }, Qt::QueuedConnection);
}

const CommandMap<CMainFrame>& CMainFrame::Commands()
{
    static const auto openHelp = [](CMainFrame& frame) { frame.m_services.pOwner->OpenHelp(); };
    static const CommandMap<CMainFrame> map{
        {CMD_EXIT, &CMainFrame::close},
        {CMD_LOG_FILE, [](CMainFrame& frame) { frame.m_services.pOwner->ViewLogFile(); }},
        {CMD_OPTIONS, [](CMainFrame& frame) { frame.m_services.pOwner->ShowOptions(); }},
        {CMD_HELP_TOPICS, openHelp},
        {CMD_HELP_DEFAULT, openHelp},
        {CMD_HELP, [](CMainFrame& frame) { frame.m_services.pOwner->OpenHelpOnFocus(); }},
        {CMD_CONTEXT_HELP, [](CMainFrame&) { HelpDesk::AskByClick(); }},
        {{CMD_NEXT_PANE, CMD_PREVIOUS_PANE}, &CMainFrame::MovePaneFocus},
        {CMD_SHOW_TOOLBAR, &CMainFrame::ToggleToolBar,
         [](const CMainFrame& frame) {
             return CommandState{.checked = !frame.m_wndToolBar->isHidden()};
         }},
        {CMD_SHOW_STATUS_BAR, &CMainFrame::ToggleStatusBar,
         [](const CMainFrame& frame) {
             return CommandState{.checked = !frame.statusBar()->isHidden()};
         }},
    };
    return map;
}

bool CMainFrame::OnCommand(int nId)
{
    return Commands().Run(*this, nId);
}

bool CMainFrame::OnUpdateCommand(int nId, CommandState& state)
{
    return Commands().Update(*this, nId, state);
}

void CMainFrame::MovePaneFocus(int nId)
{
    if (m_pPanes != nullptr) {
        m_pPanes->MoveFocus(nId == CMD_NEXT_PANE);
    }
}

void CMainFrame::ToggleToolBar()
{
    m_wndToolBar->setVisible(m_wndToolBar->isHidden());
}

void CMainFrame::ToggleStatusBar()
{
    statusBar()->setVisible(statusBar()->isHidden());
}

void CMainFrame::MakePanes(const PaneServices& services)
{
    m_pPanes = new PaneArea(services);
    setCentralWidget(m_pPanes);
}

// --- the window ---------------------------------------------------------------------------------

void CMainFrame::OnUpdateFrameTitle()
{
    m_caption.SetTitle(QLatin1String(kFrameTitle), OnScreen(m_services.pFiles->DisplayName()));
}

void CMainFrame::ShowFrame()
{
    const FramePlace place =
        PlaceFrame(*m_services.pProfile, m_services.screen.width(), m_services.screen.height());
    resize(place.rect.width, place.rect.height);
    move(place.rect.left, place.rect.top);
    if (m_services.bFirstRun) {
        move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
    }
    if (m_services.nRunMode != 0) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        showMinimized();
    } else if (place.maximised) {
        showMaximized();
    } else {
        show();
    }
}

void CMainFrame::SaveGeometry()
{
    const FrameShow state = isMinimized()                     ? FrameShow::Minimised
                            : isMaximized() || isFullScreen() ? FrameShow::Maximised
                                                              : FrameShow::Normal;
    StoreFrame(*m_services.pProfile, state, {pos().x(), pos().y(), width(), height()},
               m_services.nRunMode);
}

void CMainFrame::closeEvent(QCloseEvent* event)
{
    if (!m_services.pOwner->CanCloseFrame()) {
        event->ignore();
        return;
    }
    SaveGeometry();
    if (m_pPanes != nullptr) {
        m_pPanes->SaveLayout();
    }
    event->accept();
    m_services.pOwner->OnFrameClosed();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DraggedFile(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

// Queue the opening: it may ask a question, and the source of the drag is blocked until the drop
// returns.
void CMainFrame::dropEvent(QDropEvent* event)
{
    const std::string path = QFile::encodeName(DraggedFile(*event->mimeData())).toStdString();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QMetaObject::invokeMethod(
        this, [this, path] { (void)m_services.pFiles->OpenDocumentFile(path); },
        Qt::QueuedConnection);
}

}  // namespace quorbit
