// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_pages.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>

// Of a static library the linker takes only what somebody asks for. Outside of every namespace, as
// the macro wants it.
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

// The name of a page's file, also of a built-in one.
QString FileOf(const QUrl& page)
{
    return page.scheme() == u"qrc" ? QLatin1Char(':') + page.path() : page.toLocalFile();
}

QUrl TopicPage(const QUrl& contents, int number)
{
    return contents.resolved(QUrl(QStringLiteral("topics/%1.html").arg(number)));
}

QString BodyOf(const QString& html)
{
    static const QRegularExpression body(
        QStringLiteral("<body[^>]*>(.*)</body>"),
        QRegularExpression::DotMatchesEverythingOption | QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = body.match(html);
    return match.hasMatch() ? match.captured(1).trimmed() : html;
}

// A heading is too loud for a pop-up.
QString WithQuietHeading(QString text)
{
    return text.replace(QLatin1String("<h1>"), QLatin1String("<p><b>"))
        .replace(QLatin1String("</h1>"), QLatin1String("</b></p>"));
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
        const QUrl page = TopicPage(contents, number);
        const QString body = BodyOf(Read(page));
        if (!body.isEmpty()) {
            const QUrl chapter = FirstLink(body, page);
            return HelpTopic{WithQuietHeading(body), chapter.isEmpty() ? m_contents : chapter};
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
