// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_keys.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QToolButton>
#include <QWhatsThis>
#include <QWhatsThisClickedEvent>
#include <utility>

#include "document/help_topic.h"
#include "help/help_window.h"

namespace quorbit {
namespace {

int OwnTopic(const QWidget& widget)
{
    if (const int topic = HelpTopicOf(widget)) {
        return topic;
    }
    if (const auto* button = qobject_cast<const QToolButton*>(&widget)) {
        return button->defaultAction() != nullptr ? HelpTopicOf(*button->defaultAction()) : 0;
    }
    if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
        return menu->activeAction() != nullptr ? HelpTopicOf(*menu->activeAction()) : 0;
    }
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->buddy() != nullptr ? HelpTopicOf(*label->buddy()) : 0;
    }
    return 0;
}

bool IsInHelp(const QWidget& widget)
{
    return dynamic_cast<const HelpWindow*>(widget.window()) != nullptr;
}

}  // namespace

int HelpTopicAt(const QWidget* widget)
{
    while (widget != nullptr) {
        if (const int topic = OwnTopic(*widget)) {
            return topic;
        }
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    }
    return 0;
}

HelpKeys::HelpKeys(const HelpPages& pages, std::function<void(const QUrl&)> showPage,
                   ShowText showText)
    : m_pages(pages), m_showPage(std::move(showPage)), m_showText(std::move(showText))
{
    qApp->installEventFilter(this);
}

// Called for every event of the application, so reject the other types first.
bool HelpKeys::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::WhatsThis:
        case QEvent::QueryWhatsThis:
        case QEvent::EnterWhatsThisMode:
        case QEvent::WhatsThisClicked:
            break;
        default:
            return false;
    }
    auto* widget = watched->isWidgetType() ? static_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr) {
        return false;
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            return OnKey(*widget, static_cast<QKeyEvent&>(*event));
        case QEvent::EnterWhatsThisMode:
            OnEnterQuestions(*widget);
            return false;
        case QEvent::WhatsThisClicked:
            return OnLink(static_cast<QWhatsThisClickedEvent*>(event)->href());
        default:
            return OnQuestion(*widget, static_cast<QHelpEvent&>(*event));
    }
}

// In the main window F1 and Shift+F1 are shortcuts of commands, so they do not arrive here as key
// presses.
bool HelpKeys::OnKey(QWidget& widget, const QKeyEvent& event)
{
    if (event.key() != Qt::Key_F1 || IsInHelp(widget)) {
        return false;
    }
    if (event.modifiers() == Qt::ShiftModifier) {
        QWhatsThis::enterWhatsThisMode();
        return true;
    }
    if (event.modifiers() != Qt::NoModifier) {
        return false;
    }
    const QPoint below = widget.mapToGlobal(QPoint(widget.width() / 2, widget.height()));
    if (ShowTopic(HelpTopicAt(&widget), below, widget)) {
        return true;
    }
    // Message boxes have no topics; errors are explained in the troubleshooting chapter.
    const bool message = qobject_cast<const QMessageBox*>(widget.window()) != nullptr;
    m_showPage(message ? m_pages.Page(QStringLiteral("troubleshooting.html")) : m_pages.Contents());
    return true;
}

bool HelpKeys::OnQuestion(QWidget& widget, QHelpEvent& event)
{
    const int topic = HelpTopicAt(&widget);
    if (topic == 0) {
        return false;
    }
    event.accept();
    if (event.type() == QEvent::WhatsThis) {
        (void)ShowTopic(topic, event.globalPos(), widget);
    }
    return true;
}

// QMenu shows the whatsThis text of its actions. It is set only now, because most runs of the
// program never need it.
void HelpKeys::OnEnterQuestions(const QObject& window) const
{
    for (QAction* action : window.findChildren<QAction*>()) {
        const auto topic = m_pages.Topic(HelpTopicOf(*action));
        if (topic && action->whatsThis().isEmpty()) {
            action->setWhatsThis(topic->text);
        }
    }
}

bool HelpKeys::OnLink(const QString& link)
{
    QWhatsThis::hideText();
    m_showPage(m_pages.Page(link));
    return true;
}

bool HelpKeys::ShowTopic(int topic, const QPoint& global, QWidget& widget)
{
    const auto page = m_pages.Topic(topic);
    if (page) {
        m_showText(global, page->text, &widget);
    }
    return page.has_value();
}

}  // namespace quorbit
