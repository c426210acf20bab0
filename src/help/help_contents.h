// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The contents of the help as a tree: chapters and their sections. User interface thread only.

#pragma once

#include <QTreeWidget>
#include <QUrl>
#include <functional>
#include <optional>

#include "help/help_pages.h"

namespace quorbit {

class HelpContents final : public QTreeWidget {
public:
    // Whether a page matches what is searched for.
    using PageTest = std::function<bool(const QUrl&)>;

    HelpContents(const HelpPages& pages, QWidget* parent);

    // Calls open with the page of an entry that the user makes the current one. Mark does not.
    void SetOnEntry(std::function<void(const QUrl&)> open);
    // Makes the entry of the page the current one, or that of its chapter if the section has none.
    void Mark(const QUrl& page);
    // Shows the chapters that holds or their titles accept, with the sections whose titles hold the
    // text. An empty text shows everything.
    void Filter(const QString& text, const PageTest& holds);
    // The page of the first chapter that holds accepts.
    [[nodiscard]] std::optional<QUrl> FirstChapter(const PageTest& holds) const;

private:
    void Fill(const HelpPages& pages);
};

}  // namespace quorbit
