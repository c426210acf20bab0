// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/measurement.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>

#include "benchmarks/distant_measurement.h"

namespace quorbit::bench {
namespace {

// Benchmarks with at least this number of files keep all copies until they are complete. ext4 does
// not reuse the inode of a deleted file for a minute or more, so creating many files after deleting
// many causes a search that takes longer than the copy.
constexpr std::uint64_t kManyFiles = 1000;

// A program to measure: returns its commands for the path of the copy of a run.
using Candidate = std::function<std::vector<Command>(const std::string& copy)>;

// Two candidates whose times are compared.
struct Comparison {
    std::size_t ours = 0;  // indexes of the candidates
    std::size_t theirs = 0;
    std::string against;
    double bar = 0;
};

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Command PeerCopy(const std::string& peer, const std::string& tree, const std::string& copy)
{
    if (peer == "rsync -a") {
        return {{"rsync", "-a", tree + "/", copy + "/"}, {}};
    }
    return {{"cp", "-a", tree, copy}, {}};
}

class Measurement {
public:
    Measurement(const Benchmark& benchmark, const BenchFolder& folder)
        : m_benchmark(benchmark),
          m_folder(folder),
          m_shape(folder.GetOptions().quick ? benchmark.quickShape : benchmark.shape),
          m_tree(folder.TreePath(benchmark.tree))
    {
    }

    [[nodiscard]] std::vector<Figure> Run()
    {
        EnsureTree(m_tree, m_shape);
        m_folder.ClearCopies();
        std::vector<Figure> figures =
            m_benchmark.work == Work::Memory ? MeasureMemory() : Measure();
        if (m_benchmark.work == Work::Window) {
            figures.push_back(MeasureWait());
        }
        m_folder.ClearCopies();
        return figures;
    }

private:
    [[nodiscard]] std::vector<Figure> Measure()
    {
        switch (m_benchmark.work) {
            case Work::FreshCopy:
                AddFreshCopy();
                break;
            case Work::UnchangedSync:
                AddUnchangedSync();
                break;
            case Work::Window:
                AddWindow();
                break;
            case Work::Count:
                AddCount();
                break;
            default:
                AddDelete();
                break;
        }
        RunRounds();
        return Compare();
    }

    [[nodiscard]] Command Quorbit(const std::string& source, const std::string& dest,
                                  std::uint32_t flags, Ending ending = Ending::OnDisk,
                                  const std::string& mode = "/I") const
    {
        CDirCopy entry(source, dest, flags, DCK_TYPES, 0);
        entry.m_listItems = {"*.*"};
        return m_folder.QuorbitCommand(entry, ending, mode);
    }
    std::size_t Add(Candidate candidate)
    {
        m_candidates.push_back(std::move(candidate));
        m_seconds.emplace_back();
        return m_candidates.size() - 1;
    }

    // Measures twice: the work only, and the work until the data is on the disk.
    void AddFreshCopy()
    {
        for (const bool onDisk : {false, true}) {
            const Ending ending = onDisk ? Ending::OnDisk : Ending::LeftToSystem;
            const std::size_t ours = Add([this, ending](const std::string& copy) {
                return std::vector{Quorbit(m_tree, copy, kWholeTree, ending)};
            });
            for (const Bar& bar : m_benchmark.bars) {
                const std::size_t theirs = Add([this, bar, onDisk](const std::string& copy) {
                    std::vector commands{PeerCopy(bar.peer, m_tree, copy)};
                    if (onDisk) {
                        commands.push_back({{"sync", "-f", copy}, {}});
                    }
                    return commands;
                });
                m_comparisons.push_back(
                    {ours, theirs, bar.peer + (onDisk ? ", on disk" : ", work"), bar.ratio});
            }
        }
    }

    void AddUnchangedSync()
    {
        const std::size_t ours = Add([this](const std::string& copy) {
            return std::vector{Quorbit(m_tree, copy, kWholeTree | DCF_SYNC)};
        });
        for (const Bar& bar : m_benchmark.bars) {
            AddPeer(ours, bar, [this, bar](const std::string& copy) {
                return std::vector{PeerCopy(bar.peer, m_tree, copy)};
            });
        }
    }

