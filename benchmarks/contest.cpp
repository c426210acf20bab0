// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/contest.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>

namespace quorbit::bench {
namespace {

constexpr std::uint32_t kWholeTree =
    DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE | DCF_ALL_TYPES;

// From here on the copies of a row stay until the row is over. ext4 gives a deleted file's inode to
// nobody else for a minute or more: who creates many files where many were just deleted pays for
// the search, and more than for the copy.
constexpr std::uint64_t kManyFiles = 1000;

// Who is measured: what is done to the tree, given the place of the copy that belongs to the run.
using Contestant = std::function<std::vector<Command>(const std::string& copy)>;

// Which two are compared.
struct Duel {
    std::size_t ours = 0;  // indexes of the contestants
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

class Contest {
public:
    Contest(const Row& row, const Workshop& workshop)
        : m_row(row),
          m_workshop(workshop),
          m_shape(workshop.GetOptions().quick ? row.quickShape : row.shape),
          m_tree(workshop.TreePath(row.tree))
    {
    }

    [[nodiscard]] std::vector<Finding> Run()
    {
        EnsureTree(m_tree, m_shape);
        m_workshop.ClearCopies();
        std::vector<Finding> findings = m_row.work == Work::Memory ? MeasureMemory() : Measure();
        if (m_row.work == Work::Window) {
            findings.push_back(MeasureWait());
        }
        m_workshop.ClearCopies();
        return findings;
    }

private:
    [[nodiscard]] std::vector<Finding> Measure()
    {
        switch (m_row.work) {
            case Work::FreshCopy:
                EnterFreshCopy();
                break;
            case Work::UnchangedSync:
                EnterUnchangedSync();
                break;
            case Work::Window:
                EnterWindow();
                break;
            case Work::Count:
                EnterCount();
                break;
            default:
                EnterDelete();
                break;
        }
        PlayRounds();
        return Compare();
    }

    [[nodiscard]] Command Quorbit(const std::string& source, const std::string& dest,
                                  std::uint32_t flags, Ending ending = Ending::OnDisk,
                                  const std::string& mode = "/I") const
    {
        CDirCopy entry(source, dest, flags, DCK_TYPES, 0);
        entry.m_listItems = {"*.*"};
        return m_workshop.QuorbitCommand(entry, ending, mode);
    }
    std::size_t Enter(Contestant contestant)
    {
        m_contestants.push_back(std::move(contestant));
        m_seconds.emplace_back();
        return m_contestants.size() - 1;
    }

    // Twice: the work alone, and the work until it is on the disk.
    void EnterFreshCopy()
    {
        for (const bool onDisk : {false, true}) {
            const Ending ending = onDisk ? Ending::OnDisk : Ending::LeftToSystem;
            const std::size_t ours = Enter([this, ending](const std::string& copy) {
                return std::vector{Quorbit(m_tree, copy, kWholeTree, ending)};
            });
            for (const Bar& bar : m_row.bars) {
                const std::size_t theirs = Enter([this, bar, onDisk](const std::string& copy) {
                    std::vector commands{PeerCopy(bar.peer, m_tree, copy)};
                    if (onDisk) {
                        commands.push_back({{"sync", "-f", copy}, {}});
                    }
                    return commands;
                });
                m_duels.push_back(
                    {ours, theirs, bar.peer + (onDisk ? ", on disk" : ", work"), bar.ratio});
            }
        }
    }

    void EnterUnchangedSync()
    {
        const std::size_t ours = Enter([this](const std::string& copy) {
            return std::vector{Quorbit(m_tree, copy, kWholeTree | DCF_SYNC)};
        });
        for (const Bar& bar : m_row.bars) {
            EnterPeer(ours, bar, [this, bar](const std::string& copy) {
                return std::vector{PeerCopy(bar.peer, m_tree, copy)};
            });
        }
    }

