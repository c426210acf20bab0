// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/file_type_registration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "support/tree.h"

namespace quorbit {
namespace {

constexpr const char* kEntry = "applications/org.example.Quorbit.desktop";
constexpr const char* kMime = "mime/packages/org.example.Quorbit.xml";

class FileTypeRegistrationTest : public testing::Test {
protected:
    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return folder.Path() + "/" + name;
    }
    void Register(const std::string& program)
    {
        started.clear();
        RegisterWithDesktop(
            {program,
             Path("data"),
             {Path("system1"), Path("system2")},
             [this](const std::string& name, const std::vector<std::string>& arguments) {
                 started.push_back(name + " " + arguments.at(0));
             }});
    }
    [[nodiscard]] bool Exists(const std::string& name) const
    {
        return ContentOf(Path(name)) != "(none)";
    }
    [[nodiscard]] std::string ExecLine() const
    {
        const std::string text = ContentOf(Path("data/") + kEntry);
        const std::size_t at = text.find("\nExec=");
        return at == std::string::npos ? "(none)"
                                       : text.substr(at + 1, text.find('\n', at + 1) - at - 1);
    }

    TempFolder folder;
    std::vector<std::string> started;
};

TEST_F(FileTypeRegistrationTest, LaysDownEntryAndTypeOnceAndThenAgainOnlyForAnotherProgram)
{
    const std::vector<std::string> entryUpdate{"update-desktop-database " +
                                               Path("data/applications")};
    Register("/opt/quorbit");
    EXPECT_EQ(ExecLine(), "Exec=\"/opt/quorbit\" %f");
    EXPECT_NE(ContentOf(Path("data/") + kMime).find("<glob pattern=\"*.qrb\"/>"),
              std::string::npos);
    EXPECT_EQ(started, (std::vector<std::string>{entryUpdate[0],
                                                 "update-mime-database " + Path("data/mime")}));

    WriteContent(Path("data/") + kEntry, ContentOf(Path("data/") + kEntry) + "Hidden=true\n");
    Register("/opt/quorbit");
    EXPECT_TRUE(started.empty());
    EXPECT_TRUE(ContentOf(Path("data/") + kEntry).ends_with("Hidden=true\n"))
        << "what the user changed stays";

    Register("/opt/quorbit2");
    EXPECT_EQ(ExecLine(), "Exec=\"/opt/quorbit2\" %f");
    EXPECT_EQ(started, entryUpdate);
}

TEST_F(FileTypeRegistrationTest, LeavesADesktopAloneWhereTheProgramIsInstalledForAll)
{
    WriteTree(folder.Path(), {std::string("system2/") + kEntry + "=[Desktop Entry]"});
    Register("/opt/quorbit");
    EXPECT_EQ(ReadTree(folder.Path()).size(), 3U);
    EXPECT_TRUE(started.empty());
}

TEST_F(FileTypeRegistrationTest, TakesBackItsOwnEntryOnceTheProgramIsInstalledForAll)
{
    Register("/build of mine/quorbit");
    WriteTree(folder.Path(), {std::string("system1/") + kEntry + "=[Desktop Entry]"});
    Register("/usr/bin/quorbit");
    EXPECT_FALSE(Exists(std::string("data/") + kEntry));
    EXPECT_FALSE(Exists(std::string("data/") + kMime));
    EXPECT_EQ(started,
              (std::vector<std::string>{"update-desktop-database " + Path("data/applications"),
                                        "update-mime-database " + Path("data/mime")}));
}

TEST_F(FileTypeRegistrationTest, KeepsAnEntryThatTheUserChangedBesideTheInstalledOne)
{
    Register("/opt/quorbit");
    const std::string entry = ContentOf(Path("data/") + kEntry);
    WriteTree(folder.Path(), {std::string("system1/") + kEntry + "=[Desktop Entry]"});
    const std::size_t name = entry.find("Name=Quorbit");
    for (const std::string& changed :
         {entry + "Hidden=true\n", entry.substr(0, name) + "Name=Mine" + entry.substr(name + 12),
          entry.substr(0, entry.find(" %f")) + " %f\nPath=/srv" + entry.substr(entry.find(" %f")),
          std::string()}) {
        WriteContent(Path("data/") + kEntry, changed);
        Register("/usr/bin/quorbit");
        EXPECT_TRUE(Exists(std::string("data/") + kEntry)) << changed;
    }
}

TEST_F(FileTypeRegistrationTest, GivesUpSilentlyWhereItMayNotWrite)
{
    WriteContent(Path("data"), "a file in the place of the folder");
    Register("/opt/quorbit");
    EXPECT_TRUE(started.empty());
    EXPECT_EQ(ReadTree(folder.Path()).size(), 1U);
}

// Read back as the Desktop Entry Specification tells: the escapes of the value first, then those of
// the quoted argument, then the field codes.
std::string ReadExecArgument(const std::string& value)
{
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        text += value[i] == '\\' ? value.at(++i) : value[i];
    }
    std::string argument;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == '\\' || text[i] == '%') {
            ++i;
        }
        argument += text.at(i);
    }
    return argument;
}

TEST_F(FileTypeRegistrationTest, QuotesAnyPath)
{
    for (const char* path : {"/opt/quorbit", "/my programs/quorbit", "/a\\b", "/100%f/$HOME/`x`",
                             "/say \"hi\"", "/\xFF"}) {
        EXPECT_EQ(ReadExecArgument(ExecArgument(path)), path) << ExecArgument(path);
    }
}

TEST_F(FileTypeRegistrationTest, StoresTheOpenCommandOnlyWhereItDiffers)
{
    const SettingsStore store(Path("filetypes.ini"));
    const SettingsStores stores{SettingsStore({}), SettingsStore({}), store};
    const std::string command = R"(QRB.Document\shell\open\command)";
    RegisterShellFileTypes(stores, "/opt/quorbit");
    EXPECT_EQ(*store.ReadText(command, {}), R"(/opt/quorbit "%1" "%2")");
    EXPECT_EQ(*store.ReadText(".qrb", {}), "QRB.Document");
    EXPECT_EQ(*store.ReadText("QRB.Document", {}), "QRB Document");

    const auto before = ReadTreeWithDetails(folder.Path());
    RegisterShellFileTypes(stores, "/opt/quorbit");
    EXPECT_EQ(ReadTreeWithDetails(folder.Path()), before);

    RegisterShellFileTypes(stores, "/my programs/quorbit");
    EXPECT_EQ(*store.ReadText(command, {}), R"("/my programs/quorbit" "%1" "%2")");
}

}  // namespace
}  // namespace quorbit
