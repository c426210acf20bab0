// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A hyperlink control. It opens its target on a click, or on Enter or Space if it has the focus.
// User interface thread only.

#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QString>

#include "batch/prompts.h"
#include "look/link_opener.h"
#include "platform/required.h"

namespace quorbit {

// Services used by a link. Not owned; must outlive the link.
struct LinkServices {
    Required<LinkOpener*> pOpener;
    Required<Prompts*> pPrompts;
};

// Returns a rectangle of the size of `text`, aligned within `place`; left and top by default.
[[nodiscard]] QRect CutToText(const QRect& place, const QSize& text, Qt::Alignment alignment);

// Uses its own Text() instead of QAbstractButton::text(), which would take an "&" in an address as
// a mnemonic.
class CHyperLink : public QAbstractButton {
public:
    explicit CHyperLink(LinkServices services, QWidget* parent = nullptr);

    // If one of the two is empty, the other is used for both.
    void SetText(const QString& text);
    void SetTarget(const QString& target);
    [[nodiscard]] const QString& Text() const;
    [[nodiscard]] const QString& Target() const;

    void SetAlignment(Qt::Alignment alignment);
    void SetVisited(bool bVisited);
    [[nodiscard]] bool IsVisited() const { return m_bVisited; }
    // If false, the whole control is the link, not only its text. The default is true.
    void SetFitText(bool bFitText);
    void SetUnderline(bool bUnderline);

    // Returns the colour of the text in its current state (hovered, visited or normal), adjusted to
    // be readable on the background.
    [[nodiscard]] QColor TextColour() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

private:
    void OnTextChanged();
    // Shrinks the control to its text, unless its parent has a layout.
    void FitToText();
    // Returns the clickable part of the control.
    [[nodiscard]] QRect LinkRect() const;
    void SetHover(bool bHover);
    void OnClicked();

    LinkServices m_services;
    QString m_strText;
    QString m_strTarget;
    QColor m_crNormal{0, 0, 238};
    QColor m_crVisited{85, 26, 139};
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignTop;
    bool m_bHover = false;
    bool m_bVisited = false;
    bool m_bFitText = true;
};

}  // namespace quorbit
