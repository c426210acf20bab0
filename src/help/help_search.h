// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Searches the pages of the help, ignoring case. Each page is read once and cached. User interface
// thread only.

#pragma once

#include <QString>
#include <QUrl>
#include <map>

namespace quorbit {

class HelpSearch {
public:
    // Returns true if the file of the page contains the text. Ignores the fragment of the page.
    [[nodiscard]] bool PageHolds(const QUrl& page, const QString& text);

private:
    std::map<QUrl, QString> m_texts;  // plain text of the pages searched so far
};

}  // namespace quorbit
