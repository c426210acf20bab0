// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/desktop_registration.h"

#include <string>
#include <vector>

#include "support/folder_test.h"

namespace quorbit {
namespace {

constexpr const char* kEntry = "applications/org.example.Quorbit.desktop";
constexpr const char* kMime = "mime/packages/org.example.Quorbit.xml";

class FileTypeRegistrationTest : public FolderTest {
protected:
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

TEST_F(FileTypeRegistrationTest, TakesBackItsOwnEntryOnceTheProgramIsInstalledForAll)
{
    Register("/build of mine/quorbit");
    Write({std::string("system1/") + kEntry + "=[Desktop Entry]"});
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
    Write({std::string("system1/") + kEntry + "=[Desktop Entry]"});
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

}  // namespace
}  // namespace quorbit
