// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The table of contents of the help: a tree of chapters and sections. User interface thread only.

#pragma once

#include <QTreeWidget>
#include <QUrl>
#include <functional>
#include <optional>

#include "help/help_pages.h"

namespace quorbit {

class HelpContents final : public QTreeWidget {
public:
    // Returns true if a page matches the search.
    using PageTest = std::function<bool(const QUrl&)>;

    // Reads the entries of `pages` once and keeps no reference to it.
    HelpContents(const HelpPages& pages, QWidget* parent);

    // Calls `open` with the page of an entry when the user selects it, but not from Mark.
    void SetOnEntry(std::function<void(const QUrl&)> open);
    // Selects the entry of the page, or the first entry of the same file if its section has none.
    // Clears the selection if the file has no entry.
    void Mark(const QUrl& page);
    // Shows only the sections whose titles contain the text, and the chapters with such a section,
    // with the text in their title, or for which `holds` returns true. Ignores case. An empty text
    // shows everything.
    void Filter(const QString& text, const PageTest& holds);
    // Returns the page of the first chapter for which `holds` returns true.
    [[nodiscard]] std::optional<QUrl> FirstChapter(const PageTest& holds) const;

private:
    void Fill(const HelpPages& pages);
};

}  // namespace quorbit