    // In a window that is drawn, but on no screen.
    void EnterWindow()
    {
        const std::size_t ours = Enter([this](const std::string& copy) {
            Command command = Quorbit(m_tree, copy, kWholeTree, Ending::LeftToSystem, "/VS");
            command.environment["QT_QPA_PLATFORM"] = "offscreen";
            return std::vector{command};
        });
        EnterPeer(ours, m_row.bars.at(0), [this](const std::string& copy) {
            return std::vector{Quorbit(m_tree, copy, kWholeTree, Ending::LeftToSystem)};
        });
    }
    // The longest time that an event of the window waits while the tree is copied.
    [[nodiscard]] Finding MeasureWait() const
    {
        const std::string program =
            (std::filesystem::path(m_workshop.GetOptions().counter).parent_path() / "bench_window")
                .string();
        const std::string result = m_workshop.CopyPath("wait");
        (void)RunTimed({{{program, m_tree, m_workshop.CopyPath("waited"), result},
                         {{"QT_QPA_PLATFORM", "offscreen"}}}});
        double milliseconds = 0;
        if (!(std::ifstream(result) >> milliseconds)) {
            GiveUp("bench_window left no result");
        }
        const double limit = 100;
        const Bar& bar = m_row.bars.at(1);
        return {bar.peer, milliseconds / 1000, limit / 1000, milliseconds / limit, bar.ratio};
    }

    void EnterCount()
    {
        const std::size_t ours = Enter([this](const std::string&) {
            const std::string expected = std::to_string(m_shape.Files());
            return std::vector{Command{{m_workshop.GetOptions().counter, m_tree, expected}, {}}};
        });
        EnterPeer(ours, m_row.bars.at(0), [this](const std::string&) {
            return std::vector{Command{{"find", m_tree, "-type", "f"}, {}}};
        });
    }

    void EnterDelete()
    {
        const std::uint32_t flags =
            m_row.work == Work::DeleteFolder
                ? DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER
                : DCF_NO_ATTRS | DCF_DELETE | DCF_SUBFOLDERS | DCF_ALL_TYPES;
        const std::size_t ours = Enter([this, flags](const std::string& copy) {
            return std::vector{Quorbit(copy, "", flags)};
        });
        EnterPeer(ours, m_row.bars.at(0), [](const std::string& copy) {
            return std::vector{Command{{"rm", "-rf", copy}, {}}};
        });
    }

    void EnterPeer(std::size_t ours, const Bar& bar, Contestant contestant)
    {
        m_duels.push_back({ours, Enter(std::move(contestant)), bar.peer, bar.ratio});
    }

    // A fresh copy of the whole tree and of one with a tenth of its folders.
    [[nodiscard]] std::vector<Finding> MeasureMemory() const
    {
        TreeShape tenth = m_shape;
        tenth.folders /= 10;
        EnsureTree(m_tree + "-tenth", tenth);
        const double part = PeakOfCopy(m_tree + "-tenth", m_workshop.CopyPath("tenth"));
        const double whole = PeakOfCopy(m_tree, m_workshop.CopyPath("whole"));
        const double limit = 32;
        const Bar& underLimit = m_row.bars.at(0);
        const Bar& noGrowth = m_row.bars.at(1);
        return {{underLimit.peer, whole, limit, whole / limit, underLimit.ratio},
                {noGrowth.peer, whole, part, whole / part, noGrowth.ratio}};
    }
    [[nodiscard]] double PeakOfCopy(const std::string& tree, const std::string& copy) const
    {
        std::cerr << m_row.name << ": " << tree << '\n';
        return RunTimed({Quorbit(tree, copy, kWholeTree)}).peakMiB;
    }

