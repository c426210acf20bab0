// SPDX-FileCopyrightText: The Quorbit authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/window/command_actions.h"

#include <QKeySequence>
#include <string_view>
#include <utility>

#include "document/command_table.h"
#include "document/help_topic.h"
#include "document/help_topics.h"

namespace quorbit {

QString CommandText(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

QString WithoutMarks(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

CommandActions::CommandActions(QWidget& owner, std::function<CommandState(int)> stateOf,
                               std::function<void(int)> run)
    : m_owner(owner), m_stateOf(std::move(stateOf)), m_run(std::move(run))
{
    for (const Command& command : CommandTable()) {
        if (!command.key.empty()) {
            AddKey(command.nId, CommandText(command.key));
        }
    }
}

// The key is not set as the shortcut of the menu action: it would be ignored while that action is
// still disabled from an earlier state, and the key name in the menu is not always the real key.
void CommandActions::AddKey(int nId, const QString& key)
{
    auto* action = new QAction(&m_owner);
    action->setShortcut(QKeySequence(key, QKeySequence::PortableText));
    QObject::connect(action, &QAction::triggered, &m_owner, [this, nId] {
        if (m_stateOf(nId).enabled) {
            m_run(nId);
        }
    });
    m_owner.addAction(action);
}

QAction* CommandActions::Get(int nId)
{
    QAction*& action = m_actions[nId];
    if (action == nullptr) {
        action = new QAction(&m_owner);
        action->setData(nId);
        if (const Command* command = FindCommand(nId)) {
            const QString key = CommandText(command->keyName);
            action->setText(CommandText(command->text) +
                            (key.isEmpty() ? key : QLatin1Char('\t') + key));
            action->setStatusTip(CommandText(command->help));
        }
        SetHelpTopic(*action, HelpTopicOfCommand(nId));
        QObject::connect(action, &QAction::triggered, &m_owner, [this, nId] { m_run(nId); });
    }
    return action;
}

void CommandActions::UpdateStates()
{
    for (const auto& [nId, action] : m_actions) {
        const CommandState state = m_stateOf(nId);
        action->setEnabled(state.enabled);
        action->setCheckable(state.checked || action->isCheckable());
        action->setChecked(state.checked);
    }
}

}  // namespace quorbit
