// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_window.h"

#include <QApplication>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QStyle>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace quorbit {
namespace {

constexpr int kPageRole = Qt::UserRole;

QUrl PageOf(const QTreeWidgetItem& item)
{
    return item.data(0, kPageRole).toUrl();
}

QUrl WithoutFragment(const QUrl& url)
{
    return url.adjusted(QUrl::RemoveFragment);
}

}  // namespace

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
      m_contents(new QTreeWidget(m_splitter)),
      m_browser(new QTextBrowser(m_splitter))
{
    setWindowTitle(QStringLiteral("Quorbit Help"));
    m_find->setPlaceholderText(QStringLiteral("Find"));
    m_find->setAccessibleName(QStringLiteral("Find in the help"));
    m_find->setClearButtonEnabled(true);
    m_contents->setAccessibleName(QStringLiteral("Contents"));
    m_contents->setHeaderHidden(true);
    m_browser->setAccessibleName(QStringLiteral("Page"));
    m_browser->setOpenLinks(false);
    m_browser->document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(1, 1);

    auto* column = new QVBoxLayout(this);
    column->addLayout(MakeBar());
    column->addWidget(m_splitter, 1);
    MakeKeys();
    FillContents();
    RestoreSize();

    connect(m_browser, &QTextBrowser::anchorClicked, this, &HelpWindow::OnLink);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::OnPage);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QWidget::setEnabled);
    connect(m_contents, &QTreeWidget::currentItemChanged, this, &HelpWindow::OnEntry);
    connect(m_find, &QLineEdit::textChanged, this, &HelpWindow::Filter);
    connect(m_find, &QLineEdit::returnPressed, this, &HelpWindow::FindNext);
    qApp->installEventFilter(this);
}

// The base hides the window too, but does not know of its size.
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

void HelpWindow::FillContents()
{
    QTreeWidgetItem* chapter = nullptr;
    for (const HelpEntry& entry : m_pages.Entries()) {
        const bool section = entry.depth > 1 && chapter != nullptr;
        auto* item = section ? new QTreeWidgetItem(chapter) : new QTreeWidgetItem(m_contents);
        item->setText(0, entry.title);
        item->setData(0, kPageRole, entry.page);
        if (!section) {
            chapter = item;
        }
    }
    m_contents->setRootIsDecorated(true);
}

void HelpWindow::RestoreSize()
{
    const int letter = fontMetrics().averageCharWidth();
    const auto stored = [this](Setting setting, int standard) {
        const int value =
            m_services.pProfile != nullptr ? m_services.pProfile->GetProfileInt(setting) : 0;
        return value > 0 ? value : standard;
    };
    resize(stored(Setting::HelpSizeX, letter * 130),
           stored(Setting::HelpSizeY, fontMetrics().lineSpacing() * 36));
    const int contents = std::min(stored(Setting::HelpContentsX, letter * 40), width() / 2);
    m_splitter->setSizes({contents, width() - contents});
}

void HelpWindow::SaveSize() const
{
    if (m_services.pProfile != nullptr && !isMaximized() && !isFullScreen()) {
        m_services.pProfile->WriteProfileInts({{Setting::HelpSizeX, width()},
                                               {Setting::HelpSizeY, height()},
                                               {Setting::HelpContentsX, m_contents->width()}});
    }
}

void HelpWindow::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) {
        SaveSize();
    }
    QWidget::hideEvent(event);
}

void HelpWindow::ShowPage(const QUrl& page)
{
    if (!isVisible()) {
        create();
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            JoinModal(*dialog, true);
        }
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

// --- beside modal dialogs -----------------------------------------------------------------------

// A modal dialog shuts out every window that does not belong to it. This one belongs to whichever
// dialog is open, from before that is shown until it is gone.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool opens = event->type() == QEvent::Show;
    if ((opens || event->type() == QEvent::Hide) && watched->isWidgetType()) {
        auto* window = static_cast<QWidget*>(watched);
        if (window != this && window->isWindow() && window->isModal()) {
            JoinModal(*window, opens);
        }
    }
    return false;
}

void HelpWindow::JoinModal(QWidget& dialog, bool opens)
{
    QWindow* handle = windowHandle();
    QWindow* other = dialog.windowHandle();
    // A dialog that opens over this window shuts it out rightly, and is below it already.
    if (handle == nullptr || other == nullptr ||
        handle->isAncestorOf(other, QWindow::IncludeTransients)) {
        return;
    }
    if (opens) {
        handle->setTransientParent(other);
    } else if (handle->transientParent() == other) {
        handle->setTransientParent(other->transientParent());
    }
}

// --- moving about -------------------------------------------------------------------------------

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
    } else if (m_services.openExternal) {
        m_services.openExternal(page);
    } else {
        (void)QDesktopServices::openUrl(page);
    }
}

void HelpWindow::OnEntry(const QTreeWidgetItem* item)
{
    if (item != nullptr && PageOf(*item) != m_browser->source()) {
        m_browser->setSource(PageOf(*item));
    }
}

void HelpWindow::OnPage(const QUrl& page)
{
    QTreeWidgetItem* best = nullptr;
    for (QTreeWidgetItemIterator at(m_contents); *at != nullptr; ++at) {
        if (PageOf(**at) == page) {
            best = *at;
            break;
        }
        if (best == nullptr && WithoutFragment(PageOf(**at)) == WithoutFragment(page)) {
            best = *at;
        }
    }
    const QSignalBlocker quiet(m_contents);
    m_contents->setCurrentItem(best);
    if (best != nullptr) {
        m_contents->scrollToItem(best);
    }
}

// --- finding ------------------------------------------------------------------------------------

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
    if (!PageHolds(m_browser->source(), text)) {
        ShowChapterWith(text);
    }
    m_browser->moveCursor(back ? QTextCursor::End : QTextCursor::Start);
    (void)m_browser->find(text, flags);
}

void HelpWindow::ShowChapterWith(const QString& text)
{
    for (int i = 0; i < m_contents->topLevelItemCount(); ++i) {
        const QUrl page = PageOf(*m_contents->topLevelItem(i));
        if (PageHolds(page, text)) {
            m_browser->setSource(page);
            return;
        }
    }
}

bool HelpWindow::PageHolds(const QUrl& page, const QString& text)
{
    const QUrl file = WithoutFragment(page);
    auto known = m_texts.find(file);
    if (known == m_texts.end()) {
        known = m_texts.emplace(file, HelpPages::PlainText(file)).first;
    }
    return known->second.contains(text, Qt::CaseInsensitive);
}

// Chapters that hold the text stay, with those of their sections that name it.
void HelpWindow::Filter(const QString& text)
{
    for (int i = 0; i < m_contents->topLevelItemCount(); ++i) {
        QTreeWidgetItem* chapter = m_contents->topLevelItem(i);
        bool sectionHit = false;
        for (int j = 0; j < chapter->childCount(); ++j) {
            QTreeWidgetItem* section = chapter->child(j);
            const bool hit = section->text(0).contains(text, Qt::CaseInsensitive);
            section->setHidden(!hit);
            sectionHit = sectionHit || hit;
        }
        chapter->setHidden(!text.isEmpty() && !sectionHit &&
                           !chapter->text(0).contains(text, Qt::CaseInsensitive) &&
                           !PageHolds(PageOf(*chapter), text));
        chapter->setExpanded(!text.isEmpty() && sectionHit);
    }
}

}  // namespace quorbit