    // The window is drawn, but off screen.
    void AddWindow()
    {
        const std::size_t ours = Add([this](const std::string& copy) {
            Command command = Quorbit(m_tree, copy, kWholeTree, Ending::LeftToSystem, "/VS");
            command.environment["QT_QPA_PLATFORM"] = "offscreen";
            return std::vector{command};
        });
        AddPeer(ours, m_benchmark.bars.at(0), [this](const std::string& copy) {
            return std::vector{Quorbit(m_tree, copy, kWholeTree, Ending::LeftToSystem)};
        });
    }
    // Measures the longest time that an event of the user interface waits during a copy.
    [[nodiscard]] Figure MeasureWait() const
    {
        const std::string program =
            (std::filesystem::path(m_folder.GetOptions().counter).parent_path() / "bench_window")
                .string();
        const std::string result = m_folder.CopyPath("wait");
        (void)RunTimed({{{program, m_tree, m_folder.CopyPath("waited"), result},
                         {{"QT_QPA_PLATFORM", "offscreen"}}}});
        double milliseconds = 0;
        if (!(std::ifstream(result) >> milliseconds)) {
            GiveUp("bench_window left no result");
        }
        const double limit = 100;
        const Bar& bar = m_benchmark.bars.at(1);
        return {bar.peer, milliseconds / 1000, limit / 1000, milliseconds / limit, bar.ratio};
    }

    void AddCount()
    {
        const std::size_t ours = Add([this](const std::string&) {
            const std::string expected = std::to_string(m_shape.Files());
            return std::vector{Command{{m_folder.GetOptions().counter, m_tree, expected}, {}}};
        });
        AddPeer(ours, m_benchmark.bars.at(0), [this](const std::string&) {
            return std::vector{Command{{"find", m_tree, "-type", "f"}, {}}};
        });
    }

    void AddDelete()
    {
        const std::uint32_t flags =
            m_benchmark.work == Work::DeleteFolder
                ? DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER
                : DCF_NO_ATTRS | DCF_DELETE | DCF_SUBFOLDERS | DCF_ALL_TYPES;
        const std::size_t ours = Add([this, flags](const std::string& copy) {
            return std::vector{Quorbit(copy, "", flags)};
        });
        AddPeer(ours, m_benchmark.bars.at(0), [](const std::string& copy) {
            return std::vector{Command{{"rm", "-rf", copy}, {}}};
        });
    }

    void AddPeer(std::size_t ours, const Bar& bar, Candidate candidate)
    {
        m_comparisons.push_back({ours, Add(std::move(candidate)), bar.peer, bar.ratio});
    }

    // Copies the tree and one with a tenth of its folders: memory must not grow with the tree.
    [[nodiscard]] std::vector<Figure> MeasureMemory() const
    {
        TreeShape tenth = m_shape;
        tenth.folders /= 10;
        EnsureTree(m_tree + "-tenth", tenth);
        const double part = PeakOfCopy(m_tree + "-tenth", m_folder.CopyPath("tenth"));
        const double whole = PeakOfCopy(m_tree, m_folder.CopyPath("whole"));
        const double limit = 32;
        const Bar& underLimit = m_benchmark.bars.at(0);
        const Bar& noGrowth = m_benchmark.bars.at(1);
        return {{underLimit.peer, whole, limit, whole / limit, underLimit.ratio},
                {noGrowth.peer, whole, part, whole / part, noGrowth.ratio}};
    }
    [[nodiscard]] double PeakOfCopy(const std::string& tree, const std::string& copy) const
    {
        std::cerr << m_benchmark.name << ": " << tree << '\n';
        return RunTimed({Quorbit(tree, copy, kWholeTree)}).peakMiB;
    }

