// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Creates the QActions of the commands from the command table: one for menus and toolbar, and one
// for the key. User interface thread only.

#pragma once

#include <QAction>
#include <QWidget>
#include <functional>
#include <map>
#include <string_view>

#include "document/command_target.h"

namespace quorbit {

// In a list of command numbers: a line between two groups.
constexpr int kSeparator = 0;

// Text of the command table, which is Latin-1, as Qt takes it.
[[nodiscard]] QString CommandText(std::string_view text);

// Escapes every '&' as "&&", so that a name in a menu text creates no mnemonic.
[[nodiscard]] QString WithoutMarks(QString text);

class CommandActions {
public:
    // The keys work in the window of `owner`, which owns the actions and must outlive this object.
    // stateOf returns the state of a command, run executes it; neither may be null.
    CommandActions(QWidget& owner, std::function<CommandState(int)> stateOf,
                   std::function<void(int)> run);

    // Returns the action of a command for menus and toolbars, always the same one. Its data is the
    // command number. A number that is not in the table gets an action without text.
    [[nodiscard]] QAction* Get(int nId);
    // Updates the state of all menu actions. Keys query the state when they are pressed.
    void UpdateStates();

private:
    void AddKey(int nId, const QString& key);

    QWidget& m_owner;
    std::function<CommandState(int)> m_stateOf;
    std::function<void(int)> m_run;
    std::map<int, QAction*> m_actions;
};

}  // namespace quorbit
