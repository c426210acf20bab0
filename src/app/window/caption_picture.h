// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the contents of a title bar: window icon, program name and document on a gradient. User
// interface thread only.

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

    // document: printable text, see Printable.
    void SetTitle(const QString& program, const QString& document);
    [[nodiscard]] const QString& Program() const { return m_program; }
    [[nodiscard]] const QString& Document() const { return m_document; }

    // Re-reads the fonts of the desktop.
    void ReadFonts();
    // Returns the height of the text in pixels.
    [[nodiscard]] int TextHeight() const;

    // Paints the bar, with the palette of the bar and the icon of its window. The text ends before
    // `right`, in pixels of the bar. The result is cached until the size of the bar changes or
    // Discard is called.
    void Paint(QWidget& bar, bool active, int right);
    void Discard();

private:
    void Draw(QPixmap& image, const QWidget& bar, bool active, int right) const;
    void DrawTitle(QPainter& painter, QRect room, QRgb documentColour) const;

    QString m_program;
    QString m_document;
    QFont m_fontCaption;
    QFont m_fontTitle;
    std::array<QPixmap, 2> m_bmCaption;  // inactive, active; null: not drawn yet
};

}  // namespace quorbit
