// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Commands as actions: one for the menus and one for the key, both made from the command table.
// User interface thread only.

#pragma once

#include <QAction>
#include <QWidget>
#include <functional>
#include <map>

#include "document/command_target.h"

namespace quorbit {

// Text with its mnemonic mark for the screen: a name in it must not bring marks of its own.
[[nodiscard]] QString WithoutMarks(QString text);

class CommandActions {
public:
    // The keys work in owner, which must outlive this object and owns the actions. Both functions
    // must be there: how a command stands, and what carries it out.
    CommandActions(QWidget& owner, std::function<CommandState(int)> stateOf,
                   std::function<void(int)> run);

    // The action of a command for a menu or bar, one a command; its data is the number. A number
    // that is not in the table gets an action without text.
    [[nodiscard]] QAction* Get(int nId);
    // Brings all of them up to date. A key asks by itself when it is pressed.
    void UpdateStates();

private:
    void AddKey(int nId, const QString& key);

    QWidget& m_owner;
    std::function<CommandState(int)> m_stateOf;
    std::function<void(int)> m_run;
    std::map<int, QAction*> m_actions;
};

}  // namespace quorbit
