// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/main_frame.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFile>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>
#include <utility>

#include "app/window/frame_geometry.h"
#include "app/window/identity.h"
#include "app/window/lock_indicators.h"
#include "app/window/main_tool_bar.h"
#include "app/window/pane_area.h"
#include "app/window/qrb_app.h"
#include "look/pictures.h"
#include "platform/path_text.h"

namespace quorbit {
namespace {

constexpr int kGap = 0;
constexpr int kBetweenUpdates = 200;  // ms

struct Menu {
    const char* title;
    std::vector<int> items;  // command numbers and gaps
};

const std::vector<Menu>& MainMenu()
{
    static const std::vector<Menu> menus{
        {"&File",
         {CMD_FILE_NEW, CMD_FILE_OPEN, CMD_FILE_SAVE, CMD_FILE_SAVE_AS, kGap, CMD_START_BATCH, kGap,
          CMD_EXIT, kGap, CMD_RECENT_FILE_FIRST}},
        {"&Edit", {CMD_EDIT_ENTRY, CMD_DELETE}},
        {"&View",
         {CMD_VIEW_LARGE_ICONS, CMD_VIEW_SMALL_ICONS, CMD_VIEW_LIST, CMD_VIEW_REPORT,
          CMD_VIEW_ROW_DETAIL, kGap, CMD_SHOW_TOOLBAR, CMD_SHOW_STATUS_BAR, kGap, CMD_LOG_FILE,
          CMD_OPTIONS, CMD_REFRESH}},
        {"&Help", {CMD_HELP_TOPICS, CMD_ABOUT}},
    };
    return menus;
}

QString OnScreen(const std::string& text)
{
    return QString::fromStdString(Printable(text));
}

// The batch file that a drag brings; empty if it is not exactly one.
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

CMainFrame::CMainFrame(CQRBApp& app)
    : m_app(app),
      m_route(app.Document(), {&app.Document(), &app.Files(), this, &app}),
      m_actions(
          *this, [this](int nId) { return m_route.StateOf(nId); },
          [this](int nId) { OnCmdMsg(nId); }),
      m_caption(*this)
{
    const QSize screen = QGuiApplication::primaryScreen()->availableVirtualGeometry().size();
    m_app.m_nScreenCX = screen.width();
    m_app.m_nScreenCY = screen.height();
    setAcceptDrops(true);
    setCentralWidget(new QWidget(this));
    (void)MenuSpawn().LoadToolBar(ToolBarCommands(), CommandPicture);
    MakeMenus();
    m_wndToolBar = MakeMainToolBar(this, m_actions);
    addToolBar(m_wndToolBar);
    new LockIndicators(*statusBar());
    // What is on the toolbar follows the selection and the focus.
    connect(&m_idle, &QTimer::timeout, this, [this] { m_actions.UpdateStates(); });
    m_idle.start(kBetweenUpdates);
    OnUpdateFrameTitle();
}

// --- menus --------------------------------------------------------------------------------------

void CMainFrame::MakeMenus()
{
    for (const Menu& entry : MainMenu()) {
        QMenu* menu = menuBar()->addMenu(QLatin1String(entry.title));
        for (const int nId : entry.items) {
            if (nId == kGap) {
                menu->addSeparator();
            } else if (nId == CMD_RECENT_FILE_FIRST) {
                AddRecentFiles(*menu);
            } else {
                menu->addAction(m_actions.Get(nId));
            }
        }
        connect(menu, &QMenu::aboutToShow, this, [this] {
            m_actions.UpdateStates();
            UpdateRecentFiles();
        });
    }
}

void CMainFrame::AddRecentFiles(QMenu& menu)
{
    for (int nId = CMD_RECENT_FILE_FIRST; nId <= CMD_RECENT_FILE_LAST; ++nId) {
        m_recentActions.push_back(m_actions.Get(nId));
        menu.addAction(m_recentActions.back());
    }
    UpdateRecentFiles();
}

void CMainFrame::UpdateRecentFiles()
{
    const int room = fontMetrics().averageCharWidth() * 60;
    const std::vector<std::string> paths = m_app.Recent().List();
    for (std::size_t i = 0; i < m_recentActions.size(); ++i) {
        QAction& action = *m_recentActions[i];
        action.setVisible(i < paths.size());
        if (i < paths.size()) {
            const QString path = OnScreen(paths[i]);
            const QString shown = fontMetrics().elidedText(path, Qt::ElideMiddle, room);
            action.setText(QStringLiteral("&%1 %2").arg(i + 1).arg(WithoutMarks(shown)));
            action.setStatusTip(path);
        }
    }
    if (paths.empty()) {
        m_recentActions.front()->setText(QStringLiteral("Recent File"));
        m_recentActions.front()->setVisible(true);
    }
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

bool CMainFrame::OnCommand(int nId)
{
    switch (nId) {
        case CMD_EXIT:
            close();
            return true;
        case CMD_LOG_FILE:
            m_app.ViewLogFile();
            return true;
        case CMD_HELP_TOPICS:
        case CMD_HELP_DEFAULT:
            m_app.OpenHelp();
            return true;
        case CMD_HELP:
            m_app.OpenHelpOnFocus();
            return true;
        case CMD_CONTEXT_HELP:
            HelpDesk::AskByClick();
            return true;
        case CMD_OPTIONS:
            m_app.ShowOptions();
            return true;
        case CMD_NEXT_PANE:
        case CMD_PREVIOUS_PANE:
            if (m_pPanes != nullptr) {
                m_pPanes->MoveFocus(nId == CMD_NEXT_PANE);
            }
            return true;
        case CMD_SHOW_TOOLBAR:
            m_wndToolBar->setVisible(m_wndToolBar->isHidden());
            return true;
        case CMD_SHOW_STATUS_BAR:
            statusBar()->setVisible(statusBar()->isHidden());
            return true;
        default:
            return false;
    }
}

bool CMainFrame::OnUpdateCommand(int nId, CommandState& state)
{
    switch (nId) {
        case CMD_EXIT:
        case CMD_LOG_FILE:
        case CMD_OPTIONS:
        case CMD_NEXT_PANE:
        case CMD_PREVIOUS_PANE:
        case CMD_HELP_TOPICS:
        case CMD_HELP_DEFAULT:
        case CMD_HELP:
        case CMD_CONTEXT_HELP:
            state.enabled = true;
            return true;
        case CMD_SHOW_TOOLBAR:
            state.enabled = true;
            state.checked = !m_wndToolBar->isHidden();
            return true;
        case CMD_SHOW_STATUS_BAR:
            state.enabled = true;
            state.checked = !statusBar()->isHidden();
            return true;
        default:
            return false;
    }
}

void CMainFrame::MakePanes(const PaneServices& services)
{
    m_pPanes = new PaneArea(services);
    setCentralWidget(m_pPanes);
}

// --- the window ---------------------------------------------------------------------------------

void CMainFrame::OnUpdateFrameTitle()
{
    m_caption.SetTitle(QLatin1String(kFrameTitle), OnScreen(m_app.Files().DisplayName()));
}

void CMainFrame::ShowFrame()
{
    const FramePlace place = PlaceFrame(m_app.GetProfile(), m_app.m_nScreenCX, m_app.m_nScreenCY);
    resize(place.rect.width, place.rect.height);
    move(place.rect.left, place.rect.top);
    if (m_app.m_bFirstRun) {
        move(QGuiApplication::primaryScreen()->availableGeometry().center() - rect().center());
    }
    if (m_app.m_nRunMode != 0) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        showMinimized();
    } else if (place.maximised && !m_app.m_bFirstRun) {
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
    StoreFrame(m_app.GetProfile(), state, {pos().x(), pos().y(), width(), height()},
               m_app.m_nRunMode);
}

void CMainFrame::closeEvent(QCloseEvent* event)
{
    if (!m_app.CanCloseFrame()) {
        event->ignore();
        return;
    }
    SaveGeometry();
    if (m_pPanes != nullptr) {
        m_pPanes->SaveLayout();
    }
    event->accept();
    m_app.OnFrameClosed();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DraggedFile(*event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

// Later: whoever drags waits for the drop to end, and opening may ask a question.
void CMainFrame::dropEvent(QDropEvent* event)
{
    const std::string path = QFile::encodeName(DraggedFile(*event->mimeData())).toStdString();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QMetaObject::invokeMethod(
        this, [this, path] { (void)m_app.Files().OpenDocumentFile(path); }, Qt::QueuedConnection);
}

}  // namespace quorbit