    // Few files, so that their copies may be deleted between the runs.
    [[nodiscard]] bool IsBrief() const { return m_shape.Files() < kManyFiles; }
    [[nodiscard]] bool Deletes() const
    {
        return m_row.work == Work::DeleteFiles || m_row.work == Work::DeleteFolder;
    }
    // Every run that makes or deletes a copy has one of its own.
    [[nodiscard]] std::string CopyPath(std::size_t who, unsigned round) const
    {
        return m_workshop.CopyPath(m_row.work == Work::UnchangedSync
                                       ? std::string("same")
                                       : std::to_string(who) + "-" + std::to_string(round));
    }
    void LayCopy(const std::string& copy) const
    {
        (void)RunTimed({PeerCopy("cp -a", m_tree, copy)});
    }
    void LayCopies() const
    {
        if (m_row.work == Work::UnchangedSync) {
            LayCopy(CopyPath(0, 0));
        }
        for (std::size_t who = 0; Deletes() && who < m_contestants.size(); ++who) {
            for (unsigned round = 0; round < m_workshop.GetOptions().rounds; ++round) {
                LayCopy(CopyPath(who, round));
            }
        }
    }

    // A virtual machine that has given free memory back to its host waits for every page of it that
    // is used again. A large copy that nobody measures brings it back, else the first one pays.
    void TouchMemory() const
    {
        if (m_row.work == Work::FreshCopy && IsBrief()) {
            const std::string copy = m_workshop.CopyPath("unmeasured");
            LayCopy(copy);
            RemoveTree(copy);
        }
    }

    // Every round turns the order round, so that nobody always comes first.
    void PlayRounds()
    {
        LayCopies();
        TouchMemory();
        const unsigned rounds = m_workshop.GetOptions().rounds;
        for (unsigned round = 0; round < rounds; ++round) {
            std::cerr << m_row.name << ": round " << round + 1 << " of " << rounds << '\n';
            if (!m_row.cold && !Deletes()) {
                WarmUp(m_tree);
            }
            for (std::size_t turn = 0; turn < m_contestants.size(); ++turn) {
                const std::size_t who = round % 2 == 0 ? turn : m_contestants.size() - 1 - turn;
                m_seconds[who].push_back(Play(m_contestants[who], CopyPath(who, round)));
            }
        }
    }
    [[nodiscard]] double Play(const Contestant& contestant, const std::string& copy) const
    {
        const std::vector<Command> commands = contestant(copy);
        m_workshop.Settle();
        if (m_row.cold) {
            m_workshop.DropCaches();
        }
        const double seconds = RunTimed(commands).seconds;
        if (m_row.work != Work::Count) {
            const std::string fault = CompareTree(copy, Deletes() ? TreeShape{} : m_shape);
            if (!fault.empty()) {
                GiveUp(commands[0].arguments[0] + " did not do its work: " + fault);
            }
        }
        if (m_row.work == Work::FreshCopy && IsBrief()) {
            RemoveTree(copy);
        }
        return seconds;
    }

    [[nodiscard]] std::vector<Finding> Compare() const
    {
        std::vector<Finding> findings;
        for (const Duel& duel : m_duels) {
            const std::vector<double>& ours = m_seconds[duel.ours];
            const std::vector<double>& theirs = m_seconds[duel.theirs];
            std::vector<double> ratios;
            std::ranges::transform(ours, theirs, std::back_inserter(ratios), std::divides<>());
            findings.push_back(
                {duel.against, Median(ours), Median(theirs), Median(ratios), duel.bar});
        }
        return findings;
    }

    const Row& m_row;
    const Workshop& m_workshop;
    TreeShape m_shape;
    std::string m_tree;
    std::vector<Contestant> m_contestants;
    std::vector<std::vector<double>> m_seconds;  // by contestant and round
    std::vector<Duel> m_duels;
};

}  // namespace

RowResult MeasureRow(const Row& row, const Workshop& workshop)
{
    if (row.cold && !workshop.CanDropCaches()) {
        return {{}, "dropping the caches needs root; not measured"};
    }
    return {Contest(row, workshop).Run(), {}};
}

}  // namespace quorbit::bench
