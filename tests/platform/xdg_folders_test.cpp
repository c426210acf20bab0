// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/xdg_folders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>

#include "support/scoped_variable.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

namespace fs = std::filesystem;

TEST(XdgFolders, FollowTheEnvironmentAndIgnoreRelativeValues)
{
    struct Case {
        std::optional<std::string> xdg;
        std::optional<std::string> home;
        std::string config;
        std::string state;
    };
    const std::string passwd = ::getpwuid(::getuid())->pw_dir;
    const Case cases[] = {
        {"/x", "/h", "/x/quorbit", "/x/quorbit"},
        {"/x/", "/h", "/x/quorbit", "/x/quorbit"},
        {std::nullopt, "/h", "/h/.config/quorbit", "/h/.local/state/quorbit"},
        {"", "/h\xFF/", "/h\xFF/.config/quorbit", "/h\xFF/.local/state/quorbit"},
        {"rel", "/h", "/h/.config/quorbit", "/h/.local/state/quorbit"},
        {"./x", std::nullopt, passwd + "/.config/quorbit", passwd + "/.local/state/quorbit"},
        {std::nullopt, "h", passwd + "/.config/quorbit", passwd + "/.local/state/quorbit"},
    };
    for (const Case& c : cases) {
        const ScopedVariable config("XDG_CONFIG_HOME", c.xdg);
        const ScopedVariable state("XDG_STATE_HOME", c.xdg);
        const ScopedVariable home("HOME", c.home);
        EXPECT_EQ(ConfigFolder(), c.config);
        EXPECT_EQ(StateFolder(), c.state);
    }
}

TEST(XdgFolders, FindInstalledFilesTheUsersOwnFirst)
{
    const TempFolder folder;
    const std::string own = folder.Path() + "/own";
    const std::string system = folder.Path() + "/system";
    const ScopedVariable home("XDG_DATA_HOME", own);
    const ScopedVariable dirs("XDG_DATA_DIRS", "rel::" + folder.Path() + "/none:" + system);
    EXPECT_EQ(FindDataFile("help/index.html"), "");
    WriteTree(folder.Path(), {"own/quorbit/help/index.html/",  // a folder is no file
                              "system/quorbit/help/index.html=help"});
    EXPECT_EQ(FindDataFile("help/index.html"), system + "/quorbit/help/index.html");
    fs::remove(own + "/quorbit/help/index.html");
    WriteContent(own + "/quorbit/help/index.html", "my help");
    EXPECT_EQ(FindDataFile("help/index.html"), own + "/quorbit/help/index.html");
}

TEST(XdgFolders, NewFoldersAreForTheUserAlone)
{
    const TempFolder folder;
    fs::create_directory(folder.Path() + "/open");
    fs::permissions(folder.Path() + "/open", fs::perms(0755));
    ASSERT_TRUE(CreateFolders(folder.Path() + "/open/a/b/").Ok());
    ASSERT_TRUE(CreateFolders(folder.Path() + "/open/a/b").Ok());
    EXPECT_EQ(fs::status(folder.Path() + "/open").permissions(), fs::perms(0755));
    EXPECT_EQ(fs::status(folder.Path() + "/open/a").permissions(), fs::perms(0700));
    EXPECT_EQ(fs::status(folder.Path() + "/open/a/b").permissions(), fs::perms(0700));

    WriteContent(folder.Path() + "/file", "x");
    EXPECT_EQ(CreateFolders(folder.Path() + "/file/a").GetError().Kind(), ErrorKind::NotAFolder);
    EXPECT_FALSE(CreateFolders("").Ok());
    EXPECT_FALSE(CreateFolders("relative").Ok());
}

}  // namespace
}  // namespace quorbit
