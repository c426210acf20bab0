// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "look/desktop_link_opener.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "look/web_handler.h"
#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

const QString kAddress = QStringLiteral("https://example.org/a b");

TEST(DesktopLinkOpenerTest, FallsBackOnTheProgramForWebPages)
{
    struct Case {
        int desktop;
        const char* handler;
        const char* started;  // the words in front of the address
        int result;
    };
    const Case cases[] = {
        {kLinkOpened, "web %u", nullptr, kLinkOpened},
        {kLinkNoApplication, "", nullptr, kLinkNoApplication},
        {5, "", nullptr, 5},
        {5, "web", "web", 40},
        {5, "web %u", "web", 40},
        {5, "web --new \"%u\" --late", "web|--new", 40},
        {5, "web -c %c \"%i\" 100%% %U", "web|-c|100%", 40},
        {5, R"("/opt/my \"web\"" %f)", "/opt/my \"web\"", 40},
    };
    for (const Case& c : cases) {
        QStringList started;
        DesktopLinkOpener opener({[&](const QString&) { return c.desktop; },
                                  [&] { return QString::fromLatin1(c.handler); },
                                  [&](const QStringList& words) {
                                      started = words;
                                      return 40;
                                  }});
        QStringList expected;
        if (c.started != nullptr) {
            expected = QString::fromLatin1(c.started).split(QLatin1Char('|')) << kAddress;
        }
        EXPECT_EQ(opener.OpenTarget(kAddress), c.result) << c.handler;
        EXPECT_EQ(started, expected) << c.handler;
    }
}

TEST(WebHandlerTest, TakesTheUsersChoiceThenTheSystemsThenWhateverIsInstalled)
{
    const TempFolder folder;
    const std::string& root = folder.Path();
    const ScopedVariable config("XDG_CONFIG_HOME", root + "/config");
    const ScopedVariable configDirs("XDG_CONFIG_DIRS", root + "/etc");
    const ScopedVariable home("XDG_DATA_HOME", root + "/home");
    const ScopedVariable data("XDG_DATA_DIRS", root + "/data");
    EXPECT_EQ(WebHandlerCommand().toStdString(), "");

    const std::string apps = root + "/data/applications/";
    std::filesystem::create_directories(apps + "kde");
    WriteContent(apps + "one.desktop",
                 "[Desktop Action new]\nExec=no\n[Desktop Entry]\nExec=one %u\n");
    WriteContent(apps + "kde/two.desktop", "[Desktop Entry]\nExec = two %U\n");
    WriteContent(apps + "mimeinfo.cache", "[MIME Cache]\ntext/html=gone.desktop;one.desktop;\n");
    EXPECT_EQ(WebHandlerCommand().toStdString(), "one %u");

    std::filesystem::create_directories(root + "/config");
    WriteContent(root + "/config/mimeapps.list",
                 "[Added Associations]\ntext/html=one.desktop\n[Default "
                 "Applications]\ntext/html=kde-two.desktop;\n");
    EXPECT_EQ(WebHandlerCommand().toStdString(), "two %U");
}

}  // namespace
}  // namespace quorbit
