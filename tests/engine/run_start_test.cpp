// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/run_start.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>

#include "platform/native.h"
#include "support/folder_test.h"
#include "support/recording_surface.h"
#include "support/run_machine.h"

namespace quorbit {
namespace {

class RunStartTest : public testing::Test {
protected:
    RunStart Start()
    {
        Batch batch;
        batch.m_strFilePath = "/home/me/nightly.qrb";
        return StartRun(batch, m_surface,
                        {.pMachine = &m_machine.Values(),
                         .pFiles = m_files.get(),
                         .pProcesses = m_processes.get(),
                         .nRunMode = m_nRunMode,
                         .readOptFlags = [] { return 0U; }});
    }

    std::uint32_t m_nRunMode = 0;
    TempFolder m_folder;
    RunMachine m_machine{m_folder.Path() + "/machine.ini", m_folder.Path() + "/"};
    std::unique_ptr<FileSystem> m_files = MakeFileSystem();
    std::unique_ptr<ProcessRunner> m_processes = MakeProcessRunner();
    RecordingSurface m_surface;
    std::string m_log = m_folder.Path() + "/nightly.log";
};

TEST_F(RunStartTest, HoldsTheLogUntilTheRunIsOver)
{
    WriteTree(m_folder.Path(), {"nightly.log=old"});
    RunStart first = Start();
    ASSERT_TRUE(first.pRun);
    EXPECT_EQ(first.pRun->m_strLogPath, m_log);
    EXPECT_EQ(m_machine.LastLog(), m_log);
    EXPECT_TRUE(first.pRun->m_pLogFile->Add("line"));
    EXPECT_TRUE(first.pRun->m_pLogFile->Flush());

    const RunStart second = Start();
    EXPECT_FALSE(second.pRun);
    EXPECT_EQ(second.refusal.text,
              "This batch file is being run already. Its log file is in use by that run: " + m_log);
    EXPECT_EQ(second.refusal.exitCode, kExitNoRun);
    EXPECT_FALSE(second.refusal.bEndsProgram);
    EXPECT_EQ(ContentOf(m_log), "line\r\n");

    first = {};
    EXPECT_TRUE(Start().pRun);
}

TEST_F(RunStartTest, EndsTheProgramIfTheLogCannotBeCreated)
{
    WriteTree(m_folder.Path(), {"file="});
    m_machine.SetLogFolder(m_folder.Path() + "/file/");
    const std::pair<std::uint32_t, int> cases[] = {
        {0, kExitOk}, {kRunAndQuit, kExitOk}, {kRunInvisible, kExitNoRun}};
    for (const auto& [mode, code] : cases) {
        m_nRunMode = mode;
        const RunStart start = Start();
        EXPECT_FALSE(start.pRun);
        EXPECT_EQ(start.refusal.text, "The log file cannot be created: " + m_folder.Path() +
                                          "/file/nightly.log: Not a directory");
        EXPECT_EQ(start.refusal.exitCode, code);
        EXPECT_TRUE(start.refusal.bEndsProgram);
    }
}

TEST(MakeLogPath, PutsTheNameOfTheDocumentIntoTheFolderOfTheLogs)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/state/", "/home/me/Nightly.qrb", "/state/Nightly.log"},
        {"/state", "/home/me/Nightly.qrb", "/state/Nightly.log"},
        {"/state/", "/x.y/Nightly.old.qrb", "/state/Nightly.old.log"},
        {"/state/", "/a\\b/c\\d.qrb", "/state/c\\d.log"},
        {"C:\\Quorbit\\", "D:\\a.b\\Nightly.qrb", "C:\\Quorbit\\Nightly.log"},
        // No dot, or no name at all.
        {"/state/", "/x.y/Nightly", "/state/.log"},
        {"/state", "/x.y/Nightly", "/state.log"},
        {"/state/", "", "/state/.log"},
        {"/state", "", "/state.log"}};
    for (const auto& [install, document, expected] : cases) {
        EXPECT_EQ(MakeLogPath(install, document), expected) << install << ", " << document;
    }
}

}  // namespace
}  // namespace quorbit
