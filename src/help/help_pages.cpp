// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_pages.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

// The linker drops unreferenced objects of a static library, such as the resources. The macro must
// be used outside of any namespace.
static void TakeBuiltInPages()
{
    Q_INIT_RESOURCE(help);
}

namespace quorbit {
namespace {

const QUrl& BuiltInContents()
{
    static const QUrl contents(QStringLiteral("qrc:/help/index.html"));
    return contents;
}

// Returns the file name of a page. Built-in pages are resources, whose names start with ":".
QString FileOf(const QUrl& page)
{
    return page.scheme() == u"qrc" ? QLatin1Char(':') + page.path() : page.toLocalFile();
}

// The page of the topics: one section per topic, with the topic number as its anchor.
constexpr const char* kTopicsPage = "controls.html";

// Returns the section of a topic, up to the next heading, or an empty string if there is no such
// section. Its heading becomes bold text, since a pop-up has no room for headings.
QString TopicText(const QString& html, int number)
{
    const QRegularExpression section(
        QStringLiteral("<h3><a name=\"%1\"></a>(.*?)</h3>(.*?)(?=<h[23]>|</body>)").arg(number),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = section.match(html);
    return match.hasMatch() ? QStringLiteral("<p><b>%1</b></p>%2")
                                  .arg(match.captured(1), match.captured(2).trimmed())
                            : QString();
}

QUrl FirstLink(const QString& html, const QUrl& page)
{
    static const QRegularExpression link(QStringLiteral("<a\\s[^>]*href=\"([^\"]+)\""));
    const QRegularExpressionMatch match = link.match(html);
    return match.hasMatch() ? page.resolved(QUrl(match.captured(1))) : QUrl();
}

}  // namespace

HelpPages::HelpPages(const std::string& helpFile)
{
    TakeBuiltInPages();
    const QString path = QFile::decodeName(QByteArray::fromStdString(helpFile));
    const bool there = !path.isEmpty() && QFileInfo(path).isFile();
    m_contents = there ? QUrl::fromLocalFile(path) : BuiltInContents();
}

QUrl HelpPages::Page(const QString& name) const
{
    return m_contents.resolved(QUrl(name));
}

std::vector<HelpEntry> HelpPages::Entries() const
{
    std::vector<HelpEntry> entries;
    QTextDocument document;
    document.setHtml(Read(m_contents));
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.textList() == nullptr) {
            continue;
        }
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QString link = at.fragment().charFormat().anchorHref();
            if (!link.isEmpty()) {
                entries.push_back({at.fragment().text(), m_contents.resolved(QUrl(link)),
                                   block.textList()->format().indent()});
                break;
            }
        }
    }
    return entries;
}

std::optional<HelpTopic> HelpPages::Topic(int number) const
{
    if (number <= 0) {
        return std::nullopt;
    }
    for (const QUrl& contents : {m_contents, BuiltInContents()}) {
        const QUrl page = contents.resolved(QUrl(QLatin1String(kTopicsPage)));
        const QString text = TopicText(Read(page), number);
        if (!text.isEmpty()) {
            const QUrl chapter = FirstLink(text, page);
            return HelpTopic{text, chapter.isEmpty() ? m_contents : chapter};
        }
    }
    return std::nullopt;
}

QString HelpPages::Read(const QUrl& page)
{
    QFile file(FileOf(page));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString HelpPages::PlainText(const QUrl& page)
{
    QTextDocument document;
    document.setHtml(Read(page));
    return document.toPlainText();
}

bool HelpPages::IsPage(const QUrl& url)
{
    return url.scheme().isEmpty() || url.scheme() == u"qrc" || url.isLocalFile();
}

}  // namespace quorbit
