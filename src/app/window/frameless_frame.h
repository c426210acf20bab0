// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Adds a custom title bar and edges for resizing to a main window. Keeps the native title bar if
// the platform cannot move and resize a window at the request of the program. User interface thread
// only.

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
    // Construct it before the window is first shown. frame must outlive this object. The title bar
    // and the edges occupy the contents margins of the window, so menu bar and toolbars are those
    // of QMainWindow; nothing else may set the margins.
    explicit FramelessFrame(QMainWindow& frame, bool frameless = OffersSystemMove());

    // Returns true if the current platform can move and resize a window on request.
    [[nodiscard]] static bool OffersSystemMove();

    // Also sets the window title: program, a space, document. A window title that is set later is
    // split in the same way if it begins with the same program name.
    void SetTitle(const QString& program, const QString& document);

    // Hidden if the native title bar is kept. Owned by the window.
    [[nodiscard]] CaptionBar& Bar() { return *m_bar; }

    // Returns the edges that a mouse at `place` resizes; none further inside than `border` pixels.
    // Corners extend further along the edges than the border is wide.
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
