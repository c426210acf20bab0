// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_window.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace quorbit {
HelpWindow::HelpWindow(const HelpPages& pages, HelpWindowServices services)
    : m_pages(pages),
      m_services(std::move(services)),
      m_back(MakeButton(QStringLiteral("&Back"), style()->standardIcon(QStyle::SP_ArrowBack),
                        "m_btnBack")),
      m_forward(MakeButton(QStringLiteral("For&ward"),
                           style()->standardIcon(QStyle::SP_ArrowForward), "m_btnForward")),
      m_home(MakeButton(QStringLiteral("&Contents"), {}, "m_btnHome")),
      m_tip(MakeButton(QStringLiteral("&Tip of the Day"), {}, "m_btnTip")),
      m_find(new QLineEdit(this)),
      m_splitter(new QSplitter(this)),
      m_contents(new HelpContents(pages, m_splitter)),
      m_browser(new QTextBrowser(m_splitter)),
      m_companion(*this)
{
    setWindowTitle(QStringLiteral("Quorbit Help"));
    m_find->setPlaceholderText(QStringLiteral("Find"));
    m_find->setAccessibleName(QStringLiteral("Find in the help"));
    m_find->setClearButtonEnabled(true);
    m_browser->setAccessibleName(QStringLiteral("Page"));
    m_browser->setOpenLinks(false);
    m_browser->document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(1, 1);

    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeBar());
    column->addWidget(m_splitter, 1);
    MakeKeys();
    RestoreSize();

    connect(m_browser, &QTextBrowser::anchorClicked, this, &HelpWindow::OnLink);
    connect(m_browser, &QTextBrowser::sourceChanged, m_contents, &HelpContents::Mark);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QWidget::setEnabled);
    m_contents->SetOnEntry([this](const QUrl& page) { OnEntry(page); });
    connect(m_find, &QLineEdit::textChanged, this, &HelpWindow::Filter);
    connect(m_find, &QLineEdit::returnPressed, this, &HelpWindow::FindNext);
}

// Hide the window here, so that hideEvent saves the size: the destructor of the base class would no
// longer call it.
HelpWindow::~HelpWindow()
{
    hide();
}

