// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The pages of the help: those beside the index page that the machine's settings name, or, if there
// is no such file, those that are built into the program. User interface thread only.

#pragma once

#include <QString>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

namespace quorbit {

// One line of the contents.
struct HelpEntry {
    QString title;
    QUrl page;  // with a fragment for a section of a page
    int depth;  // 1 for a chapter, 2 for a section of it
};

// What the help tells of one control.
struct HelpTopic {
    QString text;  // HTML, to be drawn in a pop-up
    QUrl chapter;  // where more of it stands; the contents if the topic names nothing
};

class HelpPages {
public:
    // helpFile: full path of an index page, in the bytes of the file system; empty or gone means
    // the built-in pages.
    explicit HelpPages(const std::string& helpFile = {});

    // The index page.
    [[nodiscard]] const QUrl& Contents() const { return m_contents; }
    // A page by its name, as "log.html#end".
    [[nodiscard]] QUrl Page(const QString& name) const;
    // The links of the index page, in their order. Empty if it cannot be read.
    [[nodiscard]] std::vector<HelpEntry> Entries() const;
    // A topic that the installed pages lack comes from the built-in ones. Nothing for 0 and for a
    // number that no page has.
    [[nodiscard]] std::optional<HelpTopic> Topic(int number) const;

    // The text of a page as HTML; empty if it cannot be read.
    [[nodiscard]] static QString Read(const QUrl& page);
    // Without its markup, for searching.
    [[nodiscard]] static QString PlainText(const QUrl& page);
    // A page that this program shows itself, as against an address for a web browser.
    [[nodiscard]] static bool IsPage(const QUrl& url);

private:
    QUrl m_contents;
};

}  // namespace quorbit
