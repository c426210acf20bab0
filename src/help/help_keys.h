// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Help on what the keyboard or the mouse is on. F1 shows a pop-up with the topic of the control
// that has the focus; Shift+F1, and the "?" of a dialog's title bar, let the next click show that
// of what is clicked. Watches the whole application. User interface thread only.

#pragma once

#include <QAction>
#include <QKeyEvent>
#include <QObject>
#include <QUrl>
#include <QWhatsThis>
#include <QWidget>
#include <functional>

#include "help/help_pages.h"

namespace quorbit {

// The topic of a widget: its own, that of its command or of what it is the label of, else that of
// what it lies in, up to its window. 0: none.
[[nodiscard]] int HelpTopicAt(const QWidget* widget);

class HelpKeys final : public QObject {
public:
    // The text of a topic in a pop-up, near that place of the screen or that widget.
    using ShowText = std::function<void(const QPoint&, const QString&, QWidget*)>;

    // showPage: the help at a page. pages must outlive this object.
    HelpKeys(const HelpPages& pages, std::function<void(const QUrl&)> showPage,
             ShowText showText = QWhatsThis::showText);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool OnKey(QWidget& widget, const QKeyEvent& event);
    [[nodiscard]] bool OnQuestion(QWidget& widget, QHelpEvent& event);
    void OnEnterQuestions(const QObject& window) const;
    [[nodiscard]] bool OnLink(const QString& link);
    // False if the topic has no page.
    bool ShowTopic(int topic, const QPoint& global, QWidget& widget);

    const HelpPages& m_pages;
    std::function<void(const QUrl&)> m_showPage;
    ShowText m_showText;
};

}  // namespace quorbit
