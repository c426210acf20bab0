// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Tests script entries.

#include "engine/external_file.h"

#include "engine/run_fixture.h"

namespace quorbit {
namespace {

using namespace testing;

// Knows a few paths and programs.
class FakeProcesses : public ProcessRunner {
public:
    Result<ProgramEnd> RunAndWait(const std::vector<std::string>&, const std::string&) override
    {
        return ProgramEnd();
    }
    void PassOn(StopSignal) override {}
    void Kill() override {}
    bool IsExecutable(const std::string& path) override { return path.find("/x/") == 0; }
    Status CanRead(const std::string& path) override
    {
        return path.find("/none/") == 0 ? Status(Error(ErrorKind::Missing)) : Status();
    }
    std::string FindProgram(const std::string& name) override
    {
        return name == "lua" ? "" : "/bin/" + name;
    }
};

TEST(ScriptCommand, IsFoundByTheRightToExecuteThenByTheExtension)
{
    const std::string kUnknown = "No program is known that runs this kind of script";
    const std::string kMissing = "The program that runs this kind of script is not installed";
    const std::tuple<const char*, std::uint32_t, std::vector<std::string>, std::string> cases[] = {
        {"/x/a", DCF_SCRIPT_DOS, {"/x/a"}, ""},
        {"/r/a.sh", DCF_SCRIPT_DOS, {"/bin/sh", "/r/a.sh"}, ""},
        {"/r/a.bat", DCF_SCRIPT_DOS, {"/bin/sh", "/r/a.bat"}, ""},
        {"/r/a.PY", DCF_SCRIPT_WSH, {"/bin/python3", "/r/a.PY"}, ""},
        {"/r/a.b.sh", DCF_SCRIPT_WSH, {"/bin/sh", "/r/a.b.sh"}, ""},
        {"/r/a.vbs", DCF_SCRIPT_WSH, {}, kUnknown},
        {"/r.py/a", DCF_SCRIPT_WSH, {}, kUnknown},
        {"/r/a.lua", DCF_SCRIPT_WSH, {}, kMissing},
        {"/none/a.sh", DCF_SCRIPT_DOS, {}, "No such file or directory"}};
    FakeProcesses processes;
    for (const auto& [path, flags, command, error] : cases) {
        const auto found = ScriptCommand(processes, path, flags);
        EXPECT_EQ(found ? *found : std::vector<std::string>{}, command) << path;
        EXPECT_EQ(found ? "" : found.GetError().Text(), error) << path;
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
    // The script counts as one unit. Its exit status is a warning, and the log does not mention it.
    EXPECT_EQ(run.surface.warnings,
              std::vector<std::string>{Path("@/jobs/a job.sh") +
                                       ": The script ended with exit status 3"});
    EXPECT_NE(run.log.find("Total Count: 3\r\n"), std::string::npos);
    EXPECT_EQ(run.counters, "copy 2");
    EXPECT_EQ(run.log.find("job"), std::string::npos);
}

TEST_F(ExternalFileTest, AFileWithoutTheRightToExecuteOrAnInterpreterLineRuns)
{
    constexpr const char* kText = "echo done > done";
    const std::string withLine = std::string("#!/bin/sh\n") + kText;
    const std::tuple<const char*, std::string, unsigned, std::uint32_t> cases[] = {
        {"plain.sh", kText, 0644, DCF_SCRIPT_DOS},
        {"executable", kText, 0755, DCF_SCRIPT_DOS},
        {"executable.sh", kText, 0755, DCF_SCRIPT_WSH},
        {"with-line", withLine, 0755, DCF_SCRIPT_WSH}};
    for (const auto& [name, text, mode, kind] : cases) {
        WriteScript(name, text, mode);
        EXPECT_EQ(Run({Script("@/" + std::string(name), kind)}).counters, "") << name;
        EXPECT_TRUE(std::filesystem::remove(Path("@/done"))) << name;
    }
}

TEST_F(ExternalFileTest, AScriptThatCannotBeStartedIsAnErrorAndTheRunGoesOn)
{
    Write({"source/a=1", "folder.sh/"});
    WriteScript("a.unknown", "x", 0755);
    constexpr const char* kNone = "No such file or directory";
    const std::pair<CDirCopy, const char*> cases[] = {
        {Script("@/none.sh"), kNone},
        {Script(""), kNone},
        {Script("Q:\\a.bat"), kNone},
        {Script("@/folder.sh"), "Is a directory"},
        {Script("@/a.unknown", DCF_SCRIPT_WSH),
         "No program is known that runs this kind of script"}};
    for (const auto& [entry, reason] : cases) {
        const RunResult run = Run({entry, Entry(kAll)});
        EXPECT_EQ(run.counters, "copy 1 error 1") << entry.m_strSource;
        EXPECT_EQ(run.surface.errors, std::vector<std::string>{reason});
    }
}

TEST_F(ExternalFileTest, ADrivePathIsLookedUpAndTheLinesBeforeItAreInTheFileWhileItRuns)
{
    m_drives["C:"] = Path("@/mounted");
    Write({"source/a=1"});
    WriteScript("mounted/jobs/look.bat", "cp '" + LogPath() + "' seen");
    EXPECT_EQ(Run({Entry(kAll), Script("c:\\jobs\\look.bat")}).counters, "copy 1");
    EXPECT_THAT(ContentOf(Path("@/mounted/jobs/seen")), EndsWith("/dest/a\r\nFile Size: 1 KB\r\n"));
}

}  // namespace
}  // namespace quorbit
