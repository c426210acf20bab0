// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The picture of a title bar: the window's icon, the program's name and the document on a fading
// background. User interface thread only.

#pragma once

#include <QFont>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <QWidget>
#include <array>

namespace quorbit {

class CaptionPicture {
public:
    CaptionPicture();

    // document in the words for the screen.
    void SetTitle(const QString& program, const QString& document);
    [[nodiscard]] const QString& Program() const { return m_program; }
    [[nodiscard]] const QString& Document() const { return m_document; }

    // Reads the fonts of the desktop again.
    void ReadFonts();
    // The height that the text needs, in pixels.
    [[nodiscard]] int TextHeight() const;

    // Fills bar, in its colours and with the icon of its window. The text ends before right, in
    // pixels of the bar. What was drawn is kept until the size of the bar changes or Discard is
    // called.
    void Paint(QWidget& bar, bool active, int right);
    void Discard();

private:
    void Draw(QPixmap& image, const QWidget& bar, bool active, int right) const;
    void DrawTitle(QPainter& painter, QRect room, QRgb documentColour) const;

    QString m_program;
    QString m_document;
    QFont m_fontCaption;
    QFont m_fontTitle;
    std::array<QPixmap, 2> m_bmCaption;  // inactive, active; null: to be made
};

}  // namespace quorbit
