// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Script steps.

#include "engine/external_file.h"

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using namespace testing;

// Knows a few paths and programs, and keeps what it is to start.
class FakeProcesses : public ProcessRunner {
public:
    Status RunAndWait(const std::vector<std::string>&, const std::string&) override { return {}; }
    bool IsExecutable(const std::string& path) override { return path.find("/x/") == 0; }
    Status CanRead(const std::string& path) override
    {
        return path.find("/none/") == 0 ? Status(ErrorFromErrno(ENOENT)) : Status();
    }
    std::string FindProgram(const std::string& name) override
    {
        return name == "lua" ? "" : "/bin/" + name;
    }
};

TEST(ScriptCommand, IsFoundByTheRightToExecuteThenByTheExtension)
{
    const std::string kUnknown = "No program is known that runs this kind of script";
    const struct {
        const char* path;
        std::uint32_t flags;
        std::vector<std::string> command;
        std::string error;
    } cases[] = {
        {"/x/a", DCF_SCRIPT_DOS, {"/x/a"}, ""},
        {"/r/a.sh", DCF_SCRIPT_DOS, {"/bin/sh", "/r/a.sh"}, ""},
        {"/r/a.bat", DCF_SCRIPT_DOS, {"/bin/sh", "/r/a.bat"}, ""},
        {"/r/a.PY", DCF_SCRIPT_WSH, {"/bin/python3", "/r/a.PY"}, ""},
        {"/r/a.b.sh", DCF_SCRIPT_WSH, {"/bin/sh", "/r/a.b.sh"}, ""},
        {"/r/a.vbs", DCF_SCRIPT_WSH, {}, kUnknown},
        {"/r.py/a", DCF_SCRIPT_WSH, {}, kUnknown},
        {"/r/a.lua",
         DCF_SCRIPT_WSH,
         {},
         "The program that runs this kind of script is not installed"},
        {"/none/a.sh", DCF_SCRIPT_DOS, {}, "No such file or directory"},
    };
    FakeProcesses processes;
    for (const auto& c : cases) {
        const auto command = ScriptCommand(processes, c.path, c.flags);
        EXPECT_EQ(command ? *command : std::vector<std::string>{}, c.command) << c.path;
        EXPECT_EQ(command ? "" : command.GetError().Text(), c.error) << c.path;
    }
}

class ExternalFileTest : public RunFixture {
protected:
    [[nodiscard]] CDirCopy Script(const std::string& path,
                                  std::uint32_t kind = DCF_SCRIPT_DOS) const
    {
        return {Path(path), "", kind, DCK_NAMES, 0};
    }
    void WriteScript(const std::string& name, const std::string& text, unsigned mode = 0644)
    {
        Write({name + "=" + text});
        std::filesystem::permissions(Path("@/" + name), std::filesystem::perms(mode));
    }
};

TEST_F(ExternalFileTest, RunsInItsFolderBetweenTheEntriesAroundIt)
{
    Write({"source/made=before"});
    WriteScript("jobs/a job.sh", "sleep 0.2; pwd -P > ../source/made; exit 3");
    const RunResult run = Run({Entry(kAll, "@/source", "@/first"), Script("@/jobs/a job.sh"),
                               Entry(kAll, "@/source", "@/last")});
    const std::string folder = std::filesystem::canonical(Path("@/jobs")).string();
    EXPECT_EQ(Tree("@/first"), (TreeLines{"made=before"}));
    EXPECT_EQ(Tree("@/last"), (TreeLines{"made=" + folder + "\n"}));
    // Its unit is counted and taken off, what it returns is not used, and no line tells of it.
    EXPECT_NE(run.log.find("Total Count: 3\r\n"), std::string::npos);
    EXPECT_EQ(run.counters, "copy 2");
    EXPECT_EQ(run.log.find("job"), std::string::npos);
}

TEST_F(ExternalFileTest, AFileWithoutTheRightToExecuteOrAnInterpreterLineRuns)
{
    constexpr const char* kText = "echo done > done";
    const struct {
        const char* name;
        std::string text;
        unsigned mode;
        std::uint32_t kind;
    } cases[] = {
        {"plain.sh", kText, 0644, DCF_SCRIPT_DOS},
        {"executable", kText, 0755, DCF_SCRIPT_DOS},
        {"with-line", std::string("#!/bin/sh\n") + kText, 0755, DCF_SCRIPT_DOS},
        {"plain.sh", kText, 0644, DCF_SCRIPT_WSH},
        {"executable.sh", kText, 0755, DCF_SCRIPT_WSH},
        {"with-line", std::string("#!/bin/sh\n") + kText, 0755, DCF_SCRIPT_WSH},
    };
    for (const auto& c : cases) {
        WriteScript(c.name, c.text, c.mode);
        EXPECT_EQ(Run({Script("@/" + std::string(c.name), c.kind)}).counters, "") << c.name;
        EXPECT_TRUE(std::filesystem::remove(Path("@/done"))) << c.name;
    }
}

TEST_F(ExternalFileTest, AScriptThatCannotBeStartedIsAnErrorAndTheRunGoesOn)
{
    Write({"source/a=1", "folder.sh/"});
    WriteScript("a.unknown", "x", 0644);
    WriteScript("b.unknown", "x", 0755);
    const std::pair<CDirCopy, const char*> cases[] = {
        {Script("@/none.sh"), "No such file or directory"},
        {Script(""), "No such file or directory"},
        {Script("Q:\\a.bat"), "No such file or directory"},
        {Script("@/a.unknown", DCF_SCRIPT_WSH),
         "No program is known that runs this kind of script"},
        {Script("@/b.unknown", DCF_SCRIPT_WSH),
         "No program is known that runs this kind of script"},
    };
    for (const auto& [entry, reason] : cases) {
        const RunResult run = Run({entry, Entry(kAll)});
        EXPECT_EQ(run.counters, "copy 1 error 1") << entry.m_strSource;
        EXPECT_EQ(run.surface.errors, std::vector<std::string>{reason});
    }
    EXPECT_EQ(Run({Script("@/folder.sh")}).counters, "error 1");
}

TEST_F(ExternalFileTest, ADrivePathIsLookedUp)
{
    m_drives['C'] = Path("@/mounted");
    WriteScript("mounted/jobs/a.bat", "echo done > done");
    EXPECT_EQ(Run({Script("c:\\jobs\\a.bat")}).counters, "");
    EXPECT_EQ(ContentOf(Path("@/mounted/jobs/done")), "done\n");
}

TEST_F(ExternalFileTest, TheLinesBeforeItAreInTheFileWhileItRuns)
{
    Write({"source/a=1"});
    WriteScript("look.sh", "cp '" + LogPath() + "' seen");
    (void)Run({Entry(kAll), Script("@/look.sh")});
    EXPECT_THAT(ContentOf(Path("@/seen")), EndsWith("/dest/a\r\nFile Size: 1 KB\r\n"));
}

}  // namespace
}  // namespace quorbit
