// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "help/help_pages.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

QList<QUrl> BuiltInPages()
{
    const HelpPages pages;  // registers the resources
    QList<QUrl> found;
    QDirIterator files(QStringLiteral(":/help"), {QStringLiteral("*.html")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        found << QUrl(QStringLiteral("qrc") + files.next());
    }
    return found;
}

QList<QUrl> LinksOf(const QUrl& page)
{
    static const QRegularExpression link(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    QList<QUrl> links;
    auto matches = link.globalMatch(HelpPages::Read(page));
    while (matches.hasNext()) {
        links << page.resolved(QUrl(matches.next().captured(1)));
    }
    return links;
}

TEST(HelpPages, EveryLinkLeadsToAPageOfTheGuideAndAPlaceInIt)
{
    ASSERT_GT(BuiltInPages().size(), 10);
    for (const QUrl& page : BuiltInPages()) {
        for (const QUrl& link : LinksOf(page)) {
            const std::string name =
                (page.toString() + QStringLiteral(" -> ") + link.toString()).toStdString();
            const QString target = HelpPages::Read(link.adjusted(QUrl::RemoveFragment));
            EXPECT_EQ(link.scheme(), u"qrc") << name;
            EXPECT_FALSE(target.isEmpty()) << name;
            if (link.hasFragment()) {
                EXPECT_TRUE(target.contains(QStringLiteral("<a name=\"%1\">").arg(link.fragment())))
                    << name;
            }
        }
    }
}

TEST(HelpPages, EveryPageIsReachedFromTheContents)
{
    QSet<QUrl> reached;
    QList<QUrl> ahead{HelpPages().Contents()};
    while (!ahead.isEmpty()) {
        const QUrl page = ahead.takeFirst().adjusted(QUrl::RemoveFragment);
        if (!reached.contains(page)) {
            reached.insert(page);
            ahead += LinksOf(page);
        }
    }
    for (const QUrl& page : BuiltInPages()) {
        EXPECT_TRUE(reached.contains(page)) << page.toString().toStdString();
    }
}

TEST(HelpPages, ATopicHasATextAndAChapterAndAnUnknownNumberNothing)
{
    const auto topic = HelpPages().Topic(308);
    ASSERT_TRUE(topic);
    EXPECT_TRUE(topic->text.startsWith(u"<p><b>Sync files</b></p>"));
    EXPECT_EQ(topic->chapter.toString(), u"qrc:/help/kinds.html#sync");
    for (const int number : {0, -1, 9999}) {
        EXPECT_FALSE(HelpPages().Topic(number)) << number;
    }
}

TEST(HelpPages, ComeFromBesideTheHelpFileElseFromTheProgram)
{
    const TempFolder folder;
    WriteTree(
        folder.Path(),
        {"own/start.html=<body>mine</body>",
         "own/controls.html=<h3><a name=\"1\"></a>OK</h3>mine<h3><a name=\"3\"></a>3</h3></body>",
         "own/index.html/"});
    struct Case {
        std::string helpFile;
        std::string contents;
    };
    const std::string own = folder.Path() + "/own/start.html";
    for (const Case& c : {Case{"", "qrc:/help/index.html"},
                          Case{folder.Path() + "/gone.html", "qrc:/help/index.html"},
                          Case{folder.Path() + "/own/index.html", "qrc:/help/index.html"},
                          Case{own, "file://" + own}}) {
        EXPECT_EQ(HelpPages(c.helpFile).Contents().toString().toStdString(), c.contents);
    }
    const HelpPages pages(own);
    EXPECT_EQ(pages.Topic(1)->text, u"<p><b>OK</b></p>mine");
    EXPECT_EQ(pages.Topic(1)->chapter, pages.Contents());
    // An older installed help lacks new topics.
    EXPECT_EQ(pages.Topic(2)->text, HelpPages().Topic(2)->text);
}

}  // namespace
}  // namespace quorbit