QPushButton* HelpWindow::MakeButton(const QString& text, const QIcon& icon, const char* name)
{
    auto* button = new QPushButton(icon, text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

QLayout* HelpWindow::MakeBar()
{
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    m_tip->setVisible(m_services.showTip != nullptr);
    connect(m_back, &QPushButton::clicked, this, &HelpWindow::GoBack);
    connect(m_forward, &QPushButton::clicked, this, &HelpWindow::GoForward);
    connect(m_home, &QPushButton::clicked, this, &HelpWindow::GoHome);
    connect(m_tip, &QPushButton::clicked, this, [this] { m_services.showTip(); });

    auto* bar = new QHBoxLayout;
    for (QPushButton* button : {m_back, m_forward, m_home, m_tip}) {
        bar->addWidget(button);
    }
    bar->addStretch();
    m_find->setMinimumWidth(m_find->fontMetrics().averageCharWidth() * 26);
    bar->addWidget(m_find);
    return bar;
}

void HelpWindow::AddKey(const QKeySequence& key, void (HelpWindow::*act)())
{
    auto* action = new QAction(this);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, act);
    addAction(action);
}

void HelpWindow::MakeKeys()
{
    AddKey(Qt::ALT | Qt::Key_Left, &HelpWindow::GoBack);
    AddKey(Qt::ALT | Qt::Key_Right, &HelpWindow::GoForward);
    AddKey(Qt::ALT | Qt::Key_Home, &HelpWindow::GoHome);
    AddKey(Qt::CTRL | Qt::Key_F, &HelpWindow::FocusFind);
    AddKey(Qt::Key_F3, &HelpWindow::FindNext);
    AddKey(Qt::SHIFT | Qt::Key_F3, &HelpWindow::FindPrevious);
    AddKey(Qt::Key_Escape, &HelpWindow::OnEscape);
    auto* larger = new QAction(this);
    larger->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    connect(larger, &QAction::triggered, m_browser, [this] { m_browser->zoomIn(); });
    auto* smaller = new QAction(this);
    smaller->setShortcut(QKeySequence::ZoomOut);
    connect(smaller, &QAction::triggered, m_browser, [this] { m_browser->zoomOut(); });
    addActions({larger, smaller});
}

void HelpWindow::RestoreSize()
{
    const int letter = fontMetrics().averageCharWidth();
    const auto stored = [this](Setting setting, int standard) {
        const int value = m_services.pProfile->GetProfileInt(setting);
        return value > 0 ? value : standard;
    };
    resize(stored(Setting::HelpSizeX, letter * 130),
           stored(Setting::HelpSizeY, fontMetrics().lineSpacing() * 36));
    const int contents = std::min(stored(Setting::HelpContentsX, letter * 40), width() / 2);
    m_splitter->setSizes({contents, width() - contents});
}

void HelpWindow::SaveSize() const
{
    if (!isMaximized() && !isFullScreen()) {
        m_services.pProfile->WriteProfileInts({{Setting::HelpSizeX, width()},
                                               {Setting::HelpSizeY, height()},
                                               {Setting::HelpContentsX, m_contents->width()}});
    }
}

void HelpWindow::hideEvent(QHideEvent* event)
{
    // A spontaneous event comes from the window system, such as when the window is minimised.
    if (!event->spontaneous()) {
        SaveSize();
    }
    QWidget::hideEvent(event);
}

void HelpWindow::ShowPage(const QUrl& page)
{
    if (!isVisible()) {
        m_companion.BeforeShow();
    }
    m_browser->setSource(page);
    if (isMinimized()) {
        showNormal();
    }
    show();
    raise();
    activateWindow();
    m_browser->setFocus(Qt::OtherFocusReason);
}

// --- navigation ---------------------------------------------------------------------------------

void HelpWindow::GoHome()
{
    m_browser->setSource(m_pages.Contents());
}

void HelpWindow::GoBack()
{
    m_browser->backward();
}

void HelpWindow::GoForward()
{
    m_browser->forward();
}

void HelpWindow::OnEscape()
{
    if (m_find->text().isEmpty()) {
        close();
    } else {
        m_find->clear();
    }
}

void HelpWindow::OnLink(const QUrl& link)
{
    const QUrl page = m_browser->source().resolved(link);
    if (HelpPages::IsPage(page)) {
        m_browser->setSource(page);
    } else {
        (void)QDesktopServices::openUrl(page);
    }
}

void HelpWindow::OnEntry(const QUrl& page)
{
    if (page != m_browser->source()) {
        m_browser->setSource(page);
    }
}

// --- search -------------------------------------------------------------------------------------

void HelpWindow::FocusFind()
{
    m_find->setFocus(Qt::ShortcutFocusReason);
    m_find->selectAll();
}

void HelpWindow::FindNext()
{
    Find({});
}

void HelpWindow::FindPrevious()
{
    Find(QTextDocument::FindBackward);
}

void HelpWindow::Find(QTextDocument::FindFlags flags)
{
    const QString text = m_find->text();
    if (text.isEmpty() || m_browser->find(text, flags)) {
        return;
    }
    const bool back = flags.testFlag(QTextDocument::FindBackward);
    if (!m_search.PageHolds(m_browser->source(), text)) {
        ShowChapterWith(text);
    }
    // Continue at the other end of the page, or of the chapter that was just opened.
    m_browser->moveCursor(back ? QTextCursor::End : QTextCursor::Start);
    (void)m_browser->find(text, flags);
}

void HelpWindow::ShowChapterWith(const QString& text)
{
    const auto page = m_contents->FirstChapter(
        [&](const QUrl& chapter) { return m_search.PageHolds(chapter, text); });
    if (page) {
        m_browser->setSource(*page);
    }
}

void HelpWindow::Filter(const QString& text)
{
    m_contents->Filter(text,
                       [&](const QUrl& chapter) { return m_search.PageHolds(chapter, text); });
}

}  // namespace quorbit
