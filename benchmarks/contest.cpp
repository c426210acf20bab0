// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/contest.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>

namespace quorbit::bench {
namespace {

constexpr std::uint32_t kWholeTree =
    DCF_NO_ATTRS | DCF_SUBFOLDERS | DCF_PRESERVE_TREE | DCF_ALL_TYPES;

// Who is measured. What comes before and after the commands is not timed.
struct Contestant {
    std::vector<Command> commands;
    std::function<void()> prepare;
    std::function<std::string()> check;  // empty if the work was done, else what is wrong
};

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

class Contest {
public:
    Contest(const Row& row, const Workshop& workshop)
        : m_row(row),
          m_workshop(workshop),
          m_shape(workshop.GetOptions().quick ? row.quickShape : row.shape),
          m_tree(workshop.TreePath(row.tree)),
          m_copy(workshop.DestinationPath())
    {
    }

    [[nodiscard]] std::vector<Finding> Run()
    {
        EnsureTree(m_tree, m_shape);
        RemoveTree(m_copy);
        if (!m_row.cold && m_row.work != Work::Memory)
            WarmUp(m_tree);
        switch (m_row.work) {
            case Work::FreshCopy:
                EnterFreshCopy();
                break;
            case Work::UnchangedSync:
                EnterUnchangedSync();
                break;
            case Work::Count:
                EnterCount();
                break;
            case Work::DeleteFiles:
            case Work::DeleteFolder:
                EnterDelete();
                break;
            case Work::Memory:
                return MeasureMemory();
        }
        PlayRounds();
        RemoveTree(m_copy);
        return Compare();
    }

private:
    using Prepare = std::function<void()>;
    using Check = std::function<std::string()>;

    [[nodiscard]] Command QuorbitOn(const std::string& source, const std::string& dest,
                                    std::uint32_t flags, Ending ending = Ending::OnDisk) const
    {
        CDirCopy entry(source, dest, flags, DCK_TYPES, 0);
        entry.m_listItems = {"*.*"};
        return m_workshop.QuorbitCommand(entry, ending);
    }
    [[nodiscard]] Command PeerCopy(const std::string& peer) const
    {
        if (peer == "rsync -a")
            return {{"rsync", "-a", m_tree + "/", m_copy + "/"}, {}};
        return {{"cp", "-a", m_tree, m_copy}, {}};
    }
    std::size_t Enter(std::vector<Command> commands, Prepare prepare, Check check)
    {
        m_contestants.push_back({std::move(commands), std::move(prepare), std::move(check)});
        m_timings.emplace_back();
        return m_contestants.size() - 1;
    }

    // Twice: the work alone, and the work until it is on the disk.
    void EnterFreshCopy()
    {
        const Prepare clear = [this] { RemoveTree(m_copy); };
        const Check compare = [this] { return CompareTree(m_copy, m_shape); };
        for (const bool onDisk : {false, true}) {
            const Ending ending = onDisk ? Ending::OnDisk : Ending::LeftToSystem;
            const std::size_t ours =
                Enter({QuorbitOn(m_tree, m_copy, kWholeTree, ending)}, clear, compare);
            for (const Bar& bar : m_row.bars) {
                std::vector<Command> commands{PeerCopy(bar.peer)};
                if (onDisk)
                    commands.push_back({{"sync", "-f", m_copy}, {}});
                const std::size_t theirs = Enter(std::move(commands), clear, compare);
                m_duels.push_back(
                    {ours, theirs, bar.peer + (onDisk ? ", on disk" : ", work"), bar.ratio});
            }
        }
    }

    void EnterUnchangedSync()
    {
        (void)RunTimed({PeerCopy("cp -a")});
        const Check compare = [this] { return CompareTree(m_copy, m_shape); };
        const std::size_t ours = Enter(
            {QuorbitOn(m_tree, m_copy, kWholeTree | DCF_SYNC)}, [] {}, compare);
        EnterPeers(
            ours, [this](const Bar& bar) { return PeerCopy(bar.peer); }, [] {}, compare);
    }

    void EnterCount()
    {
        const Check none = [] { return std::string(); };
        const std::string expected = std::to_string(m_shape.Files());
        const std::size_t ours = Enter(
            {{{m_workshop.GetOptions().counter, m_tree, expected}, {}}}, [] {}, none);
        EnterPeers(
            ours,
            [this](const Bar&) {
                return Command{{"find", m_tree, "-type", "f"}, {}};
            },
            [] {}, none);
    }

