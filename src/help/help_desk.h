// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The help as the application sees it: pages, the window that shows them, the keys that ask for
// them. User interface thread only.

#pragma once

#include <QUrl>
#include <QWidget>
#include <memory>
#include <string>

#include "help/help_keys.h"
#include "help/help_pages.h"
#include "help/help_window.h"

namespace quorbit {

class HelpDesk {
public:
    // helpFile: see HelpPages. What services names must outlive this object.
    HelpDesk(const std::string& helpFile, HelpWindowServices services);

    void OpenContents();
    // The chapter that tells of a widget; the contents if it has no topic or is null.
    void OpenChapterOf(const QWidget* widget);
    // The next click shows the topic of what is clicked.
    static void AskByClick();

    // Null before it was opened.
    [[nodiscard]] HelpWindow* Window() { return m_window.get(); }

private:
    void Show(const QUrl& page);

    HelpPages m_pages;
    HelpWindowServices m_services;
    std::unique_ptr<HelpWindow> m_window;
    HelpKeys m_keys;
};

}  // namespace quorbit
