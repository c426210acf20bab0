// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pages of the help: those next to the index page named in the machine settings, or the
// built-in ones if that file does not exist. User interface thread only.

#pragma once

#include <QString>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

namespace quorbit {

// An entry of the table of contents.
struct HelpEntry {
    QString title;
    QUrl page;  // with a fragment if the entry is a section of a page
    int depth;  // 1 for a chapter, 2 for a section
};

// The help on one control.
struct HelpTopic {
    QString text;  // HTML, for a pop-up
    QUrl chapter;  // the first link of the text; the contents if there is none
};

class HelpPages {
public:
    // helpFile: full path of an index page, in the encoding of the file system. Uses the built-in
    // pages if it is empty or does not exist.
    explicit HelpPages(const std::string& helpFile = {});

    // Returns the index page.
    [[nodiscard]] const QUrl& Contents() const { return m_contents; }
    // Returns the URL of a page by its name, such as "log.html#end".
    [[nodiscard]] QUrl Page(const QString& name) const;
    // Returns the list items of the index page that are links, in order; empty if it cannot be
    // read.
    [[nodiscard]] std::vector<HelpEntry> Entries() const;
    // Returns a topic of the installed pages or, if it is missing there, of the built-in ones.
    // Reads the pages on each call. Nothing for 0 and for unknown numbers.
    [[nodiscard]] std::optional<HelpTopic> Topic(int number) const;

    // Returns the HTML of a page, or an empty string if it cannot be read.
    [[nodiscard]] static QString Read(const QUrl& page);
    // Returns the text of a page without markup, for searching.
    [[nodiscard]] static QString PlainText(const QUrl& page);
    // Returns true if the help window shows the page itself, false if it is for a web browser.
    [[nodiscard]] static bool IsPage(const QUrl& url);

private:
    QUrl m_contents;
};

}  // namespace quorbit
