// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/standard_folders.h"

#include <pwd.h>

#include <filesystem>

#include "support/folder_test.h"
#include "support/scoped_variable.h"

namespace quorbit {
namespace {

class XdgFolders : public FolderTest {};

TEST_F(XdgFolders, FollowTheEnvironmentAndIgnoreRelativeValues)
{
    const std::string passwd = ::getpwuid(::getuid())->pw_dir;
    const std::tuple<std::optional<std::string>, std::optional<std::string>, std::string,
                     std::string>
        cases[] = {{"/x", "/h", "/x", "/x"},
                   {"/x/", "/h", "/x", "/x"},
                   {{}, "/h", "/h/.config", "/h/.local/state"},
                   {"", "/h\xFF/", "/h\xFF/.config", "/h\xFF/.local/state"},
                   {"rel", "/h", "/h/.config", "/h/.local/state"},
                   {"./x", {}, passwd + "/.config", passwd + "/.local/state"},
                   {{}, "h", passwd + "/.config", passwd + "/.local/state"}};
    for (const auto& [xdg, home, config, state] : cases) {
        const ScopedVariable setConfig("XDG_CONFIG_HOME", xdg);
        const ScopedVariable setState("XDG_STATE_HOME", xdg);
        const ScopedVariable setHome("HOME", home);
        EXPECT_EQ(ConfigFolder(), config + "/quorbit");
        EXPECT_EQ(StateFolder(), state + "/quorbit");
    }
}

TEST_F(XdgFolders, NewFoldersAreForTheUserAlone)
{
    Write({"open/", "file=x"});
    SetMode(Path("open"), 0755);
    for (const char* name : {"open/a/b/", "open/a/b"}) {
        ASSERT_TRUE(CreateFolders(Path(name)).Ok());
    }
    EXPECT_EQ(ModeOf(Path("open")), 0755U);
    EXPECT_EQ(ModeOf(Path("open/a")), 0700U);
    EXPECT_EQ(ModeOf(Path("open/a/b")), 0700U);
    EXPECT_EQ(KindOf(CreateFolders(Path("file/a"))), ErrorKind::NotAFolder);
    EXPECT_FALSE(CreateFolders("").Ok());
    EXPECT_FALSE(CreateFolders("relative").Ok());
}

}  // namespace
}  // namespace quorbit
