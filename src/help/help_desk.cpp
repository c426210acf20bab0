// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_desk.h"

#include <QWhatsThis>
#include <utility>

namespace quorbit {

HelpDesk::HelpDesk(const std::string& helpFile, HelpWindowServices services)
    : m_pages(helpFile),
      m_services(std::move(services)),
      m_keys(m_pages, [this](const QUrl& page) { Show(page); })
{
}

void HelpDesk::OpenContents()
{
    Show(m_pages.Contents());
}

void HelpDesk::OpenChapterOf(const QWidget* widget)
{
    const auto topic = m_pages.Topic(HelpTopicAt(widget));
    Show(topic ? topic->chapter : m_pages.Contents());
}

void HelpDesk::AskByClick()
{
    QWhatsThis::enterWhatsThisMode();
}

void HelpDesk::Show(const QUrl& page)
{
    if (!m_window) {
        m_window = std::make_unique<HelpWindow>(m_pages, m_services);
    }
    m_window->ShowPage(page);
}

}  // namespace quorbit
