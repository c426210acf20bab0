// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The window in which the help is read: contents at the left, a page at the right. It stands beside
// the program's windows and stays usable while a modal dialog is open. User interface thread only.

#pragma once

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWidget>
#include <functional>
#include <map>

#include "batch/profile.h"
#include "help/help_pages.h"

namespace quorbit {

struct HelpWindowServices {
    const Profile* pProfile = nullptr;                // keeps the size; null: nothing does
    std::function<void()> showTip{};                  // null: there is no button for it
    std::function<void(const QUrl&)> openExternal{};  // what is no page; null: the desktop
};

class HelpWindow final : public QWidget {
public:
    // pages and what services names must outlive the window.
    HelpWindow(const HelpPages& pages, HelpWindowServices services);

    ~HelpWindow() override;
    HelpWindow(const HelpWindow&) = delete;
    HelpWindow& operator=(const HelpWindow&) = delete;

    // Brings the window to the front, with that page.
    void ShowPage(const QUrl& page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QPushButton* MakeButton(const QString& text, const QIcon& icon, const char* name);
    QLayout* MakeBar();
    void MakeKeys();
    void AddKey(const QKeySequence& key, void (HelpWindow::*act)());
    void FillContents();
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
    // The first one of the contents; none leaves the page as it is.
    void ShowChapterWith(const QString& text);
    void Filter(const QString& text);
    void OnLink(const QUrl& link);
    void OnEntry(const QTreeWidgetItem* item);
    // Marks the line of the contents that stands for the page.
    void OnPage(const QUrl& page);
    [[nodiscard]] bool PageHolds(const QUrl& page, const QString& text);
    void JoinModal(QWidget& dialog, bool opens);

    const HelpPages& m_pages;
    HelpWindowServices m_services;
    QPushButton* m_back;
    QPushButton* m_forward;
    QPushButton* m_home;
    QPushButton* m_tip;
    QLineEdit* m_find;
    QSplitter* m_splitter;
    QTreeWidget* m_contents;
    QTextBrowser* m_browser;
    std::map<QUrl, QString> m_texts;  // of pages that were searched
};

}  // namespace quorbit
