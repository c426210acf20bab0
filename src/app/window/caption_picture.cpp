// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/caption_picture.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QIcon>
#include <cmath>

#include "app/window/caption_paint.h"

namespace quorbit {
namespace {

constexpr int kIconInset = 1;
constexpr int kTextGap = 2;
constexpr int kTitlePoints = 12;

// The coordinates of the painter are physical pixels.
void FillBackground(QPainter& painter, QSize pixels, bool active, QRgb fill)
{
    if (!active) {
        painter.fillRect(QRect(QPoint(), pixels), QColor(fill));
        return;
    }
    for (const CaptionStrip& strip : CaptionGradient(pixels.width(), fill)) {
        painter.fillRect(strip.left, 0, strip.width, pixels.height(), QColor(strip.colour));
    }
}

// Returns the x coordinate at which the icon ends.
int DrawIcon(QPainter& painter, const QWidget& bar)
{
    const QIcon icon = bar.window()->windowIcon();
    if (icon.isNull()) {
        return kIconInset;
    }
    const int side = bar.height() - 2 * kIconInset;
    icon.paint(&painter, kIconInset, kIconInset, side, side);
    return kIconInset + side;
}

// Returns the width of the whole text, even if it was elided.
int DrawLine(QPainter& painter, const QRect& room, const QString& text, QRgb colour)
{
    const QFontMetrics metrics = painter.fontMetrics();
    painter.setPen(QColor(colour));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideRight, room.width()));
    return metrics.horizontalAdvance(text);
}

}  // namespace

CaptionPicture::CaptionPicture()
{
    ReadFonts();
}

void CaptionPicture::SetTitle(const QString& program, const QString& document)
{
    m_program = program;
    m_document = document;
    Discard();
}

void CaptionPicture::ReadFonts()
{
    m_fontCaption = QApplication::font("QTitleBar");
    m_fontTitle = QFont();
    m_fontTitle.setFamilies({QStringLiteral("Book Antiqua"), QStringLiteral("serif")});
    m_fontTitle.setStyleHint(QFont::Serif);
    m_fontTitle.setWeight(QFont::Bold);
    m_fontTitle.setPointSize(kTitlePoints);
    // Match the height of the caption font; fonts of equal point size may differ in height.
    const qreal ratio = QFontMetricsF(m_fontCaption).height() / QFontMetricsF(m_fontTitle).height();
    m_fontTitle.setPointSizeF(kTitlePoints * ratio);
}

int CaptionPicture::TextHeight() const
{
    return QFontMetrics(m_fontCaption).height() + 2 * kTextGap;
}

void CaptionPicture::Paint(QWidget& bar, bool active, int right)
{
    const qreal scale = bar.devicePixelRatioF();
    const QSize pixels(static_cast<int>(std::ceil(bar.width() * scale)),
                       static_cast<int>(std::ceil(bar.height() * scale)));
    QPixmap& image = m_bmCaption[active ? 1 : 0];
    if (image.size() != pixels || image.devicePixelRatio() != scale) {
        image = QPixmap(pixels);
        image.setDevicePixelRatio(scale);
        Draw(image, bar, active, right);
    }
    QPainter(&bar).drawPixmap(0, 0, image);
}

void CaptionPicture::Discard()
{
    m_bmCaption = {};
}

void CaptionPicture::Draw(QPixmap& image, const QWidget& bar, bool active, int right) const
{
    const CaptionColours colours = ColoursOf(bar.palette(), active);
    {
        QPixmap background(image.size());
        QPainter painter(&background);
        FillBackground(painter, image.size(), active, colours.fill);
        painter.end();
        background.setDevicePixelRatio(image.devicePixelRatio());
        image = background;
    }
    QPainter painter(&image);
    const int left = DrawIcon(painter, bar) + kTextGap;
    DrawTitle(painter, QRect(left, 0, right - kTextGap - left, bar.height()), colours.text);
}

void CaptionPicture::DrawTitle(QPainter& painter, QRect room, QRgb documentColour) const
{
    if (room.width() <= 0) {
        return;
    }
    painter.setFont(m_fontTitle);
    const int taken = DrawLine(painter, room, m_program + QLatin1Char(' '), qRgb(255, 255, 255));
    room.setLeft(room.left() + taken);
    if (room.width() > 0) {
        painter.setFont(m_fontCaption);
        (void)DrawLine(painter, room, m_document, documentColour);
    }
}

}  // namespace quorbit
