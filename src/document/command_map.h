// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Table of the commands of one target: a row contains the command, the function that runs it and,
// unless it is always enabled, the function that returns its state. User interface thread only.
//
//   bool Pane::OnCommand(int nId) { return Commands().Run(*this, nId); }
//   bool Pane::OnUpdateCommand(int nId, CommandState& state)
//   {
//       return Commands().Update(*this, nId, state);
//   }
//   const CommandMap<Pane>& Pane::Commands()  // a static member
//   {
//       static const CommandMap<Pane> map{
//           {CMD_REFRESH, &Pane::Refresh},
//           {CMD_EDIT_ENTRY, &Pane::Edit, &Pane::EditState},
//           {{CMD_VIEW_LARGE_ICONS, CMD_VIEW_ROW_DETAIL}, &Pane::SetStyleOf, &Pane::StyleState},
//       };
//       return map;
//   }

#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

#include "document/command_target.h"

namespace quorbit {

struct CommandRange {
    int first;
    int last;  // inclusive
};

template <class Target>
class CommandMap {
public:
    // A state function returns nullopt if the target does not handle the command at the moment.
    using State = std::optional<CommandState>;

    struct Row {
        Row(
            int nId, std::function<void(Target&)> run,
            std::function<State(const Target&)> state =
                [](const Target&) { return CommandState(); })
            : Row(
                  {nId, nId}, [run = std::move(run)](Target& target, int) { run(target); },
                  [state = std::move(state)](const Target& target, int) { return state(target); })
        {
        }
        // For a range of commands; the functions get the command number.
        Row(
            CommandRange range, std::function<void(Target&, int)> run,
            std::function<State(const Target&, int)> state = [](const Target&,
                                                                int) { return CommandState(); })
            : m_ids(range), m_run(std::move(run)), m_state(std::move(state))
        {
        }

        CommandRange m_ids;
        std::function<void(Target&, int)> m_run;
        std::function<State(const Target&, int)> m_state;
    };

    // Each number must be in one row only.
    CommandMap(std::initializer_list<Row> rows) : m_rows(rows) {}

    // Runs a command, unless its state is disabled. Returns false if the target does not handle it.
    bool Run(Target& target, int nId) const
    {
        const Row* row = Find(nId);
        if (row == nullptr) {
            return false;
        }
        const State state = row->m_state(target, nId);
        if (state && state->enabled) {
            row->m_run(target, nId);
        }
        return state.has_value();
    }

    // Sets `state`. Returns false and leaves it unchanged if the target does not handle the
    // command.
    bool Update(const Target& target, int nId, CommandState& state) const
    {
        const Row* row = Find(nId);
        const State now = row != nullptr ? row->m_state(target, nId) : std::nullopt;
        state = now.value_or(state);
        return now.has_value();
    }

private:
    const Row* Find(int nId) const
    {
        const auto found = std::ranges::find_if(m_rows, [nId](const Row& row) {
            return row.m_ids.first <= nId && nId <= row.m_ids.last;
        });
        return found == m_rows.end() ? nullptr : &*found;
    }

    std::vector<Row> m_rows;
};

}  // namespace quorbit