    void EnterDelete()
    {
        const Prepare lay = [this] {
            RemoveTree(m_copy);
            (void)RunTimed({PeerCopy("cp -a")});
        };
        const std::uint32_t flags =
            m_row.work == Work::DeleteFolder
                ? DCF_NO_ATTRS | DCF_DELETE | DCF_DELETE_FOLDER
                : DCF_NO_ATTRS | DCF_DELETE | DCF_SUBFOLDERS | DCF_ALL_TYPES;
        const Check gone = [this] { return CompareTree(m_copy, {}); };
        const std::size_t ours = Enter({QuorbitOn(m_copy, "", flags)}, lay, gone);
        EnterPeers(
            ours,
            [this](const Bar&) {
                return Command{{"rm", "-rf", m_copy}, {}};
            },
            lay, gone);
    }

    void EnterPeers(std::size_t ours, const std::function<Command(const Bar&)>& command,
                    const Prepare& prepare, const Check& check)
    {
        for (const Bar& bar : m_row.bars) {
            const std::size_t theirs = Enter({command(bar)}, prepare, check);
            m_duels.push_back({ours, theirs, bar.peer, bar.ratio});
        }
    }

    // A fresh copy of the whole tree and of one with a tenth of its folders.
    [[nodiscard]] std::vector<Finding> MeasureMemory()
    {
        TreeShape tenth = m_shape;
        tenth.folders /= 10;
        EnsureTree(m_tree + "-tenth", tenth);
        const double whole = PeakOfCopy(m_tree);
        const double part = PeakOfCopy(m_tree + "-tenth");
        const double limit = 32;
        const Bar& underLimit = m_row.bars.at(0);
        const Bar& noGrowth = m_row.bars.at(1);
        return {{underLimit.peer, whole, limit, whole / limit, underLimit.ratio},
                {noGrowth.peer, whole, part, whole / part, noGrowth.ratio}};
    }
    [[nodiscard]] double PeakOfCopy(const std::string& tree) const
    {
        RemoveTree(m_copy);
        std::cerr << m_row.name << ": " << tree << '\n';
        const Timing timing = RunTimed({QuorbitOn(tree, m_copy, kWholeTree)});
        RemoveTree(m_copy);
        return timing.peakMiB;
    }

    // Every round turns the order round, so that nobody always comes first.
    void PlayRounds()
    {
        const unsigned rounds = m_workshop.GetOptions().rounds;
        for (unsigned round = 0; round < rounds; ++round) {
            std::cerr << m_row.name << ": round " << round + 1 << " of " << rounds << '\n';
            for (std::size_t turn = 0; turn < m_contestants.size(); ++turn) {
                const std::size_t who = round % 2 == 0 ? turn : m_contestants.size() - 1 - turn;
                m_timings[who].push_back(Play(m_contestants[who]).seconds);
            }
        }
    }
    [[nodiscard]] Timing Play(const Contestant& contestant) const
    {
        contestant.prepare();
        m_workshop.Settle();
        if (m_row.cold)
            m_workshop.DropCaches();
        const Timing timing = RunTimed(contestant.commands);
        if (const std::string fault = contestant.check(); !fault.empty())
            GiveUp(contestant.commands[0].arguments[0] + " did not do its work: " + fault);
        return timing;
    }

    [[nodiscard]] std::vector<Finding> Compare() const
    {
        std::vector<Finding> findings;
        for (const Duel& duel : m_duels) {
            const std::vector<double>& ours = m_timings[duel.ours];
            const std::vector<double>& theirs = m_timings[duel.theirs];
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
    std::string m_copy;
    std::vector<Contestant> m_contestants;
    std::vector<std::vector<double>> m_timings;  // seconds by contestant and round
    std::vector<Duel> m_duels;
};

}  // namespace

RowResult MeasureRow(const Row& row, const Workshop& workshop)
{
    if (row.cold && !workshop.CanDropCaches())
        return {{}, "dropping the caches needs root; not measured"};
    return {Contest(row, workshop).Run(), {}};
}

}  // namespace quorbit::bench
