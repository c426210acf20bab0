// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds text in pages of the help, without case. Each page is read once. User interface thread
// only.

#pragma once

#include <QString>
#include <QUrl>
#include <map>

namespace quorbit {

class HelpSearch {
public:
    // Whether the file of the page holds the text; its fragment does not matter.
    [[nodiscard]] bool PageHolds(const QUrl& page, const QString& text);

private:
    std::map<QUrl, QString> m_texts;  // of pages that were searched
};

}  // namespace quorbit
