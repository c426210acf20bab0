// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Context help. F1 shows a pop-up with the topic of the focused control. After Shift+F1, or a click
// on the "?" of a dialog's title bar, the next click shows the topic of the clicked control.
// Watches the events of the whole application. User interface thread only.

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

// Returns the topic number of a widget: its own, or that of its command or of its buddy if it is a
// label, or that of the nearest parent up to its window. 0 if there is none.
[[nodiscard]] int HelpTopicAt(const QWidget* widget);

class HelpKeys final : public QObject {
public:
    // Shows the text of a topic (HTML) in a pop-up at a global position, for the given widget.
    using ShowText = std::function<void(const QPoint&, const QString&, QWidget*)>;

    // showPage opens the help window at a page. pages must outlive this object.
    HelpKeys(const HelpPages& pages, std::function<void(const QUrl&)> showPage,
             ShowText showText = QWhatsThis::showText);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool OnKey(QWidget& widget, const QKeyEvent& event);
    [[nodiscard]] bool OnQuestion(QWidget& widget, QHelpEvent& event);
    void OnEnterQuestions(const QObject& window) const;
    [[nodiscard]] bool OnLink(const QString& link);
    // Returns false if there is no such topic.
    bool ShowTopic(int topic, const QPoint& global, QWidget& widget);

    const HelpPages& m_pages;
    std::function<void(const QUrl&)> m_showPage;
    ShowText m_showText;
};

}  // namespace quorbit
