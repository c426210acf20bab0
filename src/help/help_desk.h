// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The help system: pages, help window and help keys. User interface thread only.

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
    // helpFile: see HelpPages. The objects in `services` must outlive this object.
    HelpDesk(const std::string& helpFile, HelpWindowServices services);

    void OpenContents();
    // Opens the chapter about a widget, or the contents if the widget is null or has no topic.
    void OpenChapterOf(const QWidget* widget);
    // Enters Qt's "What's This?" mode: the next click shows the topic of the clicked control.
    static void AskByClick();

    // Null until the window is first opened. Owned by this object.
    [[nodiscard]] HelpWindow* Window() { return m_window.get(); }

private:
    void Show(const QUrl& page);

    HelpPages m_pages;
    HelpWindowServices m_services;
    std::unique_ptr<HelpWindow> m_window;
    HelpKeys m_keys;
};

}  // namespace quorbit
