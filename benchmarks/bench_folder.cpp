// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/bench_folder.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "batch/batch_file.h"

namespace quorbit::bench {
namespace {

const char* const kDropCaches = "/proc/sys/vm/drop_caches";  // proc(5)

namespace fs = std::filesystem;

}  // namespace

BenchFolder::BenchFolder(const Options& options) : m_options(options)
{
    ClaimFolder();
    for (const Ending ending : {Ending::OnDisk, Ending::LeftToSystem}) {
        fs::remove_all(SettingsPath(ending));
        fs::create_directories(SettingsPath(ending));
        Command setup = Quorbit(ending);
        setup.arguments.emplace_back("--setup");
        (void)RunTimed({setup});
    }
    const fs::path profile = fs::path(SettingsPath(Ending::LeftToSystem)) / "quorbit/profile.ini";
    fs::create_directories(profile.parent_path());
    std::ofstream file(profile);
    file << "[Options]\nSyncAtEnd=0\n";
    file.close();
    if (!file)
        GiveUp("cannot write " + profile.string());
}

// The benchmarks delete trees, so never use a folder with files of the user. A marker file
// identifies the folders created here.
void BenchFolder::ClaimFolder() const
{
    const fs::path mark = fs::path(m_options.folder) / ".quorbit-bench";
    fs::create_directories(m_options.folder);
    if (!fs::is_empty(m_options.folder) && !fs::exists(mark))
        GiveUp(m_options.folder + " holds something else; --dir needs a new or an empty folder");
    if (!std::ofstream(mark))
        GiveUp("cannot write " + mark.string());
}

std::string BenchFolder::TreePath(const std::string& name) const
{
    return m_options.folder + "/trees/" + name + (m_options.quick ? "-quick" : "");
}

std::string BenchFolder::CopyPath(const std::string& name) const
{
    return m_options.folder + "/copies/" + name;
}

void BenchFolder::ClearCopies() const
{
    const fs::path copies = m_options.folder + "/copies";
    const bool any = fs::exists(copies) && !fs::is_empty(copies);
    fs::remove_all(copies);
    fs::create_directory(copies);
    Settle();
    if (any && CanDropCaches()) {
        DropCaches();
    }
}

std::string BenchFolder::SettingsPath(Ending ending) const
{
    return m_options.folder + (ending == Ending::OnDisk ? "/settings" : "/settings-no-sync");
}

Command BenchFolder::Quorbit(Ending ending) const
{
    const std::string settings = SettingsPath(ending);
    return {{m_options.program}, {{"XDG_CONFIG_HOME", settings}, {"XDG_STATE_HOME", settings}}};
}

Command BenchFolder::QuorbitCommand(const CDirCopy& entry, Ending ending,
                                    const std::string& mode) const
{
    Batch batch;
    batch.m_arrEntries.push_back(entry);
    const std::string path = SettingsPath(ending) + "/bench.qrb";
    if (const BatchFileStatus written = WriteBatchFile(path, batch); !written)
        GiveUp(written.GetError().Text());
    Command command = Quorbit(ending);
    command.arguments.insert(command.arguments.end(), {path, mode});
    return command;
}

void BenchFolder::Settle() const
{
    sync();
}

bool BenchFolder::CanDropCaches() const
{
    return access(kDropCaches, W_OK) == 0;
}

void BenchFolder::DropCaches() const
{
    std::ofstream file(kDropCaches);
    file << "3\n";
    file.close();
    if (!file)
        GiveUp(std::string("cannot write ") + kDropCaches);
}

}  // namespace quorbit::bench
