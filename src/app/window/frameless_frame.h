// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Gives a main window the title bar that it paints itself, and edges to size it by. Where the
// platform cannot move and size a window on a program's request, the platform's own title bar
// stays. User interface thread only.

#pragma once

#include <QObject>
#include <QRect>
#include <QSize>
#include <QString>
#include <array>

class QMainWindow;
class QWidget;

namespace quorbit {

class CaptionBar;

class FramelessFrame : public QObject {
public:
    // Before the window is shown for the first time. frame must outlive this object, and its
    // contents margins are taken: the title bar and the edges lie in them, so menu bar and tool
    // bars are the window's own as ever.
    explicit FramelessFrame(QMainWindow& frame, bool frameless = OffersSystemMove());

    // Whether the platform that runs moves and sizes a window on request.
    [[nodiscard]] static bool OffersSystemMove();

    // Also the title of the window: program, a blank, document. A title that is set in the window
    // later is split in the same way if it begins with the same program.
    void SetTitle(const QString& program, const QString& document);

    // Hidden where the platform's own title bar stays. Belongs to the window.
    [[nodiscard]] CaptionBar& Bar() { return *m_bar; }

    // By which edges a mouse at a place of a window sizes it; none further inside than border.
    // A corner reaches further along the edges than the border is wide.
    [[nodiscard]] static Qt::Edges EdgesAt(QPoint place, QSize window, int border);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeGrips();
    void Place();
    void PlaceGrips(int border);
    void ShowTitle(QString title);
    void ShowState();
    bool OnGrip(QWidget& grip, QEvent& event);

    QMainWindow& m_frame;
    CaptionBar* m_bar;
    std::array<QWidget*, 4> m_grips{};  // left, top, right, bottom; null: not frameless
    int m_border = 0;                   // pixels
    QString m_program;
};

}  // namespace quorbit
