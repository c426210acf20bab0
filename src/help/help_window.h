// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The help window: the contents on the left, a page on the right. It is a separate top-level window
// and stays usable while a modal dialog is open. User interface thread only.

#pragma once

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTextBrowser>
#include <QWidget>
#include <functional>

#include "batch/profile.h"
#include "help/help_contents.h"
#include "help/help_pages.h"
#include "help/help_search.h"
#include "help/modal_companion.h"
#include "platform/required.h"

namespace quorbit {

struct HelpWindowServices {
    Required<const Profile*> pProfile;  // stores the size
    std::function<void()> showTip{};    // null: the button is hidden
};

class HelpWindow final : public QWidget {
public:
    // `pages` and the objects in `services` must outlive the window.
    HelpWindow(const HelpPages& pages, HelpWindowServices services);

    ~HelpWindow() override;
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;

    // Shows the page and brings the window to the front.
    void ShowPage(const QUrl& page);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    QPushButton* MakeButton(const QString& text, const QIcon& icon, const char* name);
    QLayout* MakeBar();
    void MakeKeys();
    void AddKey(const QKeySequence& key, void (HelpWindow::*act)());
    void RestoreSize();
    void SaveSize() const;

    void GoHome();
    void GoBack();
    void GoForward();
    void OnEscape();
    void FocusFind();
    void FindNext();
    void FindPrevious();
    void Find(QTextDocument::FindFlags flags);
    // Shows the first chapter that contains the text. Keeps the page if there is none.
    void ShowChapterWith(const QString& text);
    void Filter(const QString& text);
    void OnLink(const QUrl& link);
    void OnEntry(const QUrl& page);

    const HelpPages& m_pages;
    HelpWindowServices m_services;
    QPushButton* m_back;
    QPushButton* m_forward;
    QPushButton* m_home;
    QPushButton* m_tip;
    QLineEdit* m_find;
    QSplitter* m_splitter;
    HelpContents* m_contents;
    QTextBrowser* m_browser;
    HelpSearch m_search;
    ModalCompanion m_companion;
};

}  // namespace quorbit
