// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_search.h"

#include "help/help_pages.h"

namespace quorbit {

bool HelpSearch::PageHolds(const QUrl& page, const QString& text)
{
    const QUrl file = page.adjusted(QUrl::RemoveFragment);
    auto known = m_texts.find(file);
    if (known == m_texts.end()) {
        known = m_texts.emplace(file, HelpPages::PlainText(file)).first;
    }
    return known->second.contains(text, Qt::CaseInsensitive);
}

}  // namespace quorbit
