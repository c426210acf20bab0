// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "panes/whole_text_tip.h"

#include <QTextBoundaryFinder>
#include <QToolTip>
#include <algorithm>

namespace quorbit {

QString TipText(const QString& text)
{
    constexpr qsizetype kLine = 100;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    QString lines;
    for (qsizetype begin = 0; begin < text.size();) {
        characters.setPosition(std::min(begin + kLine, text.size()));
        if (!characters.isAtBoundary()) {
            characters.toNextBoundary();
        }
        const qsizetype end = characters.position();
        lines += QLatin1String(begin == 0 ? "" : "<br>");
        lines += text.mid(begin, end - begin).toHtmlEscaped();
        begin = end;
    }
    return QLatin1String("<p style='white-space:pre'>") + lines + QLatin1String("</p>");
}

void ShowWholeText(const QHelpEvent& event, QWidget& viewport, const QRect& cell,
                   const QString& text)
{
    QToolTip::showText(event.globalPos(), text.isEmpty() ? text : TipText(text), &viewport, cell);
}

}  // namespace quorbit
