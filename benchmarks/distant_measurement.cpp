// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/distant_measurement.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "benchmarks/slow_mount.h"
#include "benchmarks/timed_run.h"

namespace quorbit::bench {
namespace {

namespace fs = std::filesystem;

// Some peers need half a minute for a run.
constexpr unsigned kMostRounds = 3;

class DistantMeasurement {
public:
    DistantMeasurement(const Benchmark& benchmark, const BenchFolder& folder)
        : m_work(benchmark.work),
          m_benchmark(benchmark),
          m_folder(folder),
          m_shape(folder.GetOptions().quick ? benchmark.quickShape : benchmark.shape),
          m_tree(folder.TreePath(benchmark.tree)),
          m_behind(folder.CopyPath("behind")),
          m_mountPoint(folder.CopyPath("distant"))
    {
    }

    [[nodiscard]] static std::string Program(const BenchFolder& folder)
    {
        return (fs::path(folder.GetOptions().counter).parent_path() / "bench_slowfs").string();
    }

    [[nodiscard]] std::vector<Figure> Run()
    {
        EnsureTree(m_tree, m_shape);
        m_folder.ClearCopies();
        std::vector<double> ours;
        std::vector<std::vector<double>> theirs(m_benchmark.bars.size());
        const unsigned rounds = std::min(m_folder.GetOptions().rounds, kMostRounds);
        for (unsigned round = 0; round < rounds; ++round) {
            std::cerr << m_benchmark.name << ": round " << round + 1 << " of " << rounds << '\n';
            ours.push_back(RunOnce("quorbit"));
            for (std::size_t i = 0; i < theirs.size(); ++i) {
                theirs[i].push_back(RunOnce(m_benchmark.bars[i].peer));
            }
        }
        m_folder.ClearCopies();
        std::vector<Figure> figures;
        for (std::size_t i = 0; i < theirs.size(); ++i) {
            const Bar& bar = m_benchmark.bars[i];
            figures.push_back(CompareRounds(bar.peer, ours, theirs[i], bar.ratio));
        }
        return figures;
    }

private:
    [[nodiscard]] bool Replaces() const
    {
        return m_work == Work::DistantReplace || m_work == Work::DistantBackup;
    }
    [[nodiscard]] std::uint32_t Flags() const
    {
        switch (m_work) {
            case Work::DistantReplace:
            case Work::DistantSync:
                return DCF_SYNC;
            case Work::DistantBackup:
                return DCF_INCREMENTAL;
            default:
                return 0;
        }
    }
    [[nodiscard]] Command CommandOf(const std::string& who) const
    {
        const bool from = m_work == Work::DistantSource;
        const std::string source = from ? m_mountPoint + "/tree" : m_tree;
        const std::string dest = from ? m_folder.CopyPath("near") : m_mountPoint + "/tree";
        if (who == "quorbit") {
            CDirCopy entry(source, dest, kWholeTree | Flags(), DCK_TYPES, 0);
            entry.m_listItems = {"*.*"};
            return m_folder.QuorbitCommand(entry, Ending::OnDisk);
        }
        if (who == "rclone") {
            return {{"rclone", "copy", "--transfers", "16", "--checkers", "16", source, dest}, {}};
        }
        if (who == "cp -a") {
            return {{"cp", "-a", source, dest}, {}};
        }
        return {{"rsync", who == "rsync -a -b" ? "-ab" : "-a", source + "/", dest + "/"}, {}};
    }

    // Lays out the distant side anew, so that nothing about it is known to the system.
    [[nodiscard]] double RunOnce(const std::string& who) const
    {
        const std::string behind = m_behind + "/tree";
        const std::string near = m_folder.CopyPath("near");
        RemoveTree(m_behind);
        RemoveTree(near);
        fs::create_directories(m_behind);
        fs::create_directories(m_mountPoint);
        if (m_work != Work::DistantCopy) {
            (void)RunTimed({{{"cp", "-a", m_tree, behind}, {}}});
        }
        if (Replaces()) {
            (void)RunTimed(
                {{{"find", behind, "-type", "f", "-exec", "touch", "-d", "2001-01-01", "{}", "+"},
                  {}}});
        }
        m_folder.Settle();
        double seconds = 0;
        {
            const SlowMount mount(Program(m_folder), m_behind, m_mountPoint);
            seconds = RunTimed({CommandOf(who)}).seconds;
        }
        TreeShape expected = m_shape;
        expected.filesPerFolder *= m_work == Work::DistantBackup ? 2 : 1;
        const std::string fault =
            CompareTree(m_work == Work::DistantSource ? near : behind, expected);
        if (!fault.empty()) {
            GiveUp(who + " did not do its work: " + fault);
        }
        return seconds;
    }

    const Work m_work;
    const Benchmark& m_benchmark;
    const BenchFolder& m_folder;
    TreeShape m_shape;
    std::string m_tree;
    std::string m_behind;  // what is mounted
    std::string m_mountPoint;
};

}  // namespace

BenchmarkResult MeasureAtDistance(const Benchmark& benchmark, const BenchFolder& folder)
{
    if (!SlowMount::IsPossible(DistantMeasurement::Program(folder))) {
        return {{}, "this machine has no FUSE; not measured"};
    }
    return {DistantMeasurement(benchmark, folder).Run(), {}};
}

}  // namespace quorbit::bench