    // Returns true if copies can be deleted between the runs, see kManyFiles.
    [[nodiscard]] bool HasFewFiles() const { return m_shape.Files() < kManyFiles; }
    [[nodiscard]] bool Deletes() const
    {
        return m_benchmark.work == Work::DeleteFiles || m_benchmark.work == Work::DeleteFolder;
    }
    // Each run that creates or deletes a copy has its own; all runs of a sync share one.
    [[nodiscard]] std::string CopyPath(std::size_t who, unsigned round) const
    {
        return m_folder.CopyPath(m_benchmark.work == Work::UnchangedSync
                                     ? std::string("same")
                                     : std::to_string(who) + "-" + std::to_string(round));
    }
    void MakeCopy(const std::string& copy) const
    {
        (void)RunTimed({PeerCopy("cp -a", m_tree, copy)});
    }
    void MakeCopies() const
    {
        if (m_benchmark.work == Work::UnchangedSync) {
            MakeCopy(CopyPath(0, 0));
        }
        for (std::size_t who = 0; Deletes() && who < m_candidates.size(); ++who) {
            for (unsigned round = 0; round < m_folder.GetOptions().rounds; ++round) {
                MakeCopy(CopyPath(who, round));
            }
        }
    }

    // A virtual machine that has returned free memory to its host waits for each page when it uses
    // the memory again. An unmeasured copy reclaims it, so that the first measured one is not
    // slower.
    void TouchMemory() const
    {
        if (m_benchmark.work == Work::FreshCopy && HasFewFiles()) {
            const std::string copy = m_folder.CopyPath("unmeasured");
            MakeCopy(copy);
            RemoveTree(copy);
        }
    }

    // Reverses the order in every other round, so that no candidate is always first.
    void RunRounds()
    {
        MakeCopies();
        TouchMemory();
        const unsigned rounds = m_folder.GetOptions().rounds;
        for (unsigned round = 0; round < rounds; ++round) {
            std::cerr << m_benchmark.name << ": round " << round + 1 << " of " << rounds << '\n';
            if (!m_benchmark.cold && !Deletes()) {
                WarmUp(m_tree);
            }
            for (std::size_t turn = 0; turn < m_candidates.size(); ++turn) {
                const std::size_t who = round % 2 == 0 ? turn : m_candidates.size() - 1 - turn;
                m_seconds[who].push_back(RunOnce(m_candidates[who], CopyPath(who, round)));
            }
        }
    }
    [[nodiscard]] double RunOnce(const Candidate& candidate, const std::string& copy) const
    {
        const std::vector<Command> commands = candidate(copy);
        m_folder.Settle();
        if (m_benchmark.cold) {
            m_folder.DropCaches();
        }
        const double seconds = RunTimed(commands).seconds;
        if (m_benchmark.work != Work::Count) {
            const std::string fault = CompareTree(copy, Deletes() ? TreeShape{} : m_shape);
            if (!fault.empty()) {
                GiveUp(commands[0].arguments[0] + " did not do its work: " + fault);
            }
        }
        if (m_benchmark.work == Work::FreshCopy && HasFewFiles()) {
            RemoveTree(copy);
        }
        return seconds;
    }

    [[nodiscard]] std::vector<Figure> Compare() const
    {
        std::vector<Figure> figures;
        for (const Comparison& comparison : m_comparisons) {
            figures.push_back(CompareRounds(comparison.against, m_seconds[comparison.ours],
                                            m_seconds[comparison.theirs], comparison.bar));
        }
        return figures;
    }

    const Benchmark& m_benchmark;
    const BenchFolder& m_folder;
    TreeShape m_shape;
    std::string m_tree;
    std::vector<Candidate> m_candidates;
    std::vector<std::vector<double>> m_seconds;  // by candidate and round
    std::vector<Comparison> m_comparisons;
};

}  // namespace

Figure CompareRounds(const std::string& against, const std::vector<double>& ours,
                     const std::vector<double>& theirs, double bar)
{
    std::vector<double> ratios;
    std::ranges::transform(ours, theirs, std::back_inserter(ratios), std::divides<>());
    return {against, Median(ours), Median(theirs), Median(ratios), bar};
}

BenchmarkResult Measure(const Benchmark& benchmark, const BenchFolder& folder)
{
    if (benchmark.work >= Work::DistantCopy) {
        return MeasureAtDistance(benchmark, folder);
    }
    if (benchmark.cold && !folder.CanDropCaches()) {
        return {{}, "dropping the caches needs root; not measured"};
    }
    return {Measurement(benchmark, folder).Run(), {}};
}

}  // namespace quorbit::bench
