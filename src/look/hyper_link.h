// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A line of text that opens a web address: by a click, or by Enter or Space while it has the focus.
// User interface thread only.

#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QString>

#include "batch/prompts.h"
#include "look/link_opener.h"
#include "platform/required.h"

namespace quorbit {

// What a link works with. Nothing is owned, and both must outlive the link.
struct LinkServices {
    Required<LinkOpener*> pOpener;
    Required<Prompts*> pPrompts;
};

// Where a control of that place and alignment lies once it is cut to its text.
[[nodiscard]] QRect CutToText(const QRect& place, const QSize& text, Qt::Alignment alignment);

// Not QAbstractButton::text(): an address may hold "&", which is no mark of a key here.
class CHyperLink : public QAbstractButton {
public:
    explicit CHyperLink(LinkServices services, QWidget* parent = nullptr);

    // Either stands for the other as long as that is empty.
    void SetText(const QString& text);
    void SetTarget(const QString& target);
    [[nodiscard]] const QString& Text() const;
    [[nodiscard]] const QString& Target() const;

    void SetAlignment(Qt::Alignment alignment);
    void SetVisited(bool bVisited);
    [[nodiscard]] bool IsVisited() const { return m_bVisited; }
    // Without it the whole control is the link, not its text alone.
    void SetFitText(bool bFitText);
    void SetUnderline(bool bUnderline);

    // Of the text as things stand.
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
    // Cuts a control that no layout holds to its text.
    void FitToText();
    // The part of the control that is the link.
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
