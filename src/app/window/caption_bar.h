// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A custom title bar: icon, program name, document and window buttons on a gradient. It moves,
// minimises, maximises and closes the window that contains it. User interface thread only.

#pragma once

#include <QMenu>
#include <QToolButton>
#include <QWidget>
#include <optional>

#include "app/window/caption_picture.h"

namespace quorbit {

class CaptionBar : public QWidget {
public:
    explicit CaptionBar(QWidget* parent = nullptr);

    // document: printable text, see Printable.
    void SetTitle(const QString& program, const QString& document);
    [[nodiscard]] const QString& Program() const { return m_picture.Program(); }
    [[nodiscard]] const QString& Document() const { return m_picture.Document(); }

    void SetActive(bool active);
    [[nodiscard]] bool IsActive() const { return m_bActive; }

    // Re-reads the icon and the state of the window. Call it when either changes.
    void Refresh();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void MakeButtons();
    void MakeMenu();
    void ToggleMaximised();
    void Redraw();

    CaptionPicture m_picture;
    bool m_bActive = false;
    QToolButton m_minimise{this};
    QToolButton m_maximise{this};  // restores while maximised
    QToolButton m_close{this};
    QMenu m_menu{this};
    QAction* m_menuRestore = nullptr;
    QAction* m_menuMaximise = nullptr;
    std::optional<QPoint> m_pressedAt;  // where a drag started, in coordinates of the bar
};

}  // namespace quorbit
