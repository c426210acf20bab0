// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs batches on real temporary folders and returns the log, the counters and the exit code.

#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "engine/run_driver.h"
#include "engine/run_flags.h"
#include "engine/run_start.h"
#include "platform/native.h"
#include "support/failing_file_system.h"
#include "support/folder_test.h"
#include "support/recording_surface.h"
#include "support/run_machine.h"

namespace quorbit {

using Call = FileSystemCall;

inline constexpr std::uint32_t kAll = DCF_ALL_TYPES | DCF_NO_ATTRS;
inline constexpr std::uint32_t kTree = kAll | DCF_SUBFOLDERS | DCF_PRESERVE_TREE;

// The totals in the footer of a log.
struct Totals {
    std::string total = "0";
    int deleted = 0;
    int sync = 0;
    int didntSync = 0;
    int copy = 0;
    int backup = 0;
    int error = 0;
};

struct RunResult {
    RecordingSurface surface;
    RunProblems problems;
    std::string log;       // the whole file
    std::string counters;  // those other than 0: "left 1 copy 2 error 1"
    int exitCode = 0;
};

// "@" in paths and expected texts is replaced with the temporary folder.
class RunFixture : public FolderTest {
protected:
    RunFixture() { ClearFlags(); }
    ~RunFixture() override { ClearFlags(); }

    [[nodiscard]] std::string Path(std::string text) const
    {
        for (std::size_t at = 0; (at = text.find('@', at)) != std::string::npos;) {
            text.replace(at, 1, m_folder.Path());
        }
        return text;
    }
    [[nodiscard]] TreeLines Tree(const std::string& path) const { return ReadTree(Path(path)); }

    // An entry that selects files by masks.
    [[nodiscard]] CDirCopy Entry(std::uint32_t flags, const std::string& source = "@/source",
                                 const std::string& dest = "@/dest",
                                 std::vector<std::string> masks = {"*.*"}) const
    {
        CDirCopy entry(Path(source), Path(dest), flags, DCK_TYPES, 0);
        entry.m_listItems = std::move(masks);
        return entry;
    }
    [[nodiscard]] CDirCopy Names(std::uint32_t flags, std::vector<std::string> names) const
    {
        CDirCopy entry = Entry(flags, "@/source", "@/dest", std::move(names));
        entry.m_nKind = DCK_NAMES;
        return entry;
    }
    [[nodiscard]] CDirCopy FolderList(std::uint32_t flags, std::vector<std::string> folders,
                                      const std::string& source = "@/source",
                                      const std::string& dest = "@/dest",
                                      std::vector<std::string> masks = {"*.*"}) const
    {
        CDirCopy entry = Entry(flags | DCF_FOLDER_ITEMS, source, dest, std::move(folders));
        entry.m_nKind = DCK_NAMES;
        entry.m_listFolderTypes = std::move(masks);
        return entry;
    }

    using Prepare = std::function<void(FailingFileSystem& files)>;
    // Runs a batch and clears the global run flags. `prepare` sets up failures and actions of the
    // file system; may be null.
    RunResult Run(std::vector<CDirCopy> entries, const Prepare& prepare = nullptr)
    {
        Batch batch;
        batch.m_arrEntries = std::move(entries);
        batch.m_strFilePath = Path("@/batch.qrb");
        const auto disk = MakeFileSystem(m_drives);
        FailingFileSystem files(*disk);
        if (prepare) {
            prepare(files);
        }
        RunResult result;
        result.surface.answers = m_answers;
        result.surface.onPrompt = m_onPrompt;
        const auto processes = MakeProcessRunner();
        const RunStart start = StartRun(batch, result.surface,
                                        {.pMachine = &m_machine.Values(),
                                         .pFiles = &files,
                                         .pProcesses = processes.get(),
                                         .drives = m_drives,
                                         .nRunMode = m_nRunMode,
                                         .bSyncAtEnd = m_bSyncAtEnd,
                                         .nLanes = m_nLanes,
                                         .readOptFlags = [this] { return m_nOptFlags; },
                                         .now = [] { return s_now; }});
        EXPECT_EQ(RunThreadProc(start.pRun.get()), 0U);
        EXPECT_FALSE(start.pRun->m_pLogFile);
        ClearFlags();
        result.exitCode = start.pRun->m_nExitCode;
        result.log = ContentOf(LogPath());
        result.counters = CountersOf(*start.pRun);
        result.problems = start.pRun->m_problems;
        return result;
    }

    // The part of the log that has been written to the file so far.
    [[nodiscard]] std::string LogSoFar() const { return ContentOf(LogPath()); }

    // Returns a whole log. "\n" in `body` becomes CR LF.
    [[nodiscard]] std::string Log(const std::string& body, const Totals& totals) const
    {
        return Lines(
                   "Quorbit   File name: @/batch.qrb\n"
                   "\nTo find file operations, search on these texts:\n"
                   "Copying File.\nCreate Folder.\nDidn't Sync File.\nSync File.\n"
                   "Delete File.\nDelete Folder.\nERROR.\n\n" +
                   body) +
               Footer(totals);
    }
    [[nodiscard]] std::string Footer(const Totals& totals) const
    {
        std::string text = "\n\nElapsed time: 0:0:0\nTotal Count: " + totals.total + "\n";
        const std::pair<const char*, int> counts[] = {
            {"Delete", totals.deleted},        {"Sync", totals.sync},
            {"Didn't Sync", totals.didntSync}, {"Copy", totals.copy},
            {"Backup", totals.backup},         {"Error", totals.error}};
        for (const auto& [name, value] : counts) {
            text += std::string(name) + " Count: " + std::to_string(value) + "\n";
        }
        return Lines(text);
    }

    std::uint32_t m_nRunMode = 0;
    std::uint32_t m_nOptFlags = 0;
    unsigned m_nLanes = 1;
    bool m_bSyncAtEnd = false;  // syncing is slow on a busy machine
    DriveMap m_drives;
    std::vector<bool> m_answers;
    std::function<void()> m_onPrompt;
    static inline std::chrono::steady_clock::time_point s_now{};  // the fake clock

    [[nodiscard]] std::string LogPath() const { return m_logFolder.Path() + "/batch.log"; }

private:
    static void ClearFlags() { g_bStopRun = g_bStopCounting = 0; }
    [[nodiscard]] std::string Lines(const std::string& text) const
    {
        std::string lines;
        for (const char c : Path(text)) {
            lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
        }
        return lines;
    }
    static std::string CountersOf(const CRunContext& ctx)
    {
        const std::pair<const char*, int> counters[] = {
            {"left", ctx.m_nFilesLeft},     {"copy", ctx.m_nCopyCount},
            {"sync", ctx.m_nSyncCount},     {"didn't sync", ctx.m_nDidntSyncCount},
            {"backup", ctx.m_nBackupCount}, {"delete", ctx.m_nDeleteCount},
            {"error", ctx.m_nErrorCount}};
        std::string text;
        for (const auto& [name, value] : counters) {
            if (value != 0) {
                text += std::string(text.empty() ? "" : " ") + name + " " + std::to_string(value);
            }
        }
        return text;
    }

    TempFolder m_logFolder;
    RunMachine m_machine{m_logFolder.Path() + "/machine.ini", m_logFolder.Path() + "/"};
};

}  // namespace quorbit
